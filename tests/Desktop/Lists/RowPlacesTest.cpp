#include "Desktop/Lists/RowPlaces.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>

namespace korvane {
namespace {

void expectPlace(const RowPlaces& places, int row, int top, int height) {
    EXPECT_EQ(places.of(row).top, top) << row;
    EXPECT_EQ(places.of(row).height, height) << row;
    EXPECT_EQ(places.nearest(top), row);
    EXPECT_EQ(places.nearest(top + height - 1), row);
}

TEST(RowPlacesTest, EvenRowsLieOneBelowTheOther) {
    const auto places = evenRows(1'000'000, 20);
    EXPECT_EQ(places.height, 20'000'000);
    expectPlace(places, 0, 0, 20);
    expectPlace(places, 123'456, 2'469'120, 20);
    EXPECT_EQ(places.nearest(-100), 0);
    EXPECT_EQ(places.nearest(20'000'000), 999'999);
    EXPECT_EQ(evenRows(0, 20).height, 0);
}

TEST(RowPlacesTest, StackedRowsHaveHeightsOfTheirOwn) {
    const std::array heights{40, 91, 40};
    const auto places =
        stackedRows(3, 40, [&](int row) { return heights.at(static_cast<std::size_t>(row)); });
    EXPECT_EQ(places.height, 171);
    EXPECT_EQ(places.line, 40);
    expectPlace(places, 0, 0, 40);
    expectPlace(places, 1, 40, 91);
    expectPlace(places, 2, 131, 40);
    EXPECT_EQ(places.nearest(-1), 0);
    EXPECT_EQ(places.nearest(171), 2);
    EXPECT_EQ(stackedRows(0, 40, nullptr).height, 0);
}

} // namespace
} // namespace korvane
