#include "Desktop/Text/TextArea.h"

#include "Desktop/Access/ContextMenu.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Text/AccessibleText.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

/// The document must have its layout before the control uses it.
QTextDocument* makeDocument(QObject* owner) {
    auto* document = new QTextDocument(owner);
    document->setDocumentLayout(new TextLayout(*document));
    document->setDocumentMargin(0);
    return document;
}

bool matchesAny(const QKeyEvent& event, std::initializer_list<QKeySequence::StandardKey> keys) {
    return std::ranges::any_of(keys, [&](auto key) { return event.matches(key); });
}

bool goesBack(const QKeyEvent& event) {
    return matchesAny(event, {QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar,
                              QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord,
                              QKeySequence::Backspace, QKeySequence::DeleteStartOfWord}) ||
           event.key() == Qt::Key_Backspace;
}

bool goesForward(const QKeyEvent& event) {
    return matchesAny(event,
                      {QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar,
                       QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord, QKeySequence::Delete,
                       QKeySequence::DeleteEndOfWord, QKeySequence::DeleteEndOfLine});
}

/// Whether `block` begins at `position` and continues a line.
bool isSeamBefore(const QTextBlock& block, int position) {
    return block.isValid() && block.position() == position && continuesLine(block);
}

bool isMouseEvent(const QEvent& event) {
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseMove ||
           event.type() == QEvent::MouseButtonRelease || event.type() == QEvent::MouseButtonDblClick;
}

QMouseEvent copyAt(const QMouseEvent& event, QPointF position) {
    return {event.type(),    position,          event.scenePosition(), event.globalPosition(), event.button(),
            event.buttons(), event.modifiers(), event.source(),        event.pointingDevice()};
}

} // namespace

TextArea::TextArea(QWidget* parent, int maxPieceLength)
    : QPlainTextEdit(parent),
      m_maxPieceLength(maxPieceLength),
      m_document(*makeDocument(this)),
      m_layout(static_cast<TextLayout&>(*m_document.documentLayout())),
      m_mirror(m_document) {
    setDocument(&m_document);
    setFrameStyle(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    setTabChangesFocus(true); // the program must be usable by keyboard alone
    watchDocument();
    setStyle(TextAreaStyle{.font = font(), .text = palette().color(QPalette::Text)});
}

void TextArea::setReadOnly(bool readOnly) {
    QPlainTextEdit::setReadOnly(readOnly);
    if (readOnly)
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setUndoRedoEnabled(!readOnly);
}

void TextArea::setPlaceholder(const QString& placeholder) {
    if (placeholder != placeholderText())
        setPlaceholderText(placeholder);
}

void TextArea::setText(std::string_view utf8) {
    if (utf8 == (m_invalidUTF8 ? *m_invalidUTF8 : m_mirror.text()))
        return;
    m_busy = true;
    if (isReadOnly())
        m_document.clear(); // quicker than an edit
    QTextCursor cursor(&m_document);
    cursor.select(QTextCursor::Document);
    insertExactly(cursor, qString(utf8), m_maxPieceLength);
    if (isReadOnly())
        cursor.setPosition(0);
    setTextCursor(cursor);
    ensureCursorVisible();
    m_invalidUTF8.reset();
    if (m_mirror.text() != utf8)
        m_invalidUTF8.emplace(utf8);
    m_edited = false;
    m_busy = false;
}

std::string TextArea::text() const {
    return m_invalidUTF8 ? *m_invalidUTF8 : m_mirror.text();
}

std::string TextArea::selectedText() const {
    const auto cursor = textCursor();
    return exactText(m_document, cursor.selectionStart(), cursor.selectionEnd()).toStdString();
}

void TextArea::watchDocument() {
    connect(&m_document, &QTextDocument::contentsChange, this, [this](int from, int removed, int added) {
        m_edited = m_mirror.follow(from, removed, added) || m_edited;
        m_editStart = from;
        m_editEnd = from + added;
    });
    connect(this, &QPlainTextEdit::textChanged, this, [this] { followEdit(); });
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& rect) { repaintRows(rect); });
}

/// Handles an edit once it is complete.
void TextArea::followEdit() {
    fitGutter();
    if (m_busy || !m_edited)
        return;
    m_busy = true;
    repairSeams(m_document, m_editStart, m_editEnd, m_maxPieceLength);
    m_busy = false;
    m_edited = false;
    m_invalidUTF8.reset();
    if (onEdit)
        onEdit(m_mirror.text());
}

QMimeData* TextArea::createMimeDataFromSelection() const {
    const auto cursor = textCursor();
    return newMimeData(exactText(m_document, cursor.selectionStart(), cursor.selectionEnd()));
}

QMimeData* TextArea::newMimeData(const QString& text) const {
    auto* content = new QMimeData;
    content->setText(text);
    return content;
}

void TextArea::copyText() {
    const bool isWhole = isReadOnly() && !textCursor().hasSelection();
    if (!isWhole)
        copy();
    else if (!m_document.isEmpty())
        QGuiApplication::clipboard()->setMimeData(newMimeData(qString(text())));
}

