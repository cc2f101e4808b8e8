#include "Desktop/Lists/RowParagraph.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/Theme.h"

#include <QPainter>
#include <QTextOption>

#include <algorithm>

namespace korvane {

namespace {

int unitsOf(std::string_view text, std::size_t bytes) {
    return static_cast<int>(qString(text.substr(0, bytes)).size());
}

} // namespace

RowParagraph::RowParagraph(std::string_view text, const QFont& font, double width, int lineHeight)
    : m_text(text), m_lineHeight(lineHeight), m_layout(qString(text), font) {
    QTextOption option;
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::WrapAnywhere);
    m_layout.setTextOption(option);
    m_layout.beginLayout();
    int top = 0;
    for (auto line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, top + (lineHeight - line.height()) / 2});
        top += lineHeight;
    }
    m_layout.endLayout();
}

int RowParagraph::height() const {
    return m_layout.lineCount() * m_lineHeight;
}

std::size_t RowParagraph::offsetAt(QPointF position) const {
    const auto number =
        std::clamp(static_cast<int>(position.y()) / m_lineHeight, 0, m_layout.lineCount() - 1);
    const auto unit = m_layout.lineAt(number).xToCursor(position.x());
    return static_cast<std::size_t>(QStringView(m_layout.text()).first(unit).toUtf8().size());
}

QRectF RowParagraph::caret(std::size_t offset) const {
    const auto unit = unitsOf(m_text, offset);
    const auto line = m_layout.lineForTextPosition(unit);
    return {line.cursorToX(unit), static_cast<double>(line.lineNumber() * m_lineHeight), 1,
            static_cast<double>(m_lineHeight)};
}

void RowParagraph::draw(QPainter& painter, QPointF corner, const QColor& color,
                        const RowTextRange& selected) const {
    QTextLayout::FormatRange marked;
    marked.start = unitsOf(m_text, selected.start);
    marked.length = unitsOf(m_text, selected.end) - marked.start;
    marked.format.setBackground(Theme::color(Theme::Role::selection));
    painter.setPen(color);
    m_layout.draw(&painter, corner, marked.length > 0 ? QList{marked} : QList<QTextLayout::FormatRange>());
}

} // namespace korvane
