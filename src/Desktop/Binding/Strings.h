/// Conversions between the program's UTF-8 texts and Qt's strings.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace korvane {

/// Each maximal ill-formed subsequence becomes U+FFFD, as `decodeAt` finds them; Qt's own conversion finds
/// others, and drops a byte-order mark at the start.
QString qString(std::string_view utf8);

/// Each lone surrogate becomes U+FFFD.
std::string utf8String(const QString& string);

} // namespace korvane
