#include "Desktop/Text/LineBreaks.h"

#include <QTextBoundaryFinder>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <cassert>

namespace korvane {

namespace {

/// The kind is stored as the object type of the break's character format. The history keeps it with the
/// break, and it is the one property that Qt does not copy to text typed after the break.
QTextCharFormat formatOf(LineBreak lineBreak) {
    QTextCharFormat format;
    if (lineBreak != LineBreak::lineFeed)
        format.setObjectType(QTextFormat::UserObject + static_cast<int>(lineBreak));
    return format;
}

/// Whether a character begins a line break; called for every character of a text.
bool beginsLineBreak(QChar character) {
    static constexpr auto latin = [] {
        std::array<bool, 256> begins{};
        for (const auto& row : facts<LineBreak>) {
            if (!row.text.empty() && row.text.front().unicode() < begins.size())
                begins[row.text.front().unicode()] = true;
        }
        return begins;
    }();
    if (character.unicode() < latin.size())
        return latin[character.unicode()];
    return std::ranges::any_of(facts<LineBreak>, [character](const LineBreakFacts& row) {
        return !row.text.empty() && row.text.front() == character;
    });
}

/// The longest line break that begins at `index`; a seam if there is none.
LineBreak lineBreakAt(QStringView text, qsizetype index) {
    if (!beginsLineBreak(text[index]))
        return LineBreak::seam;
    auto longest = LineBreak::seam;
    for (const auto& [lineBreak, characters, newlines] : facts<LineBreak>) {
        if (characters.size() > textOf(longest).size() && text.sliced(index).startsWith(characters))
            longest = lineBreak;
    }
    return longest;
}

/// The distance from the end of a piece, in UTF-16 units, within which a boundary to cut at is searched. A
/// longer user-perceived character is a run of marks, not writing, and may be cut anywhere.
constexpr qsizetype cutSearchRange = 256;

bool isPlainASCII(QChar character) {
    return character >= u' ' && character <= u'~';
}

/// Emoji, marks and joiners, whose layout takes Qt many times as long as other text.
bool isComplex(QChar unit) {
    return unit >= u'\u0300' &&
           (unit.isSurrogate() || unit.isMark() || unit.category() == QChar::Other_Format);
}

/// The number of complex units that a piece may have.
qsizetype maxComplexUnits(qsizetype maxPieceLength) {
    return std::max<qsizetype>(maxPieceLength / 16, 8);
}

/// The maximum length of a piece at the start of `text`, in UTF-16 units.
qsizetype fittingLength(QStringView text, qsizetype maxPieceLength) {
    const auto maxLength = std::min(text.size(), maxPieceLength);
    auto room = maxComplexUnits(maxPieceLength);
    for (qsizetype index = 0; index < maxLength; ++index) {
        if (isComplex(text[index]) && --room < 0)
            return index;
    }
    return maxLength;
}

/// The last boundary in `text` at or before its last unit; 0 if there is none.
qsizetype lastBoundary(QTextBoundaryFinder::BoundaryType type, QStringView text) {
    QTextBoundaryFinder finder(type, text.data(), text.size());
    finder.setPosition(text.size() - 1);
    auto cut = finder.isAtBoundary() ? finder.position() : finder.toPreviousBoundary();
    while (cut > 0 && text[cut - 1] == u'\u200D') // the finder would split a joined emoji
        cut = finder.toPreviousBoundary();
    return std::max<qsizetype>(cut, 0);
}

/// The length of the first piece of `text`, which may be all of it. It ends where a line may be wrapped,
/// since the next piece begins a row; otherwise between two user-perceived characters, unless one is
/// extremely long; never inside a surrogate pair.
qsizetype pieceLength(QStringView text, qsizetype maxPieceLength) {
    assert(maxPieceLength > 1);
    const auto length = fittingLength(text, maxPieceLength);
    if (length == text.size())
        return length;
    const auto start = std::max<qsizetype>(length - cutSearchRange, 0);
    const auto range = text.sliced(start, length + 1 - start);
    const auto cutAt = [&](QTextBoundaryFinder::BoundaryType type) {
        const auto cut = lastBoundary(type, range);
        return cut > 0 ? start + cut : 0;
    };
    if (const auto cut = cutAt(QTextBoundaryFinder::Line); cut > length / 2)
        return cut;
    if (isPlainASCII(text[length - 1]) && isPlainASCII(text[length]))
        return length;
    if (const auto cut = cutAt(QTextBoundaryFinder::Grapheme); cut > 0)
        return cut;
    return text[length].isLowSurrogate() ? length - 1 : length;
}

/// Splits a text into runs that the document inserts quickly (no line break but LF and no long line) and the
/// breaks and long lines between them.
class Inserter {
public:
    Inserter(QTextCursor& cursor, QStringView text, qsizetype maxPieceLength)
        : m_cursor(cursor), m_text(text), m_maxPieceLength(maxPieceLength) {}

    void insert() {
        qsizetype lineStart = 0;
        for (qsizetype index = 0; index < m_text.size();) {
            const auto lineBreak = lineBreakAt(m_text, index);
            if (lineBreak == LineBreak::seam) {
                ++index;
                continue;
            }
            endLine(lineStart, index);
            if (lineBreak != LineBreak::lineFeed) {
                insertRunUntil(index);
                m_cursor.insertBlock(QTextBlockFormat(), formatOf(lineBreak));
                m_runStart = index + textOf(lineBreak).size();
            }
            index += textOf(lineBreak).size();
            lineStart = index;
        }
        endLine(lineStart, m_text.size());
        insertRunUntil(m_text.size());
    }

private:
    /// Inserts a long line in pieces; a short one remains part of the run.
    void endLine(qsizetype start, qsizetype end) {
        if (end - start <= maxComplexUnits(m_maxPieceLength))
            return;
        auto line = m_text.sliced(start, end - start);
        for (auto length = pieceLength(line, m_maxPieceLength); length < line.size();
             length = pieceLength(line, m_maxPieceLength)) {
            insertRunUntil(end - line.size());
            insertRunUntil(end - line.size() + length);
            m_cursor.insertBlock(QTextBlockFormat(), formatOf(LineBreak::seam));
            line = line.sliced(length);
        }
    }

