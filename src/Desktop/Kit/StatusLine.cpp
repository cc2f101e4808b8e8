#include "Desktop/Kit/StatusLine.h"

#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <utility>

namespace korvane {

QWidget* statusLine(ViewCore& view, std::function<std::optional<StatusBadge>()> badge,
                    std::function<std::string()> details) {
    auto* label = new StatusBadgeLabel;
    auto* text = new Label({}, Theme::TextStyle::body, Theme::Role::secondary);
    auto* line = stack(Qt::Horizontal, {.spacing = Theme::Size::statusGap}, {label, text, stretch()});
    reportStatus(view, *line, badge);
    view.onRefresh([=, badge = std::move(badge), details = std::move(details)] {
        const auto current = badge();
        if (current)
            label->display(*current);
        text->display(details());
        line->setVisible(current.has_value());
    });
    return line;
}

} // namespace korvane
