/// Splits a text into lines. `Utilities/Text/Text.h` defines the newline characters.
#pragma once

#include <string_view>
#include <vector>

namespace korvane {

/// The pieces of `text` between newline characters, at least one. Each newline separates: CR LF has an empty
/// piece between the two, and a newline at the end an empty piece after it. The pieces refer to `text`. About
/// a gigabyte a second for ASCII.
std::vector<std::string_view> linesOf(std::string_view text);

} // namespace korvane
