/// A turning ring beside a text that describes the running work.
#pragma once

#include <string_view>

class QWidget;

namespace korvane {

/// The ring turns while it is visible. It shows no progress.
QWidget* busyLabel(std::string_view text);

} // namespace korvane
