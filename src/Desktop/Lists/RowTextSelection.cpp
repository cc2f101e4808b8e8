#include "Desktop/Lists/RowTextSelection.h"

#include "Desktop/Binding/Strings.h"
#include "Utilities/Text/Characters.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <tuple>
#include <utility>

namespace korvane {

enum class RowTextSelection::Move {
    nextCharacter,
    previousCharacter,
    nextWord,
    previousWord,
    startOfRow,
    endOfRow,
    nextRow,
    previousRow,
    nextPage,
    previousPage,
    first,
    last,
};

namespace {

/// How far around a place words and characters are looked for, in bytes. A longer word is gone through in
/// steps.
constexpr std::size_t windowSize = 1024;

bool isInsideCharacter(std::string_view text, std::size_t offset) {
    return offset < text.size() && (static_cast<unsigned char>(text[offset]) & 0xC0) == 0x80;
}

/// A part of a text around a place, as a QString, and the mapping back to its bytes.
class Window {
public:
    Window(std::string_view text, std::size_t offset) {
        m_start = offset - std::min(offset, windowSize);
        auto end = std::min(offset + windowSize, text.size());
        while (isInsideCharacter(text, m_start))
            ++m_start;
        while (isInsideCharacter(text, end))
            ++end;
        m_text = qString(text.substr(m_start, end - m_start));
        m_unit = qString(text.substr(m_start, offset - m_start)).size();
    }

    const QString& text() const { return m_text; }

    /// The place that the window is around.
    qsizetype unit() const { return m_unit; }

    std::size_t offsetOf(qsizetype unit) const {
        return m_start + static_cast<std::size_t>(QStringView(m_text).first(unit).toUtf8().size());
    }

private:
    std::size_t m_start = 0;
    QString m_text{};
    qsizetype m_unit = 0;
};

/// From where to where the word at `offset`, the space or the sign there reaches.
std::pair<std::size_t, std::size_t> wordAt(std::string_view text, std::size_t offset) {
    if (text.empty())
        return {0, 0};
    const Window window(text, offset);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, window.text());
    finder.setPosition(std::min(window.unit(), window.text().size() - 1));
    auto start = finder.position();
    if (!finder.isAtBoundary())
        start = std::max(finder.toPreviousBoundary(), qsizetype{0});
    finder.setPosition(start);
    auto end = finder.toNextBoundary();
    if (end < 0)
        end = window.text().size();
    return {window.offsetOf(start), window.offsetOf(end)};
}

} // namespace

RowTextSelection::RowTextSelection(RowTexts texts, std::function<int()> rowCount)
    : m_texts(std::move(texts)), m_rowCount(std::move(rowCount)) {}

std::string_view RowTextSelection::textOf(int row) const {
    return m_texts.text(row).value_or(std::string_view());
}

RowTextRange RowTextSelection::in(int row) const {
    const auto& [start, end] = std::minmax(m_anchor, m_caret);
    if (start == end || row < start.row || row > end.row)
        return {};
    return {.start = row == start.row ? start.offset : 0,
            .end = row == end.row ? end.offset : textOf(row).size(),
            .goesOn = row < end.row};
}

std::string RowTextSelection::text() const {
    const auto& [start, end] = std::minmax(m_anchor, m_caret);
    std::string selected;
    bool isFirst = true;
    for (auto row = start.row; row <= end.row; ++row) {
        const auto text = m_texts.text(row);
        if (!text)
            continue;
        const auto range = in(row);
        selected.append(isFirst ? "" : "\n").append(text->substr(range.start, range.end - range.start));
        isFirst = false;
    }
    return selected;
}

std::pair<int, int> RowTextSelection::rows() const {
    const auto& [start, end] = std::minmax(m_anchor, m_caret);
    const bool endsAtStart = end.row > start.row && end.offset == 0;
    return {start.row, endsAtStart ? end.row - 1 : end.row};
}

void RowTextSelection::moveTo(RowTextPlace place) {
    press(place, Unit::character);
}

RowTextPlace RowTextSelection::lastPlace() const {
    const auto last = m_rowCount() - 1;
    return last < 0 ? RowTextPlace() : RowTextPlace{last, textOf(last).size()};
}

void RowTextSelection::selectAll() {
    moveTo({});
    m_caret = lastPlace();
}

std::pair<RowTextPlace, RowTextPlace> RowTextSelection::unitAt(RowTextPlace place) const {
    if (m_unit == Unit::character)
        return {place, place};
    const auto text = textOf(place.row);
    const auto [start, end] = m_unit == Unit::row ? std::pair(std::size_t{0}, text.size())
                                                  : wordAt(text, std::min(place.offset, text.size()));
    return {{place.row, start}, {place.row, end}};
}

void RowTextSelection::press(RowTextPlace place, Unit unit) {
    m_unit = unit;
    m_pressed = unitAt(place);
    std::tie(m_anchor, m_caret) = m_pressed;
    m_column.reset();
}

void RowTextSelection::extendTo(RowTextPlace place) {
    const auto [start, end] = unitAt(place);
    const bool goesBack = place < m_pressed.first;
    m_anchor = goesBack ? m_pressed.second : m_pressed.first;
    m_caret = goesBack ? start : std::max(end, m_pressed.second);
    m_column.reset();
}

