/// User-perceived characters (extended grapheme clusters, UAX #29) one by one, and the classes that Unicode
/// puts them into. Counting them is in Text.h. A character is passed as its UTF-8; none is empty.
#pragma once

#include <string_view>
#include <vector>

namespace korvane {

/// The characters of `text` in order, as many as `characterCount` says; CR LF is one. They refer to `text`.
std::vector<std::string_view> characters(std::string_view text);

/// Whether the character has the property Uppercase or, if it is made of several code points, only
/// lower-casing changes it. What has no case, such as an ideograph, is neither this nor lower-case.
bool isUppercase(std::string_view character);

/// Whether the character has the property Lowercase or, if it is made of several code points, only
/// upper-casing changes it.
bool isLowercase(std::string_view character);

/// Whether the character begins with a code point that has a numeric value, such as a digit of any script, a
/// fraction, a Roman numeral or the ideograph for one.
bool isNumeric(std::string_view character);

/// Whether the character begins with a code point that has the property Alphabetic.
bool isLetter(std::string_view character);

} // namespace korvane