    void insertRunUntil(qsizetype end) {
        if (end > m_runStart)
            m_cursor.insertText(m_text.sliced(m_runStart, end - m_runStart).toString(), QTextCharFormat());
        m_runStart = end;
    }

    QTextCursor& m_cursor;
    QStringView m_text;
    qsizetype m_maxPieceLength;
    qsizetype m_runStart = 0; // the text before it has been inserted
};

QString withoutLoneSurrogates(QString text) {
    for (qsizetype index = 0; index < text.size(); ++index) {
        const auto unit = text.at(index);
        if (unit.isHighSurrogate() && index + 1 < text.size() && text.at(index + 1).isLowSurrogate())
            ++index;
        else if (unit.isSurrogate())
            text[index] = QChar::ReplacementCharacter;
    }
    return text;
}

/// Whether `block` and the one before it are pieces of one line and one of them is empty.
bool hasRedundantSeam(const QTextBlock& block) {
    return block.isValid() && continuesLine(block) && (block.length() == 1 || block.previous().length() == 1);
}

void joinIfRedundant(const QTextBlock& block) {
    if (!hasRedundantSeam(block))
        return;
    QTextCursor cursor(block);
    cursor.deletePreviousChar();
}

bool isTooLong(const QTextBlock& block, int maxPieceLength) {
    return block.length() - 1 > 2 * maxPieceLength;
}

void cutIfTooLong(const QTextBlock& block, int maxPieceLength) {
    if (!isTooLong(block, maxPieceLength))
        return;
    const auto text = block.text();
    QStringView rest = text;
    QTextCursor cursor(block);
    for (auto length = pieceLength(rest, maxPieceLength); length < rest.size();
         length = pieceLength(rest, maxPieceLength)) {
        cursor.setPosition(cursor.position() + static_cast<int>(length));
        cursor.insertBlock(QTextBlockFormat(), formatOf(LineBreak::seam));
        rest = rest.sliced(length);
    }
}

} // namespace

QStringView textOf(LineBreak lineBreak) {
    return factsOf(lineBreak).text;
}

int newlineCount(LineBreak lineBreak) {
    return factsOf(lineBreak).newlines;
}

LineBreak lineBreakBefore(const QTextBlock& block) {
    const int type = block.charFormat().objectType();
    return type < QTextFormat::UserObject ? LineBreak::lineFeed
                                          : static_cast<LineBreak>(type - QTextFormat::UserObject);
}

bool continuesLine(const QTextBlock& block) {
    return block.position() > 0 && lineBreakBefore(block) == LineBreak::seam;
}

bool isInsertedExactly(QStringView text) {
    for (qsizetype index = 0; index < text.size(); ++index) {
        const auto lineBreak = lineBreakAt(text, index);
        if (lineBreak != LineBreak::seam && lineBreak != LineBreak::lineFeed)
            return false;
    }
    return text.isValidUtf16();
}

void insertExactly(QTextCursor& cursor, const QString& text, int maxPieceLength) {
    const auto wellFormed = text.isValidUtf16() ? text : withoutLoneSurrogates(text);
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    Inserter(cursor, wellFormed, maxPieceLength).insert();
    cursor.endEditBlock();
}

QString exactText(const QTextDocument& document, int start, int end) {
    QString text;
    for (auto block = document.findBlock(start); block.isValid() && block.position() <= end;
         block = block.next()) {
        if (block.position() > start)
            text += textOf(lineBreakBefore(block));
        const int from = std::max(start - block.position(), 0);
        const int to = std::min(end - block.position(), block.length() - 1);
        text += QStringView(block.text()).sliced(from, to - from);
    }
    return text;
}

int offsetOf(const QTextDocument& document, int position) {
    int offset = position;
    for (auto block = document.begin().next(); block.isValid() && block.position() <= position;
         block = block.next())
        offset += static_cast<int>(textOf(lineBreakBefore(block)).size()) - 1; // the break is one position
    return offset;
}

int positionAt(const QTextDocument& document, int offset) {
    auto block = document.begin();
    int start = 0; // of the block, in units of the exact text
    for (auto next = block.next(); next.isValid(); next = next.next()) {
        const auto afterBreak =
            start + block.length() - 1 + static_cast<int>(textOf(lineBreakBefore(next)).size());
        if (afterBreak > offset)
            break;
        block = next;
        start = afterBreak;
    }
    return block.position() + std::clamp(offset - start, 0, block.length() - 1);
}

void repairSeams(QTextDocument& document, int start, int end, int maxPieceLength) {
    const auto isIntact = [&](int position) {
        const auto block = document.findBlock(position);
        return !hasRedundantSeam(block) && !hasRedundantSeam(block.next()) &&
               !isTooLong(block, maxPieceLength);
    };
    const int last = std::min(end, document.characterCount() - 1);
    if (document.isRedoAvailable() || (isIntact(start) && isIntact(last)))
        return;
    QTextCursor cursor(&document);
    cursor.joinPreviousEditBlock();
    for (const int position : {last, start}) {
        joinIfRedundant(document.findBlock(position).next());
        joinIfRedundant(document.findBlock(position));
        cutIfTooLong(document.findBlock(position), maxPieceLength);
    }
    cursor.endEditBlock();
}

} // namespace korvane
