/// Percent-encoding of text for the query of a URL (RFC 3986, section 2.1). Not form encoding: a plus sign
/// stays unchanged, and a space becomes `%20`.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvane::PercentEncoding {

/// `text` with every byte as `%` and two upper-case hexadecimal digits, except ASCII letters and digits and
/// `!$&'()*+,-./:;=?@_~`, which a query may contain (its delimiters included). None unless `text` is UTF-8.
std::optional<std::string> encode(std::string_view text);

/// `text` with every `%` and the two hexadecimal digits after it replaced by the byte they encode. None if a
/// `%` lacks its two digits, or if the result is not UTF-8.
std::optional<std::string> decode(std::string_view text);

} // namespace korvane::PercentEncoding
