#include "Desktop/Controls/BusyBadge.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/BusyLabel.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QShortcut>

#include <string>

namespace korvane {

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int padding = 12;
constexpr int height = 32;

std::string announcement(const AwaitedWork& work) {
    if (work.isBusy())
        return work.description;
    switch (work.outcome) {
    case AwaitedWork::Outcome::done:
        return "Done";
    case AwaitedWork::Outcome::cancelled:
        return "Cancelled";
    case AwaitedWork::Outcome::none:
        break;
    }
    return {};
}

} // namespace

QWidget* busyBadge(Store& store, const Reader<const AwaitedWork&>& work, const Action<>& cancel) {
    const auto read = work.of(store);
    auto* label = new Label({}, Theme::TextStyle::body, Theme::Role::secondary);
    auto* badge =
        new Surface([] { return Theme::color(Theme::Role::controlFill); }, Theme::Size::radiusMedium);
    badge->setFixedHeight(Theme::px(height));
    fill(badge, Qt::Horizontal, {.spacing = Theme::Size::gapBadge, .padding = {padding, 0, padding, 0}},
         {new BusyRing, label});
    store.onRefresh([label, read] {
        if (const auto& current = read(); current.isBusy())
            label->display(current.description + "…");
    });
    auto* line = row({rigid(badge), quietButton(store, "Cancel", "", cancel), stretch()});
    announceChanges(store, *line, [read] { return announcement(read()); });
    return when(store, [read] { return read().isBusy(); }, line);
}

QWidget* cancellable(Store& store, const Reader<bool>& isBusy, const Action<>& cancel, QWidget* content) {
    auto* escape = new QShortcut(Qt::Key_Escape, content);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(escape, &QShortcut::activated, content, cancel.on(store));
    store.onRefresh([escape, isBusy = isBusy.of(store)] { escape->setEnabled(isBusy()); });
    return content;
}

} // namespace korvane
