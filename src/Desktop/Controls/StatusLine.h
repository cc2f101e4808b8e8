/// A status badge with details beside it. Parts that appear together are announced as one message, because of
/// two simultaneous announcements only the last would be heard.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Views/Components/StatusBadge.h"

#include <optional>
#include <string>

class QWidget;

namespace korvane {

/// The line is visible while there is a badge; `details` may be empty.
QWidget* statusLine(Store& store, const Reader<std::optional<StatusBadge>>& badge,
                    const Reader<std::string>& details);

/// Two badges side by side, each visible while it has a value. While the first one names a place, it is a
/// link that calls `showPlace`.
QWidget* statusBadges(Store& store, const Reader<std::optional<StatusBadge>>& first,
                      const Reader<std::optional<StatusBadge>>& second, const Action<>& showPlace);

} // namespace korvane
