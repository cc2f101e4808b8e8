#include "Desktop/Text/TextArea.h"

#include "Desktop/Text/AccessibleText.h"

#include <QAccessible>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <array>

namespace korvane {

namespace {

/// What the control does with keys that may be shortcuts of the window as well.
constexpr std::array editingKeys{
    QKeySequence::Copy,
    QKeySequence::Cut,
    QKeySequence::Paste,
    QKeySequence::Undo,
    QKeySequence::Redo,
    QKeySequence::SelectAll,
    QKeySequence::Backspace,
    QKeySequence::Delete,
    QKeySequence::DeleteStartOfWord,
    QKeySequence::DeleteEndOfWord,
    QKeySequence::DeleteEndOfLine,
    QKeySequence::MoveToNextChar,
    QKeySequence::MoveToPreviousChar,
    QKeySequence::MoveToNextWord,
    QKeySequence::MoveToPreviousWord,
    QKeySequence::MoveToNextLine,
    QKeySequence::MoveToPreviousLine,
    QKeySequence::MoveToStartOfLine,
    QKeySequence::MoveToEndOfLine,
    QKeySequence::MoveToStartOfDocument,
    QKeySequence::MoveToEndOfDocument,
    QKeySequence::SelectNextChar,
    QKeySequence::SelectPreviousChar,
    QKeySequence::SelectNextWord,
    QKeySequence::SelectPreviousWord,
    QKeySequence::SelectNextLine,
    QKeySequence::SelectPreviousLine,
    QKeySequence::SelectStartOfLine,
    QKeySequence::SelectEndOfLine,
    QKeySequence::SelectStartOfDocument,
    QKeySequence::SelectEndOfDocument,
};

/// Whether the control keeps a key press from the window's shortcuts.
bool keepsFromShortcuts(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool isText =
        modifiers == Qt::NoModifier && !event.text().isEmpty() && event.text().front().isPrint();
    return isText || std::ranges::any_of(editingKeys, [&](auto key) { return event.matches(key); });
}

} // namespace

TextArea::TextArea(QWidget* parent, int maxPieceLength)
    : QAbstractScrollArea(parent), m_layout(maxPieceLength) {
    setFrameStyle(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setAutoFillBackground(false);
    viewport()->setCursor(Qt::IBeamCursor);
    setStyle(TextAreaStyle{.font = font(), .text = palette().color(QPalette::Text)});
}

void TextArea::setAlignment(Qt::Alignment alignment) {
    auto style = m_layout.style();
    style.alignment = alignment;
    m_layout.setStyle(style);
}

void TextArea::setBreaksValuesAnywhere() {
    auto style = m_layout.style();
    style.breaksValuesAnywhere = true;
    m_layout.setStyle(style);
}

void TextArea::setPlaceholder(const QString& placeholder) {
    if (placeholder == m_placeholder)
        return;
    m_placeholder = placeholder;
    viewport()->update();
}

void TextArea::setBusy(bool isBusy) {
    if (isBusy == m_isBusy)
        return;
    m_isBusy = isBusy;
    QAccessible::State changed;
    changed.busy = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

QAccessibleInterface* TextArea::newAccessibleInterface() {
    return newTextInterface(this);
}

QSize TextArea::sizeHint() const {
    return {256, 192}; // Qt's for a scroll area with a text
}

/// Events of the mouse in the margins are treated as events in the text.
bool TextArea::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = static_cast<QMouseEvent&>(*event);
        QMouseEvent moved(mouse.type(), mouse.position() - viewport()->pos(), mouse.scenePosition(),
                          mouse.globalPosition(), mouse.button(), mouse.buttons(), mouse.modifiers(),
                          mouse.pointingDevice());
        const bool isHandled = viewportEvent(&moved);
        event->setAccepted(moved.isAccepted());
        return isHandled;
    }
    case QEvent::Wheel:
        wheelEvent(static_cast<QWheelEvent*>(event));
        return true;
    case QEvent::ShortcutOverride:
        if (keepsFromShortcuts(static_cast<QKeyEvent&>(*event)))
            event->accept();
        return true;
    default:
        return QAbstractScrollArea::event(event);
    }
}

void TextArea::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    restartBlinking();
    viewport()->update();
}

void TextArea::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    restartBlinking();
    viewport()->update();
}

void TextArea::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        viewport()->update();
}

} // namespace korvane
