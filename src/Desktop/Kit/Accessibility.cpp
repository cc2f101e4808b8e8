#include "Desktop/Kit/Accessibility.h"

#include "Desktop/Kit/AccessibleButton.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/ViewCore.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QPushButton>
#include <QSplitterHandle>
#include <QToolButton>

#include <optional>
#include <utility>

namespace korvane {

namespace {

/// Has no size and shows nothing: the newest announcement of a window, as the kind of object that screen
/// readers read out whenever it is reported to show.
class Announcer final : public QWidget, public AccessibleControl {
public:
    explicit Announcer(QWidget* window) : QWidget(window) { setFixedSize(0, 0); }

    QAccessibleInterface* newAccessibleInterface() override {
        return new QAccessibleWidget(this, QAccessible::Notification);
    }
};

Announcer* announcerOf(QWidget* window) {
    for (auto* child : window->children()) {
        if (auto* announcer = dynamic_cast<Announcer*>(child))
            return announcer;
    }
    return new Announcer(window);
}

/// Dialogs of the toolkit have buttons of these two kinds, the kit has none.
bool isOfToolkit(const QAbstractButton* button) {
    return qobject_cast<const QPushButton*>(button) || qobject_cast<const QToolButton*>(button);
}

QAccessibleInterface* newInterface(const QString&, QObject* object) {
    if (auto* control = dynamic_cast<AccessibleControl*>(object))
        return control->newAccessibleInterface();
    if (auto* button = qobject_cast<QAbstractButton*>(object); button && !isOfToolkit(button))
        return newButtonInterface(button);
    if (auto* handle = qobject_cast<QSplitterHandle*>(object))
        return new QAccessibleWidget(handle, QAccessible::Separator);
    return nullptr; // the toolkit's own will do
}

} // namespace

void installAccessibility() {
    QAccessible::installFactory(newInterface);
}

void setAccessibleName(QWidget& widget, const QString& name) {
    if (name != widget.accessibleName())
        widget.setAccessibleName(name);
}

void setAccessibleDescription(QWidget& widget, const std::string& description) {
    if (const auto text = qString(description); text != widget.accessibleDescription())
        widget.setAccessibleDescription(text);
}

void announce(const QWidget& source, const QString& text) {
    auto* announcer = announcerOf(source.window());
    announcer->setAccessibleName(text);
    if (!announcer->isVisible()) {
        announcer->show(); // which reports it
        return;
    }
    QAccessibleEvent event(announcer, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

void announceChanges(ViewCore& view, const QWidget& source, std::function<std::string()> text) {
    view.onRefresh([&source, read = std::move(text), last = std::optional<std::string>()]() mutable {
        const auto current = read();
        if (last && *last != current && !current.empty())
            announce(source, qString(current));
        last = current;
    });
}

} // namespace korvane
