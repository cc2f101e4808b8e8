/// The editing of a text area: keys, clipboard, input methods, history.

#include "Desktop/Text/TextArea.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Text/TextContent.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// In bytes: assistive technology gets no copy of a longer text that was inserted or removed, only the news
/// that the text has changed.
constexpr std::size_t maxReportedSize = 65'536;

/// Reports an edit to assistive technology.
void report(QWidget& area, const Rope& before, const TextChange& change, const Rope& after) {
    if (!QAccessible::isActive())
        return;
    if (std::max(change.removed, change.inserted) > maxReportedSize) {
        QAccessibleEvent changed(&area, QAccessible::VisibleDataChanged);
        QAccessible::updateAccessibility(&changed);
        return;
    }
    const auto place = static_cast<int>(before.utf16Offset(change.offset));
    const auto removed = qString(before.string(change.offset, change.offset + change.removed));
    const auto inserted = qString(after.string(change.offset, change.offset + change.inserted));
    if (!removed.isEmpty() && !inserted.isEmpty()) {
        QAccessibleTextUpdateEvent event(&area, place, removed, inserted);
        QAccessible::updateAccessibility(&event);
    } else if (!removed.isEmpty()) {
        QAccessibleTextRemoveEvent event(&area, place, removed);
        QAccessible::updateAccessibility(&event);
    } else if (!inserted.isEmpty()) {
        QAccessibleTextInsertEvent event(&area, place, inserted);
        QAccessible::updateAccessibility(&event);
    }
}

/// Whether a key press types its text, and is not a command.
bool types(const QKeyEvent& event) {
    const auto text = event.text();
    if (text.isEmpty())
        return false;
    const auto first = text.front();
    if (first.category() == QChar::Other_Format) // also typed with Control and Shift
        return true;
    const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (modifiers == Qt::ControlModifier)
        return false;
    return first.isPrint() || first.category() == QChar::Other_PrivateUse || first.isSurrogate() ||
           first == u'\t';
}

} // namespace

void TextArea::setReadOnly(bool readOnly) {
    m_isReadOnly = readOnly;
    setAttribute(Qt::WA_InputMethodEnabled, !readOnly);
    if (readOnly)
        m_history.clear();
}

void TextArea::setText(const Rope& text) {
    if (text == this->text())
        return;
    if (m_isReadOnly) {
        m_top = 0;
        showVersion({text, {}});
    } else {
        change(TextEditKind::other, 0, this->text().size(), text);
    }
}

void TextArea::replace(std::size_t from, std::size_t to, const Rope& text) {
    edit(TextEditKind::other, from, to, text);
}

/// Replaces the range [from, to) as an edit of the user.
void TextArea::edit(TextEditKind kind, std::size_t from, std::size_t to, const Rope& text) {
    if (this->text().substr(from, to - from) == text) // typed over itself
        return moveCaret(to, false);
    change(kind, from, to, text);
    tellOfEdit();
}

void TextArea::tellOfEdit() {
    if (onEdit)
        onEdit(text());
}

/// Replaces the range [from, to), and places the caret after `text`.
void TextArea::change(TextEditKind kind, std::size_t from, std::size_t to, const Rope& text) {
    const TextVersion before{this->text(), m_selection};
    const TextChange extent{.offset = from, .removed = to - from, .inserted = text.size()};
    const auto after = before.text.replacing(from, to, text);
    m_layout.setText(after, extent);
    for (auto& marks : m_marks)
        marks.apply(extent);
    const auto caret = after.summaryBefore(from + text.size()).bytes;
    m_selection = {caret, caret};
    if (m_top > from)
        m_top = m_top < to ? from : m_top - extent.removed + extent.inserted;
    if (!m_isReadOnly)
        m_history.record(kind, before, {after, m_selection}, extent);
    report(*this, before.text, extent, after);
    afterChange();
}

/// Replaces the text as a whole, outside of the history.
void TextArea::showVersion(const TextVersion& version) {
    const auto before = text();
    m_layout.setText(version.text);
    m_marks = {};
    m_selection = version.selection;
    m_top = std::min(m_top, text().size());
    report(*this, before, {.removed = before.size(), .inserted = text().size()}, text());
    afterChange();
}

/// Shows a version from the history.
void TextArea::restore(const std::optional<TextVersion>& version) {
    if (!version)
        return;
    showVersion(*version);
    tellOfEdit();
}

