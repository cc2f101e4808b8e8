/// The way between the program's UTF-8 texts and the toolkit's strings.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace korvane {

inline QString qString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string utf8String(const QString& string) {
    const auto bytes = string.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace korvane
