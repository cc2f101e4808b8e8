/// Parses floating-point numbers in the syntax of the C standard, independent of the locale.
#pragma once

#include <optional>
#include <string_view>

namespace korvane {

/// The double that the whole of `text` denotes, or none. The syntax is that of the C standard's `strtod` in
/// the "C" locale, but without leading white space: decimal digits with an optional sign, fraction and
/// exponent, hexadecimal floating point ("0x1.8p3"), and "infinity", "inf" and "nan" in any letter case. The
/// result is correctly rounded; a number too large for a double becomes infinity, one too small becomes zero.
std::optional<double> doubleFromText(std::string_view text);

} // namespace korvane
