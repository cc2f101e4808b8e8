#include "Desktop/Lists/RowPlaces.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace korvane {

RowPlaces evenRows(int count, int height) {
    return {.of = [height](int row) { return RowSpan{row * height, height}; },
            .nearest = [count, height](int y) { return std::clamp(y / std::max(height, 1), 0, count - 1); },
            .height = count * height,
            .line = height};
}

RowPlaces stackedRows(int count, int line, const std::function<int(int row)>& height) {
    std::vector<int> tops{0};
    for (int row = 0; row < count; ++row)
        tops.push_back(tops.back() + height(row));
    const auto bottom = tops.back();
    const auto of = [tops](int row) {
        const auto place = tops.begin() + row;
        return RowSpan{*place, *(place + 1) - *place};
    };
    const auto nearest = [count, tops = std::move(tops)](int y) {
        const auto below = std::ranges::upper_bound(tops, y);
        return std::clamp(static_cast<int>(below - tops.begin()) - 1, 0, count - 1);
    };
    return {.of = of, .nearest = nearest, .height = bottom, .line = line};
}

} // namespace korvane
