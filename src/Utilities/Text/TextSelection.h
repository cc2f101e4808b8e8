/// A selection in a text that can be edited.
#pragma once

#include <algorithm>
#include <cstddef>

namespace korvane {

/// From where the selection began to the caret, in either direction; byte offsets. Empty if they are the
/// same.
struct TextSelection {
    std::size_t anchor = 0;
    std::size_t caret = 0;

    std::size_t from() const { return std::min(anchor, caret); }

    std::size_t to() const { return std::max(anchor, caret); }

    bool isEmpty() const { return anchor == caret; }

    bool operator==(const TextSelection&) const = default;
};

/// What an editor shall show: a selection, or a caret. It is shown once for each `request`.
struct TextPlace {
    TextSelection selection{};
    std::size_t request = 0; ///< none before the first
    bool takesFocus = false;

    bool operator==(const TextPlace&) const = default;
};

} // namespace korvane
