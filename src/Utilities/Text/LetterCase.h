/// Upper case, lower case and capitalisation by the full mappings of Unicode, independent of the locale. The
/// length of a text may change: a sharp s becomes two capitals S. Texts are shorter than 2 GiB, as ICU uses
/// 32-bit lengths.
#pragma once

#include <string>
#include <string_view>

namespace korvane {

std::string uppercased(std::string_view text);

/// A capital sigma at the end of a word becomes the final form.
std::string lowercased(std::string_view text);

/// `text` with the first character of every word upper-cased, and all others lower-cased. Only white space
/// and newlines delimit words: "o'neill-smith" is one word, and "iPhone" becomes "Iphone".
std::string capitalized(std::string_view text);

} // namespace korvane
