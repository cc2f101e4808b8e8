/// The caret of a text area: where keys move it, and what it selects.

#include "Desktop/Text/TextArea.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace korvane {

namespace {

using Key = QKeySequence::StandardKey;

/// Whether `character` separates words without being white space, as `QTextLayout::SkipWords` has it.
bool isWordSeparator(QChar character) {
    return QStringView(u".,?!@#$:;-<>[](){}=/+%&^*'\"`~|\\").contains(character);
}

int wordStart(const TextPiece& piece, int unit) {
    const auto& text = piece.text();
    if (unit == 0)
        return 0;
    const bool isAtEnd = unit == piece.length();
    if (isAtEnd && (text[unit - 1].isSpace() || isWordSeparator(text[unit - 1])))
        return unit;
    return piece.layout().previousCursorPosition(isAtEnd ? unit : unit + 1, QTextLayout::SkipWords);
}

int wordEnd(const TextPiece& piece, int unit) {
    if (unit == piece.length() || piece.text()[unit].isSpace())
        return unit;
    int end = piece.layout().nextCursorPosition(unit, QTextLayout::SkipWords);
    while (end > unit && piece.text()[end - 1].isSpace())
        --end;
    return end;
}

/// Whether a key that moves the caret keeps the anchor.
bool isSelecting(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::ShiftModifier);
}

bool matchesAny(const QKeyEvent& event, std::initializer_list<Key> keys) {
    return std::ranges::any_of(keys, [&](Key key) { return event.matches(key); });
}

} // namespace

std::size_t TextArea::besideCharacter(std::size_t offset, bool forward) const {
    const auto place = m_layout.pieceAt(offset);
    const auto& piece = *place.piece;
    const int unit = piece.unitAt(offset - place.start);
    if (forward)
        return unit == piece.length() ? place.next()
                                      : place.start + piece.byteAt(piece.layout().nextCursorPosition(unit));
    if (unit > 0)
        return place.start + piece.byteAt(piece.layout().previousCursorPosition(unit));
    const auto before = m_layout.pieceBefore(place);
    if (!before)
        return 0;
    const auto& last = *before->piece;
    return last.endsLine() ? before->end()
                           : before->start + last.byteAt(last.layout().previousCursorPosition(last.length()));
}

std::size_t TextArea::besideWord(std::size_t offset, bool forward) const {
    const auto place = m_layout.pieceAt(offset);
    const auto& piece = *place.piece;
    const int unit = piece.unitAt(offset - place.start);
    const auto inPiece = [](const PlacedPiece& where, int target) {
        return where.start + where.piece->byteAt(target);
    };
    if (forward)
        return unit == piece.length()
                   ? place.next()
                   : inPiece(place, piece.layout().nextCursorPosition(unit, QTextLayout::SkipWords));
    if (unit > 0)
        return inPiece(place, piece.layout().previousCursorPosition(unit, QTextLayout::SkipWords));
    const auto before = m_layout.pieceBefore(place);
    if (!before)
        return 0;
    const auto& last = *before->piece;
    return last.endsLine() ? before->end()
                           : inPiece(*before, last.layout().previousCursorPosition(last.length(),
                                                                                   QTextLayout::SkipWords));
}

/// The last place for the caret in a row. In a row that the next one continues, it is before the space at
/// which the line is wrapped.
std::size_t TextArea::rowEnd(const PlacedRow& row) const {
    const auto& piece = *row.place.piece;
    const auto line = row.line();
    const int end = line.textStart() + line.textLength();
    const bool isLast = row.index == piece.rowCount() - 1 && piece.endsLine();
    return row.place.start + piece.byteAt(isLast ? end : piece.layout().previousCursorPosition(end));
}

/// The place for the caret in `row` that is nearest to `x` in pixels.
std::size_t TextArea::offsetNear(const PlacedRow& row, qreal x) const {
    const auto offset = row.place.start + row.place.piece->byteAt(row.line().xToCursor(x));
    return std::min(offset, rowEnd(row));
}

/// Beyond the first and the last row, the caret stays, but a selection extends to the end of the text.
std::size_t TextArea::inNeighbouringRow(std::ptrdiff_t distance, bool selects) {
    const auto caret = m_selection.caret;
    const auto row = m_layout.rowAt(caret);
    if (!m_goalX)
        m_goalX = row.line().cursorToX(row.place.piece->unitAt(caret - row.place.start));
    const auto target = m_layout.moved(row, distance);
    const bool hasMoved = target.place.start != row.place.start || target.index != row.index;
    if (hasMoved)
        return offsetNear(target, *m_goalX);
    if (!selects)
        return caret;
    m_goalX.reset();
    return distance < 0 ? 0 : text().size();
}

/// Scrolls by a page, and returns where the caret goes.
std::size_t TextArea::besidePage(bool forward, bool selects) {
    const auto rows = std::max(visibleRowCount() - 1, 1) * (forward ? 1 : -1);
    scrollBy(rows);
    return inNeighbouringRow(rows, selects);
}

