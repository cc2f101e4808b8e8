#include "Desktop/Tools/Markdown/MarkdownPainting.h"

#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextZoom.h"
#include "Desktop/Tools/Markdown/MarkdownFormat.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QString>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int proseMarkerGap = 8;
constexpr int proseQuoteBar = 3;
constexpr int proseChipHeight = 18;

using Kind = MarkdownRow::Kind;

/// Fills `area`, a part of a rounded rectangle that continues above or below where it is not rounded.
void fillRounded(QPainter& painter, const QRectF& area, bool roundsTop, bool roundsBottom) {
    const auto radius = Theme::px(Size::radiusMedium);
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    painter.drawRoundedRect(area.adjusted(0, roundsTop ? 0 : -radius, 0, roundsBottom ? 0 : radius), radius,
                            radius);
    painter.restore();
}

/// Paints a list marker beside the first line of `block`, with its right end at `right`.
void paintMarker(QPainter& painter, const QTextBlock& block, QPointF origin, const QString& marker,
                 qreal right) {
    const auto line = block.layout()->lineAt(0);
    const auto font = TextZoom::font(Theme::TextStyle::document);
    const auto baseline = origin.y() + line.y() + line.ascent();
    painter.setFont(font);
    painter.setPen(Theme::color(Role::secondary));
    painter.drawText(QPointF(right - QFontMetricsF(font).horizontalAdvance(marker), baseline), marker);
}

/// Paints the background of inline code behind the characters of `block` from `start` to `end`, on each line.
void paintChip(QPainter& painter, const QTextBlock& block, QPointF origin, int start, int end) {
    const auto padding = Theme::px(proseChipPadding);
    const auto height = TextZoom::px(proseChipHeight);
    const auto& layout = *block.layout();
    for (int i = 0; i < layout.lineCount(); ++i) {
        const auto line = layout.lineAt(i);
        const auto from = std::max(start, line.textStart());
        const auto to = std::min(end, line.textStart() + line.textLength());
        if (from >= to)
            continue;
        // The space after the last character is already part of it.
        const auto left = line.cursorToX(from) - (from == start ? padding : 0);
        const auto right = line.cursorToX(to);
        const auto pitch = block.blockFormat().lineHeight();
        const auto top = i * pitch + (pitch - height) / 2;
        painter.drawRoundedRect(QRectF(origin + QPointF(left, top), QSizeF(right - left, height)),
                                Theme::px(Size::radiusBadge), Theme::px(Size::radiusBadge));
    }
}

void paintChips(QPainter& painter, const QTextBlock& block, QPointF origin) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::color(Role::controlFill));
    int start = -1;
    int end = -1;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const auto fragment = it.fragment();
        if (!isInlineCode(fragment.charFormat()))
            continue;
        const auto from = fragment.position() - block.position();
        if (from != end) {
            paintChip(painter, block, origin, start, end);
            start = from;
        }
        end = from + fragment.length();
    }
    paintChip(painter, block, origin, start, end);
}

/// The area of a row across the view: its lines, and its part of a box.
QRectF band(const QTextBlock& block, const MarkdownRow& row, int width) {
    const auto top = block.document()->documentLayout()->blockBoundingRect(block).top();
    const auto format = block.blockFormat();
    const auto padding = row.beginsBlock ? MarkdownFormat::boxPadding(row.kind) : 0;
    const auto margin = block.document()->documentMargin();
    return {QPointF(margin, top - padding),
            QPointF(width - margin,
                    top + block.layout()->lineCount() * format.lineHeight() + format.bottomMargin())};
}

} // namespace

void paintMarkdownRow(QPainter& painter, const QTextBlock& block, const MarkdownRow& row, int width) {
    const auto origin = block.document()->documentLayout()->blockBoundingRect(block).topLeft();
    const auto area = band(block, row, width);
    const auto textLeft = area.left() + block.blockFormat().leftMargin();
    painter.setPen(Qt::NoPen);
    switch (row.kind) {
    case Kind::language:
    case Kind::code:
        painter.setBrush(Theme::color(Role::controlFill));
        fillRounded(painter, area, row.beginsBlock, row.endsBlock);
        return;
    case Kind::quote:
        painter.fillRect(QRectF(area.left(), area.top(), Theme::px(proseQuoteBar), area.height()),
                         Theme::color(Role::outlineStrong));
        break;
    case Kind::rule:
        painter.fillRect(QRectF(area.left(), area.top(), area.width(), 1), Theme::color(Role::divider));
        return;
    case Kind::unorderedItem:
    case Kind::orderedItem:
        if (!row.continuesText) {
            const auto marker =
                row.kind == Kind::orderedItem ? QString::number(row.number) + u'.' : QStringLiteral("•");
            paintMarker(painter, block, origin, marker, textLeft - Theme::px(proseMarkerGap));
        }
        break;
    case Kind::header:
    case Kind::paragraph:
        break;
    }
    paintChips(painter, block, origin);
}

} // namespace korvane
