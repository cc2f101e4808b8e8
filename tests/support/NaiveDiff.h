/// The textbook comparison: the whole table, the walk back through it, and the layout. Slow and simple, as a
/// reference for the engine.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace korvane::support {

template <typename Element>
std::vector<Element> naiveSubsequence(const std::vector<Element>& a, const std::vector<Element>& b) {
    std::vector<std::vector<int>> table(a.size() + 1, std::vector<int>(b.size() + 1, 0));
    for (std::size_t i = 1; i <= a.size(); ++i) {
        for (std::size_t j = 1; j <= b.size(); ++j) {
            table[i][j] =
                a[i - 1] == b[j - 1] ? table[i - 1][j - 1] + 1 : std::max(table[i][j - 1], table[i - 1][j]);
        }
    }
    std::vector<Element> reversed;
    std::size_t i = a.size();
    std::size_t j = b.size();
    while (i > 0 && j > 0) {
        if (a[i - 1] == b[j - 1]) {
            reversed.push_back(a[i - 1]);
            --i;
            --j;
        } else if (table[i][j - 1] >= table[i - 1][j]) {
            --j;
        } else {
            --i;
        }
    }
    return {reversed.rbegin(), reversed.rend()};
}

/// An expected line; a filler has no number.
struct NaiveLine {
    std::optional<int> number{};
    std::string content{};
    char type = ' ';

    bool operator==(const NaiveLine&) const = default;
};

struct NaiveDiff {
    std::vector<NaiveLine> left{};
    std::vector<NaiveLine> right{};
    std::vector<NaiveLine> unified{};
    int added = 0;
    int removed = 0;
    int unchanged = 0;

    bool operator==(const NaiveDiff&) const = default;
};

inline NaiveDiff naiveDiff(const std::vector<std::string>& left, const std::vector<std::string>& right) {
    NaiveDiff diff;
    std::size_t i = 0;
    std::size_t j = 0;
    const auto remove = [&] {
        const NaiveLine line{static_cast<int>(i + 1), left[i], '-'};
        diff.left.push_back(line);
        diff.right.emplace_back();
        diff.unified.push_back(line);
        ++diff.removed;
        ++i;
    };
    const auto add = [&] {
        const NaiveLine line{static_cast<int>(j + 1), right[j], '+'};
        diff.left.emplace_back();
        diff.right.push_back(line);
        diff.unified.push_back(line);
        ++diff.added;
        ++j;
    };
    for (const auto& common : naiveSubsequence(left, right)) {
        while (left[i] != common)
            remove();
        while (right[j] != common)
            add();
        diff.left.push_back({static_cast<int>(i + 1), left[i], ' '});
        diff.right.push_back({static_cast<int>(j + 1), right[j], ' '});
        diff.unified.push_back(diff.left.back());
        ++diff.unchanged;
        ++i;
        ++j;
    }
    while (i < left.size())
        remove();
    while (j < right.size())
        add();
    return diff;
}

} // namespace korvane::support
