/// Where a long line is divided into pieces that are laid out separately.
#pragma once

#include <QStringView>

#include <cstddef>

namespace korvane {

/// The distance from the end of a piece, in UTF-16 units, within which a place to divide is searched. A
/// longer user-perceived character is a run of marks, not writing, and may be divided anywhere.
inline constexpr std::size_t seamSearchRange = 256;

/// The last place after `from` and not after `to`, which is less than the size, at which to divide `text`:
/// where a line may be wrapped, since the next piece begins a row; otherwise between two user-perceived
/// characters; otherwise `to`, or before it if it is inside a surrogate pair.
qsizetype seamIn(QStringView text, qsizetype from, qsizetype to);

/// The length of the first piece of `text`, which may be all of it: a piece may have only some emoji, marks
/// and joiners, whose layout takes Qt many times as long as that of other text.
qsizetype firstPieceLength(QStringView text, int maxPieceLength);

} // namespace korvane
