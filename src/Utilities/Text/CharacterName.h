/// How messages name a character that stands somewhere in a text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// The name of the code point at `offset` of `text`, which is before its end: the code point itself in
/// quotes, "double quote" for that, and its number, such as U+00A0, for one that cannot be seen.
std::string characterName(std::string_view text, std::size_t offset);

} // namespace korvane
