/// A status badge with more about it beside it. What appears together is announced as one message, since of
/// two at once only the last would be heard.
#pragma once

#include "Views/Components/StatusBadge.h"

#include <functional>
#include <optional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

/// The line is there while `badge` reads one; `details` may read an empty text.
QWidget* statusLine(ViewCore& view, std::function<std::optional<StatusBadge>()> badge,
                    std::function<std::string()> details);

/// Two badges side by side, each while it reads one.
QWidget* statusBadges(ViewCore& view, std::function<std::optional<StatusBadge>()> first,
                      std::function<std::optional<StatusBadge>()> second);

} // namespace korvane
