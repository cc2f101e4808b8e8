/// The canonical form of JSON numbers. Works on digits, so it never rounds; no arithmetic.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane::JSON {

/// The maximum number of digits, zeros included, of a number without an exponent.
inline constexpr std::size_t maxPlainDigits = 40;

/// The canonical form of `literal`, a valid JSON number. Two literals have the same form exactly when they
/// have the same value and sign (a negative zero stays `-0`):
/// - the plain form has no exponent, no trailing zeros in its fraction and no point without a fraction; it is
///   used for at most `maxPlainDigits` digits before and after the point together;
/// - the exponent form has one digit, the others after a point without trailing zeros, `e`, and the exponent
///   without a plus sign or leading zeros, for example `1e400` or `-1.25e-300`.
///
/// Exponents may have any length; time and memory are linear in the size of the literal.
std::string canonicalNumber(std::string_view literal);

} // namespace korvane::JSON