void TextArea::afterChange() {
    m_goalX.reset();
    fitGutter();
    updateScrollBar();
    if (!m_isReadOnly)
        reveal(m_selection.caret);
    restartBlinking();
    updateAll();
    updateMicroFocus();
}

void TextArea::undo() {
    if (!m_isReadOnly)
        restore(m_history.undo());
}

void TextArea::redo() {
    if (!m_isReadOnly)
        restore(m_history.redo());
}

Rope TextArea::selectedText() const {
    return text().substr(m_selection.from(), m_selection.to() - m_selection.from());
}

QMimeData* TextArea::newMimeData(const Rope& text) const {
    return new TextContent(text);
}

void TextArea::copy() {
    if (!m_selection.isEmpty())
        QGuiApplication::clipboard()->setMimeData(newMimeData(selectedText()));
}

void TextArea::copyText() {
    const bool isWhole = m_isReadOnly && m_selection.isEmpty();
    if (!isWhole)
        copy();
    else if (!text().empty())
        QGuiApplication::clipboard()->setMimeData(newMimeData(text()));
}

void TextArea::cut() {
    if (m_isReadOnly || m_selection.isEmpty())
        return;
    copy();
    insert(TextEditKind::other, {});
}

void TextArea::paste() {
    insertFrom(QGuiApplication::clipboard()->mimeData());
}

bool TextArea::accepts(const QMimeData* content) const {
    return !m_isReadOnly && content && content->hasFormat(QStringLiteral("text/plain"));
}

void TextArea::insertFrom(const QMimeData* content) {
    if (!accepts(content))
        return;
    if (const auto text = textOf(*content); !text.empty()) // pasting nothing does not delete the selection
        insert(TextEditKind::other, text);
}

/// Replaces the selection.
void TextArea::insert(TextEditKind kind, const Rope& text) {
    edit(kind, m_selection.from(), m_selection.to(), text);
}

/// Removes the selection, or what is between the caret and `offset`.
void TextArea::removeTo(TextEditKind kind, std::size_t offset) {
    if (!m_selection.isEmpty())
        insert(TextEditKind::other, {});
    else
        edit(kind, std::min(offset, m_selection.caret), std::max(offset, m_selection.caret), {});
}

/// Inserts what a key types. The halves of a surrogate pair may come one after the other.
void TextArea::typeText(const QString& text) {
    auto typed = std::exchange(m_highSurrogate, {}) + text;
    if (typed.back().isHighSurrogate()) {
        m_highSurrogate = typed.back();
        typed.chop(1);
    }
    if (!typed.isEmpty())
        insert(TextEditKind::typing, utf8String(typed));
}

/// Handles a key press that edits; returns whether it was one.
bool TextArea::editByKey(const QKeyEvent& event) {
    if (m_isReadOnly)
        return false;
    const auto caret = m_selection.caret;
    const auto withoutShift = event.modifiers() & ~(Qt::ShiftModifier | Qt::GroupSwitchModifier);
    if ((event.key() == Qt::Key_Backspace && !withoutShift) || event.matches(QKeySequence::Backspace)) {
        // One code point, so that a mark can be corrected; a line break as a whole.
        const auto line = m_layout.lineAt(caret);
        const auto before = caret == 0            ? 0
                            : caret == line.start ? m_layout.lineAt(caret - 1).end
                                                  : text().summaryBefore(caret - 1).bytes;
        removeTo(TextEditKind::deletingBackward, before);
    } else if (event.matches(QKeySequence::Delete)) {
        removeTo(TextEditKind::deletingForward, besideCharacter(caret, true));
    } else if (event.matches(QKeySequence::DeleteStartOfWord)) {
        removeTo(TextEditKind::deletingBackward, besideWord(caret, false));
    } else if (event.matches(QKeySequence::DeleteEndOfWord)) {
        removeTo(TextEditKind::deletingForward, besideWord(caret, true));
    } else if (event.matches(QKeySequence::DeleteEndOfLine)) {
        const auto line = m_layout.lineAt(caret);
        removeTo(TextEditKind::deletingForward, caret == line.end ? line.next : line.end);
    } else if (event.matches(QKeySequence::InsertParagraphSeparator) ||
               event.matches(QKeySequence::InsertLineSeparator)) {
        insert(TextEditKind::typing, "\n");
    } else if (event.matches(QKeySequence::Undo)) {
        undo();
    } else if (event.matches(QKeySequence::Redo)) {
        redo();
    } else if (event.matches(QKeySequence::Cut)) {
        cut();
    } else if (event.matches(QKeySequence::Paste)) {
        paste();
    } else if (types(event)) {
        typeText(event.text());
    } else {
        return false;
    }
    return true;
}

