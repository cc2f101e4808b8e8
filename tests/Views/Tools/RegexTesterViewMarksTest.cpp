#include "Views/Tools/RegexTesterView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace korvane {
namespace {

RegexTesterView searched(std::string pattern, std::string text) {
    RegexTesterView state;
    perform(state, &RegexTesterView::setPattern, std::move(pattern));
    perform(state, &RegexTesterView::setTestString, std::move(text));
    return state;
}

TEST(RegexTesterViewMarks, MarksEveryMatch) {
    auto state = searched("a", "abca");
    EXPECT_EQ(state.matchMarks, TextMarks({{0, 1, TextMarkKind::oddMatch}, {3, 4, TextMarkKind::evenMatch}}));
    EXPECT_TRUE(state.selectedMarks.empty());
    perform(state, &RegexTesterView::setPattern, "(");
    EXPECT_TRUE(state.matchMarks.empty());
}

TEST(RegexTesterViewMarks, SelectingALineShowsItInTheText) {
    auto state = searched("(b)c", "abc bc");
    state.selectLine(2);
    EXPECT_EQ(state.selectedLine, 2U);
    EXPECT_EQ(state.selectedMarks,
              TextMarks({{4, 6, TextMarkKind::selectedMatch}, {4, 5, TextMarkKind::group1}}));
    EXPECT_EQ(state.shownPlace, (TextPlace{.selection = {4, 4}, .request = 1}));
    state.selectLine(2);
    EXPECT_EQ(state.shownPlace.request, 1U) << "it is shown already";
    state.selectLine(4);
    EXPECT_EQ(state.selectedLine, 2U) << "there is no such line";
    perform(state, &RegexTesterView::setTestString, "abc");
    EXPECT_EQ(state.selectedLine, std::nullopt);
    EXPECT_TRUE(state.selectedMarks.empty());
}

TEST(RegexTesterViewMarks, TheCaretSelectsItsMatch) {
    auto state = searched("bc", "abc bc");
    state.selectAt({5, 5});
    EXPECT_EQ(state.selectedLine, 1U);
    EXPECT_EQ(state.selectedMarks, TextMarks({{4, 6, TextMarkKind::selectedMatch}}));
    EXPECT_EQ(state.shownPlace, TextPlace()) << "the user is there";
    state.selectAt({0, 0});
    EXPECT_EQ(state.selectedLine, std::nullopt);
    state.selectAt({4, 5});
    EXPECT_EQ(state.selectedLine, std::nullopt) << "the user selects text";
}

TEST(RegexTesterViewMarks, MatchesOfAnEarlierTextAreNotShownInIt) {
    auto state = searched("bc", "abc bc");
    state.setLiveUpdate(false);
    perform(state, &RegexTesterView::setTestString, "another text");
    state.selectLine(1);
    EXPECT_EQ(state.selectedLine, 1U);
    EXPECT_TRUE(state.selectedMarks.empty());
    EXPECT_EQ(state.shownPlace, TextPlace());
    state.selectAt({5, 5});
    EXPECT_EQ(state.selectedLine, std::nullopt);
}

} // namespace
} // namespace korvane
