#include "Views/Components/FindView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

class FindViewTest : public testing::Test {
protected:
    FakeServices fakes{};
    FindView view{};
    Context<FindView> context{fakes.services,
                              [this](const std::function<void(FindView&)>& change) { change(view); }};

    void open(const Rope& text, TextSelection selection = {}) { view.open(text, selection, context); }

    void finish() { fakes.background.runAll(); }
};

TEST_F(FindViewTest, FindsWhileTyping) {
    open("one two one");
    EXPECT_EQ(view.countText(), "");
    view.setQuery("o", context);
    EXPECT_EQ(view.countText(), "1 of 3");
    view.setQuery("one", context);
    EXPECT_EQ(view.countText(), "1 of 2");
    EXPECT_EQ(view.shortCountText(), "1/2");
    EXPECT_EQ(view.hitMarks, TextMarks({{0, 3}, {8, 11}}));
    EXPECT_EQ(view.currentMarks, TextMarks({{0, 3, TextMarkKind::currentHit}}));
    view.setQuery("onex", context);
    EXPECT_EQ(view.countText(), "No results");
    EXPECT_TRUE(view.isWithoutHits());
    EXPECT_TRUE(view.hitMarks.empty());
    EXPECT_TRUE(view.currentMarks.empty());
}

TEST_F(FindViewTest, BeginsAtTheCaretAndWraps) {
    open("a b a b a", {4, 4});
    view.setQuery("a", context);
    EXPECT_EQ(view.countText(), "2 of 3");
    EXPECT_EQ(view.shownPlace.selection, (TextSelection{4, 4}));
    view.next();
    EXPECT_EQ(view.countText(), "3 of 3");
    view.next();
    EXPECT_EQ(view.countText(), "1 of 3");
    view.previous();
    EXPECT_EQ(view.countText(), "3 of 3");
    EXPECT_EQ(view.shownPlace.selection, (TextSelection{8, 8}));
}

TEST_F(FindViewTest, TakesAShortSelectionAsTheQuery) {
    open("one two one", {8, 11});
    EXPECT_EQ(view.query.text, "one");
    EXPECT_EQ(view.countText(), "2 of 2");
    view.close();
    open("a\nb", {0, 3});
    EXPECT_EQ(view.query.text, "one") << "the query stays";
    open(std::string(1000, 'x'), {0, 1000});
    EXPECT_EQ(view.query.text, "one");
}

TEST_F(FindViewTest, ClosingSelectsTheHitAndRemovesTheMarks) {
    open("one two one");
    view.setQuery("two", context);
    view.close();
    EXPECT_FALSE(view.isOpen);
    EXPECT_EQ(view.shownPlace.selection, (TextSelection{4, 7}));
    EXPECT_TRUE(view.shownPlace.takesFocus);
    EXPECT_TRUE(view.hitMarks.empty());
    EXPECT_TRUE(view.currentMarks.empty());
    view.setText("two", context);
    EXPECT_FALSE(view.hasHits()) << "a closed bar searches nothing";
}

TEST_F(FindViewTest, FollowsAnEditedText) {
    open("one two one");
    view.setQuery("one", context);
    view.next();
    view.setText("one one two one", context);
    EXPECT_EQ(view.countText(), "3 of 3") << "the first hit from where the last one was";
}

TEST_F(FindViewTest, SearchesALargeTextInTheBackground) {
    open(std::string(maxImmediateSize, '.') + "here");
    view.setQuery("here", context);
    EXPECT_EQ(view.countText(), "…");
    EXPECT_FALSE(view.isWithoutHits());
    finish();
    EXPECT_EQ(view.countText(), "1 of 1");
    view.setQuery("h", context);
    view.close();
    finish();
    EXPECT_FALSE(view.hasHits());
}

TEST_F(FindViewTest, PatternsAndTheirFaults) {
    open("a1 b22");
    view.setPattern(true, context);
    view.setQuery(R"(\d+)", context);
    finish();
    EXPECT_EQ(view.countText(), "1 of 2");
    view.setQuery("(", context);
    finish();
    EXPECT_EQ(view.countText(), "Invalid pattern");
    EXPECT_TRUE(view.errorMessage);
    view.setPattern(false, context);
    EXPECT_EQ(view.countText(), "No results");
    view.setQuery("B", context);
    EXPECT_EQ(view.countText(), "1 of 1");
    view.setCaseSensitive(true, context);
    EXPECT_EQ(view.countText(), "No results");
}

TEST_F(FindViewTest, AnnouncesThePlace) {
    open("one\n\u00e4 two");
    view.setQuery("two", context);
    EXPECT_EQ(view.announcement(), "1 of 1, line 2, column 3");
    view.setQuery("x", context);
    EXPECT_EQ(view.announcement(), "No results");
}

} // namespace
} // namespace korvane
