#include "Desktop/Text/TextSeams.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace korvane {

namespace {

bool isPlainASCII(QChar character) {
    return character >= u' ' && character <= u'~';
}

bool isComplex(QChar unit) {
    return unit >= u'\u0300' &&
           (unit.isSurrogate() || unit.isMark() || unit.category() == QChar::Other_Format);
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

} // namespace

qsizetype seamIn(QStringView text, qsizetype from, qsizetype to) {
    const auto start = std::max(from, to - static_cast<qsizetype>(seamSearchRange));
    const auto range = text.sliced(start, to + 1 - start);
    if (const auto cut = lastBoundary(QTextBoundaryFinder::Line, range); cut > 0)
        return start + cut;
    if (to > 0 && isPlainASCII(text[to - 1]) && isPlainASCII(text[to]))
        return to;
    if (const auto cut = lastBoundary(QTextBoundaryFinder::Grapheme, range); cut > 0)
        return start + cut;
    return text[to].isLowSurrogate() ? to - 1 : to;
}

qsizetype firstPieceLength(QStringView text, int maxPieceLength) {
    auto room = std::max(maxPieceLength / 16, 8);
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (isComplex(text[index]) && --room < 0)
            return seamIn(text, 0, index);
    }
    return text.size();
}

} // namespace korvane
