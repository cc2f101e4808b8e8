#include "Desktop/Text/LineEdit.h"

#include "Desktop/Binding/Strings.h"
#include "Utilities/Text/Text.h"

#include <QEvent>
#include <QValidator>

namespace korvane {

LineEdit::LineEdit(Theme::TextStyle style, Theme::Role placeholder)
    : m_style(style), m_placeholder(placeholder) {
    setFrame(false);
    setTextMargins(0, 0, 0, 0);
    applyTheme();
    connect(this, &QLineEdit::textChanged, this, [this] { followEdit(); });
}

void LineEdit::display(std::string_view utf8) {
    const auto shown = qString(utf8);
    if (shown == text())
        return;
    m_acceptedText = utf8;
    replaceAll(shown);
}

/// Unlike `setText`, this keeps the history.
void LineEdit::replaceAll(const QString& text) {
    m_displaying = true;
    selectAll();
    insert(text);
    m_displaying = false;
}

/// Assistive technology sets texts without validation and without `textEdited`.
void LineEdit::followEdit() {
    if (m_displaying)
        return;
    if (!isReadOnly())
        keepOnOneLine();
    if (!onEdit)
        return;
    auto text = this->text();
    auto position = cursorPosition();
    if (validator() && validator()->validate(text, position) == QValidator::Invalid)
        display(m_acceptedText);
    else
        onEdit(m_acceptedText = utf8String(text));
}

/// A pasted or dropped text ends at the caret, so the line breaks before the caret are its last ones.
void LineEdit::keepOnOneLine() {
    const auto beforeCaret = qString(onOneLine(utf8String(text().left(cursorPosition()))));
    const auto line = beforeCaret + qString(onOneLine(utf8String(text().mid(cursorPosition()))));
    if (line == text())
        return;
    m_displaying = true;
    undo(); // otherwise undo would later restore the line breaks
    replaceAll(line);
    setCursorPosition(static_cast<int>(beforeCaret.size()));
}

void LineEdit::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_applying)
        applyTheme();
}

void LineEdit::applyTheme() {
    m_applying = true;
    QPalette look; // sets only what differs, so that the rest still follows the window
    look.setColor(QPalette::Base, Qt::transparent);
    look.setColor(QPalette::PlaceholderText, Theme::color(m_placeholder));
    setPalette(look);
    setFont(Theme::font(m_style));
    m_applying = false;
}

} // namespace korvane
