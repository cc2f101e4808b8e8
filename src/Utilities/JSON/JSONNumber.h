/// The one written form of each number that JSON can express. Works on digits, so nothing is ever rounded;
/// not arithmetic.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane::JSON {

/// How many digits a number may have, zeros included, and still be written without an exponent.
inline constexpr std::size_t maxPlainDigits = 40;

/// The written form of `literal`, a valid JSON number. Two literals have the same form exactly when they have
/// the same value and sign (a negative zero stays `-0`):
/// - the plain form has no exponent, no zeros at the end of its fraction and no point without a fraction; it
/// is
///   taken while it has at most `maxPlainDigits` digits before and after the point together;
/// - above that stands one digit, the others after a point without zeros at the end, `e`, and the exponent
///   without a plus sign or leading zeros, for example `1e400` or `-1.25e-300`.
///
/// Exponents have any length; time and memory are linear in the size of the literal.
std::string canonicalNumber(std::string_view literal);

} // namespace korvane::JSON