bool TextArea::canInsertFromMimeData(const QMimeData* source) const {
    return !isReadOnly() && source->hasFormat(QStringLiteral("text/plain"));
}

void TextArea::insertFromMimeData(const QMimeData* source) {
    if (!canInsertFromMimeData(source))
        return;
    if (const auto text = source->text(); !text.isEmpty()) // pasting nothing does not delete the selection
        insert(text);
}

void TextArea::replace(int start, int end, const QString& text) {
    auto cursor = textCursor();
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    insert(text);
}

QAccessibleInterface* TextArea::newAccessibleInterface() {
    return newTextInterface(this);
}

void TextArea::insert(const QString& text) {
    auto cursor = textCursor();
    insertExactly(cursor, text, m_maxPieceLength);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void TextArea::keyPressEvent(QKeyEvent* event) {
    if (isReadOnly() && event->matches(QKeySequence::Copy)) {
        copyText();
        return;
    }
    stepOverSeam(*event);
    // The base class would first reset the formats of a selection, including its line breaks.
    if (!isReadOnly() &&
        matchesAny(*event, {QKeySequence::InsertParagraphSeparator, QKeySequence::InsertLineSeparator})) {
        insert(QStringLiteral("\n"));
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void TextArea::contextMenuEvent(QContextMenuEvent* event) {
    if (!isReadOnly())
        return QPlainTextEdit::contextMenuEvent(event);
    showContextMenu(*this, event->globalPos(),
                    readingCommands([this] { copyText(); }, [this] { selectAll(); }, !m_document.isEmpty()));
}

/// Moves the caret across a seam next to it, so that the key acts on the character beyond. A selection of
/// only a seam is cleared.
void TextArea::stepOverSeam(const QKeyEvent& event) {
    auto cursor = textCursor();
    m_layout.blockBoundingRect(cursor.block()); // up and down keys need the layout, even outside the view
    if (cursor.selectionEnd() - cursor.selectionStart() == 1 &&
        isSeamBefore(m_document.findBlock(cursor.selectionEnd()), cursor.selectionEnd()))
        cursor.clearSelection();
    const auto block = cursor.block();
    const int position = cursor.position();
    int step = 0;
    if (isSeamBefore(block, position) && goesBack(event))
        step = -1;
    else if (isSeamBefore(block.next(), position + 1) && goesForward(event))
        step = 1;
    cursor.setPosition(position + step,
                       cursor.hasSelection() ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    if (cursor != textCursor() || cursor.anchor() != textCursor().anchor())
        setTextCursor(cursor);
}

void TextArea::inputMethodEvent(QInputMethodEvent* event) {
    const auto commit = event->commitString();
    if (isReadOnly() || isInsertedExactly(commit)) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent rest(event->preeditString(), event->attributes());
    rest.setCommitString({}, event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&rest);
    insert(commit);
    event->accept();
}

/// Mouse events in the margins are treated as events in the text.
bool TextArea::event(QEvent* event) {
    if (isMouseEvent(*event)) {
        auto& mouse = static_cast<QMouseEvent&>(*event);
        auto moved = copyAt(mouse, mouse.position() - viewport()->pos());
        const bool handled = viewportEvent(&moved);
        mouse.setAccepted(moved.isAccepted());
        return handled;
    }
    if (event->type() == QEvent::Wheel) {
        wheelEvent(static_cast<QWheelEvent*>(event));
        return true;
    }
    return QPlainTextEdit::event(event);
}

bool TextArea::viewportEvent(QEvent* event) {
    if (isMouseEvent(*event)) {
        auto& mouse = static_cast<QMouseEvent&>(*event);
        auto copy = copyAt(mouse, snapped(mouse.position()));
        const bool handled = QPlainTextEdit::viewportEvent(&copy);
        mouse.setAccepted(copy.isAccepted());
        return handled;
    }
    if (event->type() == QEvent::DragMove || event->type() == QEvent::Drop) {
        auto& drop = static_cast<QDropEvent&>(*event);
        const auto place = snapped(drop.position());
        const auto forwardDrop = [&](auto copy) {
            copy.setDropAction(drop.dropAction());
            const bool handled = QPlainTextEdit::viewportEvent(&copy);
            drop.setDropAction(copy.dropAction());
            drop.setAccepted(copy.isAccepted());
            return handled;
        };
        if (event->type() == QEvent::DragMove)
            return forwardDrop(QDragMoveEvent(place.toPoint(), drop.possibleActions(), drop.mimeData(),
                                              drop.buttons(), drop.modifiers()));
        return forwardDrop(
            QDropEvent(place, drop.possibleActions(), drop.mimeData(), drop.buttons(), drop.modifiers()));
    }
    return QPlainTextEdit::viewportEvent(event);
}

/// A position in the same row that is certainly inside the line's rectangle, which is lower than the row.
QPointF TextArea::snapped(QPointF position) const {
    const qreal height = m_style.lineHeight;
    return {position.x(), (std::floor(position.y() / height) + 1) * height - 2};
}

void TextArea::wheelEvent(QWheelEvent* event) {
    QAbstractScrollArea::wheelEvent(event); // skips the base class, which would zoom read-only text
}

} // namespace korvane
