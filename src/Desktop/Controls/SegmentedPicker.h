/// A choice of one of a few values, all visible side by side.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Models/Enumeration.h"

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

class QWidget;

namespace korvane {

enum class SegmentLook {
    even,      ///< all of one width
    natural,   ///< each as wide as its title needs, plus an equal share of the rest
    withIcons, ///< the same, with the values' glyphs before the titles
};

struct Segments {
    std::vector<std::string> titles;
    std::vector<std::string> icons; ///< before the titles; empty: none
};

/// `name` is the accessible name of the whole; `width` is the minimum width, in pixels at a 13-pixel body
/// text, and 0 means the width that the titles need.
QWidget* segmentedPicker(Store& store, std::string_view name, const Segments& segments,
                         const Reader<int>& selected, const Action<int>& select, int width, SegmentLook look);

/// A segment for each case of the enumeration that `read` returns, with its title.
template <typename Read, typename Set>
QWidget* segmentedPicker(Store& store, std::string_view name, Read read, const Set& set, int width,
                         SegmentLook look = SegmentLook::even) {
    using State = StateOf<Read>;
    using E = std::remove_cvref_t<std::invoke_result_t<Read, const State&>>;
    Segments segments;
    for (const auto value : allCases<E>) {
        segments.titles.emplace_back(title(value));
        if constexpr (requires { icon(value); }) {
            if (look == SegmentLook::withIcons)
                segments.icons.emplace_back(icon(value));
        }
    }
    const auto selected = [read](const State& state) { return static_cast<int>(std::invoke(read, state)); };
    const auto select = [set = Action<E>(set).on(store)](int index) { set(static_cast<E>(index)); };
    return segmentedPicker(store, name, segments, selected, select, width, look);
}

} // namespace korvane
