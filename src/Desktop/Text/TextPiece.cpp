#include "Desktop/Text/TextPiece.h"

#include "Desktop/Binding/Strings.h"
#include "Utilities/Text/UTF8.h"

#include <QFontMetricsF>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace korvane {

namespace {

/// Parts of a value are not words, so a line without a space breaks at any character if `style` says so.
QTextOption::WrapMode wrapMode(const QString& text, const RowStyle& style) {
    const bool isValue = style.breaksValuesAnywhere &&
                         std::ranges::none_of(text, [](QChar character) { return character.isSpace(); });
    return isValue ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere;
}

} // namespace

TextPiece::TextPiece(std::string_view utf8, std::size_t breakSize, bool endsLine)
    : m_size(utf8.size()), m_breakSize(breakSize), m_endsLine(endsLine) {
    if (asciiPrefixLength(utf8) == utf8.size()) {
        m_text = QString::fromLatin1(utf8.data(), static_cast<qsizetype>(utf8.size()));
        return;
    }
    m_text.reserve(static_cast<qsizetype>(utf8.size()));
    for (std::size_t offset = 0; offset < utf8.size();) {
        const auto [character, end] = decodeAt(utf8, offset);
        for (const auto unit : QChar::fromUcs4(character)) {
            m_text.append(unit);
            m_bytes.push_back(static_cast<int>(offset));
        }
        offset = end;
    }
    m_bytes.push_back(static_cast<int>(utf8.size()));
}

TextPiece::TextPiece(std::string_view utf8, std::size_t breakSize, bool endsLine, const Preedit& preedit,
                     std::size_t place)
    : TextPiece(utf8, breakSize, endsLine) {
    if (m_bytes.empty()) {
        m_bytes.resize(m_size + 1);
        std::iota(m_bytes.begin(), m_bytes.end(), 0);
    }
    const int unit = unitAt(place);
    m_text.insert(unit, preedit.text);
    m_bytes.insert(m_bytes.begin() + unit, static_cast<std::size_t>(preedit.text.size()),
                   static_cast<int>(place));
    m_formats = preedit.formats;
    for (auto& format : m_formats)
        format.start += unit;
}

int TextPiece::unitAt(std::size_t byte) const {
    const int position = static_cast<int>(std::min(byte, m_size));
    if (m_bytes.empty())
        return position;
    return static_cast<int>(std::ranges::lower_bound(m_bytes, position) - m_bytes.begin());
}

std::size_t TextPiece::byteAt(int unit) const {
    const auto index = static_cast<std::size_t>(std::clamp(unit, 0, length()));
    return m_bytes.empty() ? index : static_cast<std::size_t>(m_bytes[index]);
}

void TextPiece::layOut(const RowStyle& style) {
    m_layout.setText(m_text);
    m_layout.setFont(style.font);
    m_layout.setFormats(m_formats);
    m_layout.setCacheEnabled(true);
    layRows(m_layout, style);
}

int TextPiece::rowWith(int unit) const {
    return m_layout.lineForTextPosition(unit).lineNumber();
}

qreal baselineOf(const RowStyle& style) {
    const QFontMetricsF metrics(style.font);
    return std::round((style.lineHeight + metrics.ascent() - metrics.descent()) / 2);
}

int layRows(QTextLayout& layout, const RowStyle& style) {
    QTextOption option(style.alignment);
    option.setWrapMode(wrapMode(layout.text(), style));
    layout.setTextOption(option);
    int rows = 0;
    layout.beginLayout();
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(style.width);
        line.setPosition({style.left, static_cast<qreal>(rows++) * style.lineHeight});
    }
    layout.endLayout();
    return rows;
}

QPointF drawingOffset(const QTextLine& line, const RowStyle& style) {
    const qreal row = line.lineNumber() * style.lineHeight;
    return {0, row + baselineOf(style) - line.y() - line.ascent()};
}

} // namespace korvane
