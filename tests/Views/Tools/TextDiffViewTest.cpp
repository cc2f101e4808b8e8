#include "Views/Tools/TextDiffView.h"

#include "Views/Tools/DiffLineView.h"
#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

using DiffEngine::DiffLine;
using DiffEngine::DiffLineType;
using ViewMode = TextDiffView::ViewMode;

class TextDiffViewTest : public testing::Test {
protected:
    FakeServices fakes{};
    TextDiffView view{};
    Context<TextDiffView> context{fakes.services,
                                  [this](const std::function<void(TextDiffView&)>& change) { change(view); }};

    void compare(std::string left, std::string right) {
        view.setLeftText(std::move(left));
        view.setRightText(std::move(right));
        view.compare(context);
    }

    std::vector<int> counts() const {
        return {view.added().value, view.removed().value, view.unchanged().value};
    }
};

/// The line ten thousand times, which is compared in the background.
std::string manyLines(std::string_view line) {
    std::string text(line);
    for (int number = 1; number < 10'000; ++number)
        text.append("\n").append(line);
    return text;
}

TEST_F(TextDiffViewTest, StartsEmptySideBySideAndWithCounts) {
    EXPECT_EQ(view.leftText, "");
    EXPECT_EQ(view.rightText, "");
    EXPECT_FALSE(view.hasResult());
    EXPECT_EQ(view.viewMode, ViewMode::sideBySide);
    EXPECT_TRUE(view.showStats);
    EXPECT_FALSE(view.showsCounts());
    EXPECT_FALSE(view.isBusy());
    EXPECT_EQ(view.similarity(), "");
}

TEST_F(TextDiffViewTest, CountsLinesAndShowsTheSimilarity) {
    struct Row {
        std::string_view name;
        std::string_view left;
        std::string_view right;
        std::vector<int> counts; ///< added, removed, unchanged
        std::string_view similarity;
    };

    std::string hundred = "0";
    for (int number = 1; number < 29; ++number)
        hundred += "\n" + std::to_string(number);
    const auto twentyNine = hundred;
    for (int number = 29; number < 100; ++number)
        hundred += "\n" + std::to_string(number);
    const std::vector<Row> rows = {
        {"an empty modified text", "a", "", {1, 1, 0}, "0% similar"},
        {"an empty original text", "", "a", {1, 1, 0}, "0% similar"},
        {"identical", "a\nb\nc", "a\nb\nc", {0, 0, 3}, "100% similar"},
        {"truncated, not rounded", "a\nb\n1\nc\nd", "a\nb\n2\nc\nd", {1, 1, 4}, "66% similar"},
        {"a quotient that floating point puts below the percentage",
         twentyNine,
         hundred,
         {71, 0, 29},
         "28% similar"},
    };
    for (const auto& row : rows) {
        view = {};
        compare(std::string(row.left), std::string(row.right));
        EXPECT_TRUE(view.showsCounts()) << row.name;
        EXPECT_EQ(counts(), row.counts) << row.name;
        EXPECT_EQ(view.similarity(), row.similarity) << row.name;
    }
}

TEST_F(TextDiffViewTest, ComparingTwoEmptyTextsDoesNothing) {
    view.compare(context);
    EXPECT_FALSE(view.hasResult());
    EXPECT_FALSE(view.showsCounts());

    compare("a", "b");
    const auto shown = view.diffResult;
    view.leftText.clear();
    view.rightText.clear();
    view.compare(context);
    EXPECT_EQ(view.diffResult, shown) << "the shown result stays";
}

TEST_F(TextDiffViewTest, EditingDoesNotCompare) {
    compare("a", "b");
    const auto shown = view.diffResult;
    view.setLeftText("b");
    EXPECT_EQ(view.diffResult, shown);
}

TEST_F(TextDiffViewTest, SwitchingTheModeDoesNotCompare) {
    compare("a", "b");
    const auto shown = view.diffResult;
    view.setViewMode(ViewMode::unified);
    EXPECT_FALSE(view.isSideBySide());
    EXPECT_EQ(view.diffResult, shown);
}

TEST_F(TextDiffViewTest, SwapExchangesTheTextsAndKeepsTheResult) {
    compare("a", "a\nb");
    const auto shown = view.diffResult;
    view.swap();
    EXPECT_EQ(view.leftText, "a\nb");
    EXPECT_EQ(view.rightText, "a");
    EXPECT_EQ(view.diffResult, shown);
    view.compare(context);
    EXPECT_EQ(counts(), (std::vector{0, 1, 1}));
}

TEST_F(TextDiffViewTest, ClearAllEmptiesTheTextsAndRemovesTheResult) {
    view.setViewMode(ViewMode::unified);
    compare("a", "b");
    view.clearAll();
    EXPECT_EQ(view, (TextDiffView{.viewMode = ViewMode::unified}));
}

TEST_F(TextDiffViewTest, HidesItsCountsWhenSwitchedOff) {
    compare("a", "b");
    view.showStats = false;
    EXPECT_FALSE(view.showsCounts());
}

TEST_F(TextDiffViewTest, ComparesLargeTextsInTheBackground) {
    compare(manyLines("same"), manyLines("same"));
    EXPECT_FALSE(view.hasResult());
    EXPECT_FALSE(view.isBusy()) << "not busy before the delay";
    fakes.background.runAll();
    EXPECT_EQ(counts(), (std::vector{0, 0, 10'000}));
    fakes.timers.advance(AwaitedWork::busyDelay);
    EXPECT_FALSE(view.isBusy());
}

TEST_F(TextDiffViewTest, ALongComparisonShowsAsBusy) {
    compare(manyLines("old"), manyLines("new"));
    fakes.timers.advance(AwaitedWork::busyDelay);
    EXPECT_TRUE(view.isBusy());
    view.compare(context);
    EXPECT_EQ(fakes.background.pendingCount(), 1) << "it runs already";
    fakes.background.runAll();
    EXPECT_FALSE(view.isBusy());
    EXPECT_TRUE(view.hasResult());
}

TEST_F(TextDiffViewTest, TheDelayRestartsWithEachComparison) {
    compare(manyLines("old"), manyLines("new"));
    fakes.timers.advance(AwaitedWork::busyDelay);
    view.swap();
    EXPECT_FALSE(view.isBusy());
    view.compare(context);
    EXPECT_FALSE(view.isBusy());
    fakes.timers.advance(AwaitedWork::busyDelay);
    EXPECT_TRUE(view.isBusy());
}

TEST_F(TextDiffViewTest, ChangingATextCancelsTheComparison) {
    struct Row {
        std::string_view name;
        std::function<void(TextDiffView&)> change;
    };

    const std::vector<Row> rows = {
        {"the original text", [](TextDiffView& state) { state.setLeftText("x"); }},
        {"the modified text", [](TextDiffView& state) { state.setRightText("x"); }},
        {"Swap", [](TextDiffView& state) { state.swap(); }},
        {"Clear All", [](TextDiffView& state) { state.clearAll(); }},
    };
    for (const auto& row : rows) {
        view = {};
        compare(manyLines("old"), manyLines("new"));
        const auto token = view.comparison.task->stopToken();
        row.change(view);
        EXPECT_TRUE(token.stop_requested()) << row.name;
        fakes.background.runAll();
        fakes.timers.advance(AwaitedWork::busyDelay);
        EXPECT_FALSE(view.hasResult()) << row.name;
        EXPECT_FALSE(view.isBusy()) << row.name;
    }
}

TEST_F(TextDiffViewTest, SettingTheSameTextChangesNothing) {
    compare(manyLines("old"), manyLines("new"));
    view.setLeftText(manyLines("old"));
    view.setRightText(manyLines("new"));
    fakes.background.runAll();
    EXPECT_TRUE(view.hasResult());
}

TEST(TextDiffViewTexts, HaveTheirWordingAndColors) {
    EXPECT_EQ(rawValue(ViewMode::sideBySide), "Side by Side");
    EXPECT_EQ(rawValue(ViewMode::unified), "Unified");
    const TextDiffView view{.diffResult = DiffEngine::compare("a\nb", "b\nc\nd")};
    EXPECT_EQ(view.added().text(), "Added: 2");
    EXPECT_EQ(view.removed().text(), "Removed: 1");
    EXPECT_EQ(view.unchanged().text(), "Unchanged: 1");
    EXPECT_EQ(view.added().color, PaletteColor::green);
    EXPECT_EQ(view.removed().color, PaletteColor::red);
    EXPECT_EQ(view.unchanged().color, std::nullopt);
}

TEST(DiffLineView, DescribesItsTypeInWords) {
    const auto description = [](DiffLineType type) {
        const DiffLine line{.lineNumber = 12, .content = "x y", .type = type};
        return DiffLineView{line}.description();
    };
    EXPECT_EQ(description(DiffLineType::unchanged), "12 x y");
    EXPECT_EQ(description(DiffLineType::added), "added 12 x y");
    EXPECT_EQ(description(DiffLineType::removed), "removed 12 x y");
}

TEST(DiffLineView, ShowsNumberPrefixAndColourByItsType) {
    struct Row {
        DiffLineType type;
        std::string_view prefix;
        std::optional<PaletteColor> color;
    };

    const std::vector<Row> rows = {
        {DiffLineType::unchanged, " ", std::nullopt},
        {DiffLineType::added, "+", PaletteColor::green},
        {DiffLineType::removed, "-", PaletteColor::red},
        {DiffLineType::modified, "~", PaletteColor::orange},
    };
    for (const auto& row : rows) {
        const DiffLine line{.lineNumber = 12, .content = "x", .type = row.type};
        const DiffLineView shown{.line = line, .showPrefix = true};
        EXPECT_EQ(shown.number(), "12");
        EXPECT_EQ(shown.prefix(), row.prefix);
        EXPECT_EQ(shown.color(), row.color);
        EXPECT_EQ((DiffLineView{.line = line, .showLineNumber = false}.number()), "");
        EXPECT_EQ((DiffLineView{.line = line}.prefix()), "");
    }
    const DiffLine filler{};
    EXPECT_EQ(DiffLineView{filler}.description(), "no line");
    EXPECT_EQ(DiffLineView{filler}.number(), "");
    EXPECT_TRUE(DiffLineView{filler}.isUnchanged());
}

} // namespace
} // namespace korvane