bool RowTextSelection::isVertical(Move move) {
    return move == Move::nextRow || move == Move::previousRow || move == Move::nextPage ||
           move == Move::previousPage;
}

bool RowTextSelection::isByCharacter(Move move) {
    return move == Move::nextCharacter || move == Move::previousCharacter;
}

bool RowTextSelection::handle(const QKeyEvent& event, int rowsOfPage) {
    struct Keys {
        QKeySequence::StandardKey move;
        QKeySequence::StandardKey select;
        Move where;
    };

    static constexpr Keys all[] = {
        {QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar, Move::nextCharacter},
        {QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar, Move::previousCharacter},
        {QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord, Move::nextWord},
        {QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord, Move::previousWord},
        {QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine, Move::startOfRow},
        {QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine, Move::endOfRow},
        {QKeySequence::MoveToNextLine, QKeySequence::SelectNextLine, Move::nextRow},
        {QKeySequence::MoveToPreviousLine, QKeySequence::SelectPreviousLine, Move::previousRow},
        {QKeySequence::MoveToNextPage, QKeySequence::SelectNextPage, Move::nextPage},
        {QKeySequence::MoveToPreviousPage, QKeySequence::SelectPreviousPage, Move::previousPage},
        {QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument, Move::first},
        {QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument, Move::last},
    };
    const auto found = std::ranges::find_if(
        all, [&](const Keys& keys) { return event.matches(keys.move) || event.matches(keys.select); });
    if (found == std::end(all) || m_rowCount() == 0)
        return false;
    const bool isSelecting = event.matches(found->select);
    if (!isSelecting && !isEmpty() && isByCharacter(found->where))
        m_caret =
            found->where == Move::nextCharacter ? std::max(m_anchor, m_caret) : std::min(m_anchor, m_caret);
    else
        m_caret = moved(found->where, rowsOfPage);
    if (!isSelecting)
        m_anchor = m_caret;
    m_unit = Unit::character;
    m_pressed = {m_anchor, m_anchor};
    return true;
}

RowTextPlace RowTextSelection::moved(Move move, int rowsOfPage) {
    if (!isVertical(move))
        m_column.reset();
    switch (move) {
    case Move::nextCharacter:
        return next();
    case Move::previousCharacter:
        return previous();
    case Move::nextWord:
        return nextWord();
    case Move::previousWord:
        return previousWord();
    case Move::startOfRow:
        return {m_caret.row, 0};
    case Move::endOfRow:
        return {m_caret.row, textOf(m_caret.row).size()};
    case Move::nextRow:
        return vertically(1);
    case Move::previousRow:
        return vertically(-1);
    case Move::nextPage:
        return vertically(rowsOfPage);
    case Move::previousPage:
        return vertically(-rowsOfPage);
    case Move::first:
        return {};
    case Move::last:
        return lastPlace();
    }
    return m_caret;
}

RowTextPlace RowTextSelection::next() const {
    const auto rest = textOf(m_caret.row).substr(m_caret.offset);
    if (rest.empty())
        return m_caret.row + 1 < m_rowCount() ? RowTextPlace{m_caret.row + 1, 0} : m_caret;
    return {m_caret.row, m_caret.offset + firstCharacter(rest.substr(0, windowSize)).size()};
}

RowTextPlace RowTextSelection::previous() const {
    if (m_caret.offset == 0)
        return m_caret.row > 0 ? RowTextPlace{m_caret.row - 1, textOf(m_caret.row - 1).size()} : m_caret;
    const auto text = textOf(m_caret.row);
    auto start = m_caret.offset - std::min(m_caret.offset, windowSize);
    while (isInsideCharacter(text, start))
        ++start;
    const auto before = characters(text.substr(start, m_caret.offset - start));
    return {m_caret.row, m_caret.offset - before.back().size()};
}

/// The start of the next word; the end of the row where there is none.
RowTextPlace RowTextSelection::nextWord() const {
    const auto text = textOf(m_caret.row);
    if (m_caret.offset == text.size())
        return next();
    const Window window(text, m_caret.offset);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, window.text());
    finder.setPosition(window.unit());
    auto unit = finder.toNextBoundary();
    while (unit >= 0 && unit < window.text().size() && window.text()[unit].isSpace())
        unit = finder.toNextBoundary();
    return {m_caret.row, window.offsetOf(unit < 0 ? window.text().size() : unit)};
}

/// The start of the word at or before the caret.
RowTextPlace RowTextSelection::previousWord() const {
    if (m_caret.offset == 0)
        return previous();
    const Window window(textOf(m_caret.row), m_caret.offset);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, window.text());
    finder.setPosition(window.unit());
    auto unit = finder.toPreviousBoundary();
    while (unit > 0 && window.text()[unit].isSpace())
        unit = finder.toPreviousBoundary();
    return {m_caret.row, window.offsetOf(std::max(unit, qsizetype{0}))};
}

RowTextPlace RowTextSelection::vertically(int rows) {
    const auto row = std::clamp(m_caret.row + rows, 0, m_rowCount() - 1);
    const auto caret = m_texts.caret(m_caret.row, m_caret.offset);
    if (!m_column)
        m_column = caret.left();
    return {row, m_texts.offsetAt(row, {*m_column, m_texts.caret(row, 0).center().y()})};
}

} // namespace korvane