void TextArea::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        copyText();
    else if (event->matches(QKeySequence::SelectAll))
        selectAll();
    else if (!moveByKey(*event) && !editByKey(*event))
        return event->ignore();
    event->accept();
}

void TextArea::inputMethodEvent(QInputMethodEvent* event) {
    if (m_isReadOnly)
        return event->ignore();
    const auto shown = m_layout.preedit() ? m_layout.preedit()->text : QString();
    const bool inserts = !event->commitString().isEmpty() || event->replacementLength() > 0;
    if ((inserts || event->preeditString() != shown) && !m_selection.isEmpty())
        insert(TextEditKind::other, {});
    m_layout.setPreedit(std::nullopt, m_selection.caret);
    if (inserts) {
        const auto caret = static_cast<qsizetype>(text().utf16Offset(m_selection.caret));
        const auto offsetOf = [&](qsizetype unit) {
            return text().byteOffset(static_cast<std::size_t>(std::max<qsizetype>(unit, 0)));
        };
        const auto start = caret + event->replacementStart();
        edit(TextEditKind::typing, offsetOf(start), offsetOf(start + event->replacementLength()),
             utf8String(event->commitString()));
    }
    updatePreedit(*event);
    event->accept();
}

/// Shows the text that the input method has not committed.
void TextArea::updatePreedit(const QInputMethodEvent& event) {
    Preedit preedit{.text = event.preeditString(), .caret = static_cast<int>(event.preeditString().size())};
    for (const auto& attribute : event.attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor)
            preedit.caret = attribute.length > 0 ? attribute.start : -1;
        else if (attribute.type == QInputMethodEvent::TextFormat)
            preedit.formats.append(
                {attribute.start, attribute.length, attribute.value.value<QTextFormat>().toCharFormat()});
    }
    m_layout.setPreedit(preedit.text.isEmpty() ? std::nullopt : std::optional(std::move(preedit)),
                        m_selection.caret);
    updateScrollBar();
    reveal(m_selection.caret);
    updateAll();
    updateMicroFocus();
}

QVariant TextArea::inputMethodQuery(Qt::InputMethodQuery query) const {
    // Input methods get the text around the caret, in pieces of at most this size in bytes on either side.
    constexpr std::size_t reach = 2'048;
    const auto caret = m_selection.caret;
    const auto line = m_layout.lineAt(caret);
    const auto from = text().summaryBefore(std::max(line.start, caret - std::min(caret, reach))).bytes;
    const auto to = text().summaryBefore(std::min(line.end, caret + reach)).bytes;
    const auto unitsBetween = [&](std::size_t first, std::size_t last) {
        return static_cast<int>(qString(text().string(first, std::max(first, last))).size());
    };
    switch (query) {
    case Qt::ImEnabled:
        return !m_isReadOnly;
    case Qt::ImReadOnly:
        return m_isReadOnly;
    case Qt::ImHints:
        return static_cast<int>(Qt::ImhMultiLine | inputMethodHints());
    case Qt::ImCursorRectangle:
        return caretRect(caret).translated(viewport()->pos());
    case Qt::ImFont:
        return m_style.font;
    case Qt::ImSurroundingText:
        return qString(text().string(from, to));
    case Qt::ImCursorPosition:
        return unitsBetween(from, caret);
    case Qt::ImAnchorPosition:
        return unitsBetween(from, std::clamp(m_selection.anchor, from, to));
    case Qt::ImAbsolutePosition:
        return static_cast<int>(text().utf16Offset(caret));
    case Qt::ImTextBeforeCursor:
        return qString(text().string(from, caret));
    case Qt::ImTextAfterCursor:
        return qString(text().string(caret, to));
    case Qt::ImCurrentSelection:
        return qString(
            text().string(m_selection.from(), std::min(m_selection.to(), m_selection.from() + reach)));
    default:
        return QAbstractScrollArea::inputMethodQuery(query);
    }
}

} // namespace korvane
