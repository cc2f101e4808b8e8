#include "Desktop/Text/LineBreaks.h"

#include <QTextBoundaryFinder>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <cassert>

namespace korvane {

namespace {

/// The kind is the object type of the break's own character format. The history keeps it with the break, and
/// it is the one property that the toolkit does not hand on to what is typed behind the break.
QTextCharFormat formatOf(LineBreak lineBreak) {
    QTextCharFormat format;
    if (lineBreak != LineBreak::lineFeed)
        format.setObjectType(QTextFormat::UserObject + static_cast<int>(lineBreak));
    return format;
}

/// Whether a character begins a line break; asked of every character of a text.
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

/// The line break that begins at `index`, the longest where several do; a seam where there is none.
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

/// How far back from the end of a piece a place to cut is looked for, in UTF-16 units. A longer character is
/// no writing but a run of marks, and may be cut anywhere.
constexpr qsizetype cuttingRange = 256;

bool isPlainASCII(QChar character) {
    return character >= u' ' && character <= u'~';
}

/// Emoji, marks and joiners: laying them out takes the toolkit many times as long as other text.
bool isIntricate(QChar unit) {
    return unit >= u'\u0300' &&
           (unit.isSurrogate() || unit.isMark() || unit.category() == QChar::Other_Format);
}

/// Of a piece that is full of intricate units.
qsizetype longestIntricatePiece(qsizetype longestPiece) {
    return std::max<qsizetype>(longestPiece / 16, 8);
}

/// How many units from the start of `text` a piece may have.
qsizetype fittingLength(QStringView text, qsizetype longestPiece) {
    const auto most = std::min(text.size(), longestPiece);
    auto room = longestIntricatePiece(longestPiece);
    for (qsizetype index = 0; index < most; ++index) {
        if (isIntricate(text[index]) && --room < 0)
            return index;
    }
    return most;
}

/// The last boundary in `text` before its last unit, or right there; 0 if there is none.
qsizetype lastBoundary(QTextBoundaryFinder::BoundaryType type, QStringView text) {
    QTextBoundaryFinder finder(type, text.data(), text.size());
    finder.setPosition(text.size() - 1);
    auto cut = finder.isAtBoundary() ? finder.position() : finder.toPreviousBoundary();
    while (cut > 0 && text[cut - 1] == u'\u200D') // the finder takes apart what a joiner joins
        cut = finder.toPreviousBoundary();
    return std::max<qsizetype>(cut, 0);
}

/// The length of the first piece of `text`, which may be all of it. It ends where a line may be wrapped,
/// since the next piece begins a row; else between two user-perceived characters, unless one is absurdly
/// long; never inside a surrogate pair.
qsizetype pieceLength(QStringView text, qsizetype longestPiece) {
    assert(longestPiece > 1);
    const auto length = fittingLength(text, longestPiece);
    if (length == text.size())
        return length;
    const auto start = std::max<qsizetype>(length - cuttingRange, 0);
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

/// Takes a text apart into what the document inserts quickly (runs with no other line break than LF and no
/// long line) and the breaks and long lines between.
class Inserter {
public:
    Inserter(QTextCursor& cursor, QStringView text, qsizetype longestPiece)
        : m_cursor(cursor), m_text(text), m_longestPiece(longestPiece) {}

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
    /// Inserts a line in pieces if it is long; else it stays a part of the run.
    void endLine(qsizetype start, qsizetype end) {
        if (end - start <= longestIntricatePiece(m_longestPiece))
            return;
        auto line = m_text.sliced(start, end - start);
        for (auto length = pieceLength(line, m_longestPiece); length < line.size();
             length = pieceLength(line, m_longestPiece)) {
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
    qsizetype m_longestPiece;
    qsizetype m_runStart = 0; // what precedes it is in the document
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

/// Whether `block` and the one before it are two pieces of a line of which one is empty.
bool hasIdleSeam(const QTextBlock& block) {
    return block.isValid() && continuesLine(block) && (block.length() == 1 || block.previous().length() == 1);
}

void joinIfIdle(const QTextBlock& block) {
    if (!hasIdleSeam(block))
        return;
    QTextCursor cursor(block);
    cursor.deletePreviousChar();
}

bool isTooLong(const QTextBlock& block, int longestPiece) {
    return block.length() - 1 > 2 * longestPiece;
}

void cutIfTooLong(const QTextBlock& block, int longestPiece) {
    if (!isTooLong(block, longestPiece))
        return;
    const auto text = block.text();
    QStringView rest = text;
    QTextCursor cursor(block);
    for (auto length = pieceLength(rest, longestPiece); length < rest.size();
         length = pieceLength(rest, longestPiece)) {
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

void insertExactly(QTextCursor& cursor, const QString& text, int longestPiece) {
    const auto wellFormed = text.isValidUtf16() ? text : withoutLoneSurrogates(text);
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    Inserter(cursor, wellFormed, longestPiece).insert();
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
        offset += static_cast<int>(textOf(lineBreakBefore(block)).size()) - 1; // which is one position
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

void mendSeams(QTextDocument& document, int start, int end, int longestPiece) {
    const auto isGood = [&](int position) {
        const auto block = document.findBlock(position);
        return !hasIdleSeam(block) && !hasIdleSeam(block.next()) && !isTooLong(block, longestPiece);
    };
    const int last = std::min(end, document.characterCount() - 1);
    if (document.isRedoAvailable() || (isGood(start) && isGood(last)))
        return;
    QTextCursor cursor(&document);
    cursor.joinPreviousEditBlock();
    for (const int position : {last, start}) {
        joinIfIdle(document.findBlock(position).next());
        joinIfIdle(document.findBlock(position));
        cutIfTooLong(document.findBlock(position), longestPiece);
    }
    cursor.endEditBlock();
}

} // namespace korvane
