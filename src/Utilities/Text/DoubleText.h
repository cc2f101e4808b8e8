/// Floating-point numbers as the C standard lets people write them, whatever the locale.
#pragma once

#include <optional>
#include <string_view>

namespace korvane {

/// The double that all of `text` stands for, or none. It takes what the C standard's `strtod` takes in the
/// "C" locale, but no white space before it: decimal digits with an optional sign, fraction and exponent,
/// hexadecimal floating point ("0x1.8p3"), and "infinity", "inf" and "nan" in any letter case. The result is
/// correctly rounded; a number too large for a double is infinite, one too small is zero.
std::optional<double> doubleFromText(std::string_view text);

} // namespace korvane
