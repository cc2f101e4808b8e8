/// One longest common subsequence of two lists, the one that the table of the textbook gives when its walk
/// goes along the second list on a tie. Elements are numbers that stand for lines; what the lines are is not
/// known here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace korvane::DiffEngine {

/// Stands for a line's text: two lines have the same identity exactly when their texts are equal.
using LineIdentity = std::uint32_t;

/// How much of the table is computed and kept at once. It decides about time and memory, never about the
/// outcome.
struct TableLimits {
    /// The first attempt allows for this many elements that only one of the lists has, and for one in
    /// `editShare` where that is more. Too few, and the attempt is repeated with `widening` times as many.
    std::size_t minEdits = 4096;
    std::size_t editShare = 64;
    std::size_t widening = 4;

    /// How many rows are kept on the way through many rows, at least 2. More of them cost memory; fewer,
    /// another round of computing those between them.
    std::size_t snapshots = 128;

    /// How many words of neighbouring rows are kept for walking through them, unless one row has more: 16 MB.
    std::size_t recordedWords = std::size_t{2} << 20;
};

/// The elements of one longest common subsequence of `a` and `b`, in order, or none once `stop` was
/// requested.
///
/// Of the longest ones it is that which this table and walk give: cell (i, j) holds the length for the first
/// i elements of `a` and j of `b`; from (|a|, |b|) the walk takes a match whenever the elements are equal,
/// else goes to (i, j - 1) when that cell equals (i, j), else to (i - 1, j).
///
/// Identities are numbered from 0 without large gaps: memory grows with the largest. Time is at most
/// |a| * |b| / 64 steps of about a nanosecond, and much less when the lists are alike or most elements rare;
/// memory stays within a few hundred bytes an element.
std::optional<std::vector<LineIdentity>> longestCommonSubsequence(std::span<const LineIdentity> a,
                                                                  std::span<const LineIdentity> b,
                                                                  const std::stop_token& stop = {},
                                                                  const TableLimits& limits = {});

} // namespace korvane::DiffEngine
