#include "Desktop/Tools/Regex/MatchRow.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Lists/RowText.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int matchCardRight = 4;
constexpr int matchIndent = 16;

/// How much of a long text a tool tip or a name shows, in bytes.
constexpr std::size_t toolTipLength = 2000;
constexpr std::size_t nameLength = 200;

/// The start of `text`, with an ellipsis if that is not all of it.
QString startOf(std::string_view text, std::size_t length) {
    auto start = qString(text.substr(0, length));
    if (text.size() <= length)
        return start;
    while (start.endsWith(QChar::ReplacementCharacter)) // where a character was cut
        start.chop(1);
    return start + QChar(0x2026);
}

} // namespace

MatchRow::MatchRow(std::function<void(std::size_t)> copy)
    : m_copy(new QuietButton({}, {}, {.dropsLabel = true})) {
    m_copy->setFocusPolicy(Qt::NoFocus); // there may be thousands; the list copies by keyboard
    fill(this, Qt::Horizontal, {.spacing = 0, .padding = {0, 0, matchCardRight, 0}}, {stretch(), m_copy});
    QObject::connect(m_copy, &QAbstractButton::clicked, this,
                     [this, copy = std::move(copy)] { copy(m_number); });
}

std::string MatchRow::name(const RegexMatchLine& line) {
    return line.name() + ": " + utf8String(startOf(line.text, nameLength));
}

void MatchRow::display(std::size_t number, const RegexMatchLine& line, int headingWidth) {
    m_number = number;
    m_line = line;
    m_headingWidth = headingWidth;
    m_copy->setName(line.name());
    korvane::setAccessibleName(*this, qString(name(line)));
    update();
}

void MatchRow::setCurrent(bool isCurrent) {
    if (isCurrent == m_isCurrent)
        return;
    m_isCurrent = isCurrent;
    update();
}

void MatchRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_isCurrent)
        paintSurface(painter, rect(), Theme::px(Size::radiusSmall), Theme::color(Role::controlHover));
    const bool isGroup = m_line.group.has_value();
    const auto left = Theme::px(matchCardLeft);
    const auto indent = isGroup ? Theme::px(matchIndent) : 0;
    painter.setFont(Theme::font(isGroup ? TextStyle::subheadline : TextStyle::subheadlineStrong));
    const auto primary = Theme::color(Role::primary);
    const auto tone = [&](PaletteColor color) { return m_isCurrent ? primary : Theme::textTone(color); };
    painter.setPen(isGroup ? tone(PaletteColor::orange) : primary);
    painter.drawText(QRect(left + indent, 0, m_headingWidth - indent, height()),
                     Qt::AlignVCenter | Qt::AlignLeft, qString(m_line.heading()));
    const auto gap = Theme::px(Size::gapControl);
    const auto textLeft = left + m_headingWidth + gap;
    const QRectF room(textLeft, 0, m_copy->x() - gap - textLeft, height());
    m_isElided = drawElidedRowText(painter, room, m_line.text,
                                   Theme::font(isGroup ? TextStyle::codeSmall : TextStyle::codeSmallMedium),
                                   isGroup ? primary : tone(PaletteColor::green));
}

bool MatchRow::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_isElided) {
        showRest(dynamic_cast<QHelpEvent*>(event)->globalPos());
        return true;
    }
    return QWidget::event(event);
}

void MatchRow::showRest(const QPoint& position) {
    const auto text = startOf(m_line.text, toolTipLength).toHtmlEscaped();
    QToolTip::showText(position, QStringLiteral("<p style='white-space: pre-wrap'>%1</p>").arg(text), this);
}

} // namespace korvane
