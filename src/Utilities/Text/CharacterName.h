/// Names of characters for messages.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// The name of the code point at `offset` (less than the size) of `text`: the code point in quotes, "double
/// quote" for that character, and its number, such as U+00A0, if it is invisible.
std::string characterName(std::string_view text, std::size_t offset);

} // namespace korvane
