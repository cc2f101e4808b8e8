#include "Desktop/Controls/StatusLine.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Controls/BadgeLink.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Messages.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"

#include <string>

namespace korvane {

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int statusGap = 12;

std::string messageOf(const std::optional<StatusBadge>& badge) {
    return badge ? badge->message : std::string();
}

std::string joined(const std::string& first, const std::string& second) {
    return first.empty() || second.empty() ? first + second : first + ", " + second;
}

void display(StatusBadgeLabel& label, const std::optional<StatusBadge>& badge) {
    if (badge)
        label.display(*badge);
    setShown(&label, badge.has_value());
}

} // namespace

QWidget* statusLine(Store& store, const Reader<std::optional<StatusBadge>>& badge,
                    const Reader<std::string>& details) {
    auto* label = new StatusBadgeLabel;
    auto* text = new Label({}, Theme::TextStyle::body, Theme::Role::secondary);
    auto* line = stack(Qt::Horizontal, {.spacing = statusGap}, {rigid(label), text, stretch()});
    const auto badgeOf = badge.of(store);
    const auto detailsOf = details.of(store);
    reportMessages(store, *line, [=] { return joined(messageOf(badgeOf()), detailsOf()); });
    store.onRefresh([=] {
        const auto current = badgeOf();
        display(*label, current);
        text->display(detailsOf());
        line->setVisible(current.has_value());
    });
    return line;
}

QWidget* statusBadges(Store& store, const Reader<std::optional<StatusBadge>>& first,
                      const Reader<std::optional<StatusBadge>>& second, const Action<>& showPlace) {
    auto* left = new StatusBadgeLabel;
    auto* link = new BadgeLink;
    auto* right = new StatusBadgeLabel;
    auto* line =
        stack(Qt::Horizontal, {.spacing = Theme::Size::gapControl}, {rigid(left), link, right, stretch()});
    QObject::connect(link, &BadgeLink::clicked, line, showPlace.on(store));
    const auto firstOf = first.of(store);
    const auto secondOf = second.of(store);
    reportMessages(store, *line, [=] { return joined(messageOf(firstOf()), messageOf(secondOf())); });
    store.onRefresh([=] {
        const auto one = firstOf();
        const auto other = secondOf();
        const bool isLink = one && !one->place.empty();
        display(*left, isLink ? std::nullopt : one);
        if (isLink)
            link->display(*one);
        setShown(link, isLink);
        display(*right, other);
        line->setVisible(one || other);
    });
    return line;
}

} // namespace korvane
