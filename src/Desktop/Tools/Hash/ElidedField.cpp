#include "Desktop/Tools/Hash/ElidedField.h"

#include "Desktop/Access/ContextMenu.h"
#include "Desktop/Binding/Strings.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::TextStyle;

ElidedField::ElidedField(std::string_view name, std::string_view placeholder)
    : LineEdit(TextStyle::codeSmall, Role::secondary) {
    constexpr int innerMargin = 2; // added by Qt beside the text
    setReadOnly(true);
    setFocusPolicy(Qt::ClickFocus);
    setTextMargins(-innerMargin, 0, -innerMargin, 0);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setFixedHeight(Theme::lineHeight(TextStyle::codeSmall));
    setAccessibleName(qString(name));
    setPlaceholderText(qString(placeholder));
}

void ElidedField::display(std::string_view text) {
    const auto shown = qString(text);
    if (shown == this->text())
        return;
    setText(shown);
    setCursorPosition(0);
}

void ElidedField::copyText() const {
    const auto copied = hasSelectedText() ? selectedText() : text();
    if (!copied.isEmpty())
        QGuiApplication::clipboard()->setText(copied);
}

void ElidedField::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        copyText();
    else
        LineEdit::keyPressEvent(event);
}

void ElidedField::contextMenuEvent(QContextMenuEvent* event) {
    showContextMenu(*this, event->globalPos(),
                    readingCommands([this] { copyText(); }, [this] { selectAll(); }, !text().isEmpty()));
}

void ElidedField::mousePressEvent(QMouseEvent* event) {
    LineEdit::mousePressEvent(event);
    if (onPress)
        onPress();
}

void ElidedField::focusOutEvent(QFocusEvent* event) {
    LineEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
        return; // the focus will return
    deselect();
    setCursorPosition(0);
}

void ElidedField::paintEvent(QPaintEvent* event) {
    const QFontMetrics metrics(font());
    if (hasFocus() || metrics.horizontalAdvance(text()) <= width()) {
        LineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(Theme::color(Role::primary));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter,
                     metrics.elidedText(text(), Qt::ElideMiddle, width()));
}

} // namespace korvane
