#include "Desktop/Kit/LineEdit.h"

#include "Desktop/Kit/Strings.h"

#include <QEvent>

namespace korvane {

LineEdit::LineEdit(Theme::TextStyle style, Theme::Role placeholder)
    : m_style(style), m_placeholder(placeholder) {
    setFrame(false);
    setTextMargins(0, 0, 0, 0);
    applyTheme();
}

void LineEdit::display(std::string_view utf8) {
    const auto shown = qString(utf8);
    if (shown == text())
        return;
    selectAll();
    insert(shown); // unlike setText, this keeps the history
}

void LineEdit::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_applying)
        applyTheme();
}

void LineEdit::applyTheme() {
    m_applying = true;
    QPalette look; // names only what differs, so that the rest goes on following the window
    look.setColor(QPalette::Base, Qt::transparent);
    look.setColor(QPalette::PlaceholderText, Theme::color(m_placeholder));
    setPalette(look);
    setFont(Theme::font(m_style));
    m_applying = false;
}

} // namespace korvane