/// Where a key moves the caret; none if it is no such key.
std::optional<std::size_t> TextArea::targetOf(const QKeyEvent& event) {
    const auto caret = m_selection.caret;
    const auto line = m_layout.lineAt(caret);
    const auto place = m_layout.pieceAt(caret);
    const bool isRightToLeft = place.piece->text().isRightToLeft();
    const auto matches = [&](Key move, Key select) { return matchesAny(event, {move, select}); };
    const auto besideSelection = [&](bool forward) {
        if (m_selection.isEmpty() || isSelecting(event))
            return besideCharacter(caret, forward);
        return forward ? m_selection.to() : m_selection.from();
    };
    if (matches(Key::MoveToNextChar, Key::SelectNextChar))
        return besideSelection(!isRightToLeft);
    if (matches(Key::MoveToPreviousChar, Key::SelectPreviousChar))
        return besideSelection(isRightToLeft);
    if (matches(Key::MoveToNextWord, Key::SelectNextWord))
        return besideWord(caret, !isRightToLeft);
    if (matches(Key::MoveToPreviousWord, Key::SelectPreviousWord))
        return besideWord(caret, isRightToLeft);
    if (matches(Key::MoveToNextLine, Key::SelectNextLine))
        return inNeighbouringRow(1, isSelecting(event));
    if (matches(Key::MoveToPreviousLine, Key::SelectPreviousLine))
        return inNeighbouringRow(-1, isSelecting(event));
    if (matches(Key::MoveToNextPage, Key::SelectNextPage))
        return besidePage(true, isSelecting(event));
    if (matches(Key::MoveToPreviousPage, Key::SelectPreviousPage))
        return besidePage(false, isSelecting(event));
    if (matches(Key::MoveToStartOfLine, Key::SelectStartOfLine))
        return m_layout.rowAt(caret).start();
    if (matches(Key::MoveToEndOfLine, Key::SelectEndOfLine))
        return rowEnd(m_layout.rowAt(caret));
    if (matches(Key::MoveToStartOfBlock, Key::SelectStartOfBlock))
        return line.start;
    if (matches(Key::MoveToEndOfBlock, Key::SelectEndOfBlock))
        return line.end;
    if (matches(Key::MoveToStartOfDocument, Key::SelectStartOfDocument))
        return 0;
    if (matches(Key::MoveToEndOfDocument, Key::SelectEndOfDocument))
        return text().size();
    const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (modifiers == Qt::ControlModifier && event.key() == Qt::Key_Down)
        return line.next;
    if (modifiers == Qt::ControlModifier && event.key() == Qt::Key_Up)
        return caret > line.start || caret == 0 ? line.start : m_layout.lineAt(caret - 1).start;
    return std::nullopt;
}

/// Handles a key press that moves the caret; returns whether it was one.
bool TextArea::moveByKey(const QKeyEvent& event) {
    if (!m_hasCaret)
        return false;
    const bool keepsGoal = matchesAny(
        event, {Key::MoveToNextLine, Key::SelectNextLine, Key::MoveToPreviousLine, Key::SelectPreviousLine,
                Key::MoveToNextPage, Key::SelectNextPage, Key::MoveToPreviousPage, Key::SelectPreviousPage});
    const auto target = targetOf(event);
    if (!target)
        return false;
    const auto goal = keepsGoal ? m_goalX : std::nullopt;
    if (*target != m_selection.caret || !keepsGoal) // otherwise the selection stays
        moveCaret(*target, isSelecting(event));
    m_goalX = goal;
    return true;
}

void TextArea::moveCaret(std::size_t offset, bool selects) {
    selectAsUser({selects ? m_selection.anchor : offset, offset});
    reveal(offset);
}

void TextArea::select(const TextSelection& selection) {
    const auto placed = [this](std::size_t offset) {
        const auto place = text().summaryBefore(std::min(offset, text().size())).bytes;
        const auto line = m_layout.lineAt(place);
        return place < line.next ? std::min(place, line.end) : place; // not inside a CR LF
    };
    setSelection({placed(selection.anchor), placed(selection.caret)});
    reveal(m_selection.caret);
}

void TextArea::selectAll() {
    selectAsUser({0, text().size()});
}

void TextArea::selectAsUser(const TextSelection& selection) {
    const bool isNew = selection != m_selection;
    setSelection(selection);
    if (isNew && onSelect)
        onSelect(selection);
}

void TextArea::setSelection(const TextSelection& selection) {
    m_goalX.reset();
    restartBlinking();
    if (selection == m_selection)
        return;
    m_selection = selection;
    m_history.endStep();
    updateAll();
    updateMicroFocus();
    if (!QAccessible::isActive())
        return;
    const auto unit = [this](std::size_t offset) { return static_cast<int>(text().utf16Offset(offset)); };
    QAccessibleTextCursorEvent moved(this, unit(m_selection.caret));
    QAccessible::updateAccessibility(&moved);
    QAccessibleTextSelectionEvent selected(this, unit(m_selection.from()), unit(m_selection.to()));
    selected.setCursorPosition(unit(m_selection.caret));
    QAccessible::updateAccessibility(&selected);
}

/// The character, word or line at `offset`; a line with its line break.
TextSelection TextArea::unitAround(std::size_t offset, Unit unit) const {
    if (unit == Unit::character)
        return {offset, offset};
    if (unit == Unit::line) {
        const auto line = m_layout.lineAt(offset);
        return {line.start, line.next};
    }
    const auto place = m_layout.pieceAt(offset);
    const auto& piece = *place.piece;
    const int start = wordStart(piece, piece.unitAt(offset - place.start));
    return {place.start + piece.byteAt(start), place.start + piece.byteAt(wordEnd(piece, start))};
}

} // namespace korvane
