/// Conversions between the program's UTF-8 texts and Qt's strings.
#pragma once

#include <QString>
#include <QStringDecoder>

#include <string>
#include <string_view>

namespace korvane {

inline QString qString(std::string_view utf8) {
    // The default conversion drops a byte-order mark at the start, which is part of the text.
    QStringDecoder decode(QStringDecoder::Utf8,
                          QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    return decode.decode(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

inline std::string utf8String(const QString& string) {
    const auto bytes = string.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace korvane
