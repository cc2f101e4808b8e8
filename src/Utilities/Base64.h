/// Base64 with the standard alphabet (RFC 4648, section 4). Not the URL-safe alphabet, and no line breaks.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvane::Base64 {

/// The Base64 form of `bytes`, padded with `=` to a multiple of four characters, on one line.
std::string encode(std::string_view bytes);

/// The bytes that `text` encodes, or none unless all of it is padded standard Base64: a length that is a
/// multiple of four, no white space, no other characters.
std::optional<std::string> decode(std::string_view text);

} // namespace korvane::Base64
