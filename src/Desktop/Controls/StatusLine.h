/// A status badge with more about it beside it. What appears together is announced as one message, since of
/// two at once only the last would be heard.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Views/Components/StatusBadge.h"

#include <optional>
#include <string>

class QWidget;

namespace korvane {

/// The line is there while `badge` reads one; `details` may read an empty text.
QWidget* statusLine(Store& store, const Reader<std::optional<StatusBadge>>& badge,
                    const Reader<std::string>& details);

/// Two badges side by side, each while it reads one.
QWidget* statusBadges(Store& store, const Reader<std::optional<StatusBadge>>& first,
                      const Reader<std::optional<StatusBadge>>& second);

} // namespace korvane
