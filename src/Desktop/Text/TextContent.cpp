#include "Desktop/Text/TextContent.h"

#include "Desktop/Binding/Strings.h"

#include <utility>

namespace korvane {

namespace {

const auto plainFormat = QStringLiteral("text/plain");
const auto utf8Format = QStringLiteral("text/plain;charset=utf-8");

} // namespace

TextContent::TextContent(Rope text) : m_text(std::move(text)) {}

QStringList TextContent::formats() const {
    return QStringList{plainFormat, utf8Format} + QMimeData::formats();
}

bool TextContent::hasFormat(const QString& mimeType) const {
    return formats().contains(mimeType);
}

QVariant TextContent::retrieveData(const QString& mimeType, QMetaType preferredType) const {
    if (mimeType != plainFormat && mimeType != utf8Format)
        return QMimeData::retrieveData(mimeType, preferredType);
    // What is not UTF-8 leaves the program as it is shown.
    const auto text = m_text.string();
    if (preferredType.id() != QMetaType::QByteArray)
        return qString(text);
    return m_text.isValidUTF8() ? QByteArray(text.data(), static_cast<qsizetype>(text.size()))
                                : qString(text).toUtf8();
}

Rope textOf(const QMimeData& content) {
    if (const auto* own = qobject_cast<const TextContent*>(&content))
        return own->rope();
    const bool isOfOtherProgram = content.metaObject() != &QMimeData::staticMetaObject;
    if (isOfOtherProgram && content.hasFormat(utf8Format)) {
        const auto bytes = content.data(utf8Format);
        if (!bytes.isEmpty())
            return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }
    return utf8String(content.text());
}

} // namespace korvane
