/// A longest common subsequence of two lists: the one that the textbook table gives if its walk moves along
/// the second list on a tie. Elements are numbers that identify lines; the text of the lines is not needed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace korvane::DiffEngine {

/// Identifies a line's text: two lines have the same identity exactly when their texts are equal.
using LineIdentity = std::uint32_t;

/// How much of the table is computed and kept at once. Affects time and memory, not the result.
struct TableLimits {
    /// The first attempt allows for `minEdits` elements that only one of the lists has, or one in `editShare`
    /// if that is more. If these are too few, the attempt is repeated with `widening` times as many.
    std::size_t minEdits = 4096;
    std::size_t editShare = 64;
    std::size_t widening = 4;

    /// How many rows are kept of a range of rows, at least 2. More cost memory; fewer cost another round of
    /// recomputing the rows between them.
    std::size_t snapshots = 128;

    /// How many words of adjacent rows are kept for the walk, unless one row has more: 16 MB.
    std::size_t recordedWords = std::size_t{2} << 20;
};

/// The elements of a longest common subsequence of `a` and `b`, in order, or none once `stop` was requested.
///
/// Among the longest ones, it is defined by this table and walk: cell (i, j) holds the length for the first
/// i elements of `a` and j of `b`; from (|a|, |b|) the walk takes a match whenever the elements are equal,
/// else goes to (i, j - 1) when that cell equals (i, j), else to (i - 1, j).
///
/// Identities are numbered from 0 without large gaps: memory grows with the maximum. Time is at most
/// |a| * |b| / 64 steps of about a nanosecond, and much less if the lists are similar or most elements rare;
/// memory is at most a few hundred bytes an element.
std::optional<std::vector<LineIdentity>> longestCommonSubsequence(std::span<const LineIdentity> a,
                                                                  std::span<const LineIdentity> b,
                                                                  const std::stop_token& stop = {},
                                                                  const TableLimits& limits = {});

} // namespace korvane::DiffEngine
