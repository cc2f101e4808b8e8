/// Upper case, lower case and capitals by the full mappings of Unicode, the same in every locale. A text may
/// change its length: a sharp s becomes two capitals S. Texts are shorter than 2 GiB, as ICU counts in 32
/// bits.
#pragma once

#include <string>
#include <string_view>

namespace korvane {

std::string uppercased(std::string_view text);

/// A capital sigma becomes the form that a word ends with where it ends one.
std::string lowercased(std::string_view text);

/// `text` with the first character of every word upper-cased, and all others lower-cased. Only white space
/// and newlines delimit words, so "o'neill-smith" is one, as is "iPhone", which gives "Iphone".
std::string capitalized(std::string_view text);

} // namespace korvane
