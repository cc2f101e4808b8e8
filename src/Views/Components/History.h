/// Shared by the histories of generated values, which keep their newest entries, the last one first.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace korvane {

/// Inserts `entry` at the front of `history`, which keeps at most `limit` entries.
template <typename Entry>
void addToHistory(std::vector<Entry>& history, Entry entry, std::size_t limit) {
    history.insert(history.begin(), std::move(entry));
    if (history.size() > limit)
        history.erase(history.begin() + static_cast<std::ptrdiff_t>(limit), history.end());
}

/// The heading of a history with `count` entries, such as "History (3)".
inline std::string historyTitle(std::size_t count) {
    return "History (" + std::to_string(count) + ")";
}

/// The result of `textOf` for each entry, one per line, without a line feed at the end.
template <typename Entry, typename Text>
std::string historyText(const std::vector<Entry>& history, Text textOf) {
    std::string lines;
    for (const auto& entry : history) {
        if (&entry != &history.front())
            lines += '\n';
        lines += std::invoke(textOf, entry);
    }
    return lines;
}

} // namespace korvane
