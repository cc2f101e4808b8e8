#include "Utilities/Text/TextMarks.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace korvane {

void PrintTo(const TextMark& mark, std::ostream* out) {
    *out << '[' << mark.from << ", " << mark.to << ')';
}

namespace {

using Marks = std::vector<TextMark>;

TEST(TextMarks, FindsWhatReachesIntoARange) {
    const TextMarks marks(Marks{{2, 4}, {4, 6}, {6, 6}, {9, 12}});
    EXPECT_EQ(marks.in(0, 2), Marks{});
    EXPECT_EQ(marks.in(3, 4), (Marks{{2, 4}}));
    EXPECT_EQ(marks.in(4, 6), (Marks{{4, 6}, {6, 6}}));
    EXPECT_EQ(marks.in(6, 9), (Marks{{6, 6}}));
    EXPECT_EQ(marks.in(11, 100), (Marks{{9, 12}}));
    EXPECT_EQ(marks.in(12, 100), Marks{});
}

TEST(TextMarks, FindsAMarkAroundOthers) {
    const TextMarks marks(Marks{{1, 2}, {0, 100}, {50, 51}, {60, 61}});
    EXPECT_EQ(marks.in(55, 65), (Marks{{0, 100}, {60, 61}}));
}

TEST(TextMarks, MoveWithTheirText) {
    TextMarks marks(Marks{{0, 2}, {4, 6}, {8, 10}});
    marks.apply({.offset = 5, .removed = 0, .inserted = 3});
    EXPECT_EQ(marks.in(0, 100), (Marks{{0, 2}, {11, 13}}));
    marks.apply({.offset = 3, .removed = 5, .inserted = 1});
    EXPECT_EQ(marks.in(0, 100), (Marks{{0, 2}, {7, 9}}));
}

TEST(TextMarks, AreDroppedWhereAnEditTouchesThem) {
    for (const TextChange change : {TextChange{2, 0, 1}, TextChange{4, 0, 1}, TextChange{3, 0, 1},
                                    TextChange{0, 2, 0}, TextChange{4, 1, 0}, TextChange{0, 9, 9}}) {
        TextMarks marks(Marks{{2, 4}});
        marks.apply(change);
        EXPECT_TRUE(marks.empty()) << change.offset << ' ' << change.removed << ' ' << change.inserted;
    }
}

RC_GTEST_PROP(TextMarks, AgreeWithASearchOfAllMarks, ()) {
    Marks all;
    const auto count = *rc::gen::inRange(0, 40);
    for (int index = 0; index < count; ++index) {
        const auto from = *rc::gen::inRange<std::size_t>(0, 60);
        all.push_back({from, from + *rc::gen::inRange<std::size_t>(0, 12)});
    }
    TextMarks marks(all);
    std::ranges::stable_sort(all, {}, &TextMark::from);
    for (int step = 0; step < 5; ++step) {
        const TextChange change{*rc::gen::inRange<std::size_t>(0, 60), *rc::gen::inRange<std::size_t>(0, 8),
                                *rc::gen::inRange<std::size_t>(0, 8)};
        marks.apply(change);
        Marks moved;
        for (auto mark : all) {
            if (mark.to < change.offset)
                moved.push_back(mark);
            else if (mark.from > change.offset + change.removed)
                moved.push_back({mark.from + change.inserted - change.removed,
                                 mark.to + change.inserted - change.removed});
        }
        all = moved;
        const auto from = *rc::gen::inRange<std::size_t>(0, 60);
        const auto to = from + *rc::gen::inRange<std::size_t>(0, 20);
        Marks expected;
        std::ranges::copy_if(all, std::back_inserter(expected), [&](const TextMark& mark) {
            return mark.from == mark.to ? from <= mark.from && mark.from <= to
                                        : std::max(mark.from, from) < std::min(mark.to, to);
        });
        RC_ASSERT(marks.in(from, to) == expected);
    }
}

} // namespace
} // namespace korvane
