#include "Desktop/Kit/StatusLine.h"

#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Messages.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <string>

namespace korvane {

using Badge = std::function<std::optional<StatusBadge>()>;

namespace {

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

QWidget* statusLine(ViewCore& view, Badge badge, std::function<std::string()> details) {
    auto* label = new StatusBadgeLabel;
    auto* text = new Label({}, Theme::TextStyle::body, Theme::Role::secondary);
    auto* line = stack(Qt::Horizontal, {.spacing = Theme::Size::statusGap}, {rigid(label), text, stretch()});
    reportMessages(view, *line, [=] { return joined(messageOf(badge()), details()); });
    view.onRefresh([=] {
        const auto current = badge();
        display(*label, current);
        text->display(details());
        line->setVisible(current.has_value());
    });
    return line;
}

QWidget* statusBadges(ViewCore& view, Badge first, Badge second) {
    auto* left = new StatusBadgeLabel;
    auto* right = new StatusBadgeLabel;
    auto* line = stack(Qt::Horizontal, {.spacing = Theme::Size::gapControl}, {rigid(left), right, stretch()});
    reportMessages(view, *line, [=] { return joined(messageOf(first()), messageOf(second())); });
    view.onRefresh([=] {
        const auto one = first();
        const auto other = second();
        display(*left, one);
        display(*right, other);
        line->setVisible(one || other);
    });
    return line;
}

} // namespace korvane
