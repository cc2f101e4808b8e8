#include "Desktop/Binding/Strings.h"

#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <QStringDecoder>

namespace korvane {

QString qString(std::string_view utf8) {
    if (isValidUTF8(utf8)) {
        QStringDecoder decode(QStringDecoder::Utf8,
                              QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
        return decode.decode(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
    }
    QString string;
    for (std::size_t offset = 0; offset < utf8.size();) {
        const auto [character, end] = decodeAt(utf8, offset);
        for (const auto unit : QChar::fromUcs4(character))
            string.append(unit);
        offset = end;
    }
    return string;
}

std::string utf8String(const QString& string) {
    if (!string.isValidUtf16())
        return utf8String(QString::fromStdU32String(string.toStdU32String()));
    const auto bytes = string.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace korvane
