/// Percent-encoding of texts for the query of a URL (RFC 3986, section 2.1). Not form encoding: a plus sign
/// is a plus sign, and a space becomes `%20`.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvane::PercentEncoding {

/// `text` with every byte as `%` and two upper-case hexadecimal digits, but for the letters and digits of
/// ASCII and `!$&'()*+,-./:;=?@_~`, which a query may hold; its delimiters stay, too. None unless `text` is
/// UTF-8.
std::optional<std::string> encode(std::string_view text);

/// `text` with every `%` and the two hexadecimal digits after it as the byte that they stand for. None where
/// a `%` has no two digits after it, and unless the bytes are UTF-8.
std::optional<std::string> decode(std::string_view text);

} // namespace korvane::PercentEncoding
