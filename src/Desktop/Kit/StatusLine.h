/// A status badge with more about it beside it.
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

} // namespace korvane
