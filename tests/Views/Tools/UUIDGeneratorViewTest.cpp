#include "Views/Tools/UUIDGeneratorView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view example = "7C9E6679-7425-40DE-944B-E07FC1F90AE7";

/// Whether `text` is a version 4 UUID in canonical form.
bool isCanonical(std::string_view text) {
    constexpr std::string_view form = "XXXXXXXX-XXXX-4XXX-VXXX-XXXXXXXXXXXX";
    const auto fits = [](char character, char place) {
        switch (place) {
        case 'X':
            return std::string_view("0123456789ABCDEF").contains(character);
        case 'V':
            return std::string_view("89AB").contains(character);
        default:
            return character == place;
        }
    };
    return std::ranges::equal(text, form, fits);
}

struct UUIDGeneratorViewTest : testing::Test {
    FakeServices fakes{};
    UUIDGeneratorView view{};
    Context<UUIDGeneratorView> context{fakes.services, [this](const auto& change) { change(view); }};

    UUIDGeneratorViewTest() { view.appear(context); }

    std::vector<std::string> values() const {
        std::vector<std::string> result;
        std::ranges::transform(view.uuidHistory, std::back_inserter(result), &UUIDEntry::value);
        return result;
    }
};

TEST_F(UUIDGeneratorViewTest, OpensWithOneUUIDInItsHistory) {
    EXPECT_TRUE(isCanonical(view.currentUUID)) << view.currentUUID;
    ASSERT_EQ(view.uuidHistory.size(), 1U);
    EXPECT_EQ(view.uuidHistory[0].value, view.currentUUID);
    EXPECT_EQ(view.uuidHistory[0].timestamp, fakes.clock.moment);
    EXPECT_EQ(view.bulkCount, 5);
    EXPECT_TRUE(view.uppercased);
    EXPECT_TRUE(view.includeHyphens);
    EXPECT_NE(UUIDGeneratorView().currentUUID, view.currentUUID) << "each screen has its own";
}

TEST_F(UUIDGeneratorViewTest, AddsANewUUIDAtTheTop) {
    const auto first = view.currentUUID;
    fakes.clock.moment += 1min;
    view.generateNew(context);
    EXPECT_TRUE(isCanonical(view.currentUUID)) << view.currentUUID;
    EXPECT_NE(view.currentUUID, first);
    EXPECT_EQ(values(), (std::vector{view.currentUUID, first}));
    EXPECT_EQ(view.uuidHistory[0].timestamp - view.uuidHistory[1].timestamp, 1min);
    EXPECT_NE(view.uuidHistory[0].id, view.uuidHistory[1].id);
}

TEST_F(UUIDGeneratorViewTest, ABulkShowsTheLastUUID) {
    const auto first = view.currentUUID;
    view.setBulkCount(3);
    view.generateBulk(context);
    ASSERT_EQ(view.uuidHistory.size(), 4U);
    EXPECT_EQ(view.currentUUID, view.uuidHistory.front().value);
    EXPECT_EQ(view.uuidHistory.back().value, first);
    EXPECT_TRUE(std::ranges::all_of(values(), isCanonical));
    auto sorted = values();
    std::ranges::sort(sorted);
    EXPECT_EQ(std::ranges::adjacent_find(sorted), sorted.end());
}

TEST_F(UUIDGeneratorViewTest, KeepsTheNewestHundred) {
    const auto first = view.currentUUID;
    for (int i = 0; i < 99; ++i)
        view.generateNew(context);
    EXPECT_EQ(view.uuidHistory.size(), 100U);
    EXPECT_EQ(view.uuidHistory.back().value, first);
    const auto second = view.uuidHistory[98].value;
    view.generateNew(context);
    EXPECT_EQ(view.uuidHistory.size(), 100U);
    EXPECT_EQ(view.uuidHistory.back().value, second);

    const auto before = values();
    view.setBulkCount(100);
    view.generateBulk(context);
    EXPECT_EQ(view.uuidHistory.size(), 100U);
    for (const auto& value : values())
        EXPECT_EQ(std::ranges::find(before, value), before.end()) << "a bulk of 100 replaces all";
}

TEST_F(UUIDGeneratorViewTest, FormatsInFourWays) {
    struct Row {
        bool uppercased;
        bool includeHyphens;
        std::string_view expected;
    };

    constexpr Row rows[] = {
        {true, true, example},
        {true, false, "7C9E6679742540DE944BE07FC1F90AE7"},
        {false, true, "7c9e6679-7425-40de-944b-e07fc1f90ae7"},
        {false, false, "7c9e6679742540de944be07fc1f90ae7"},
    };
    for (const auto& row : rows) {
        view.setUppercased(row.uppercased);
        view.setIncludeHyphens(row.includeHyphens);
        EXPECT_EQ(view.format(example), row.expected);
        EXPECT_EQ(view.formattedUUID(), view.format(view.currentUUID));
    }
}

TEST_F(UUIDGeneratorViewTest, SwitchingTheFormatKeepsTheStoredValues) {
    const auto before = view;
    view.setUppercased(false);
    view.setIncludeHyphens(false);
    EXPECT_EQ(view.uuidHistory, before.uuidHistory);
    EXPECT_EQ(view.currentUUID, before.currentUUID);
    view.setUppercased(true);
    view.setIncludeHyphens(true);
    EXPECT_EQ(view, before);
}

TEST_F(UUIDGeneratorViewTest, CopiesItsHistoryAsShown) {
    view.uuidHistory = {{.value = "AAAAAAAA-0000-4000-8000-000000000001"}, {.value = std::string(example)}};
    view.copyAllHistory(context);
    EXPECT_EQ(fakes.clipboard.content,
              "AAAAAAAA-0000-4000-8000-000000000001\n7C9E6679-7425-40DE-944B-E07FC1F90AE7");
    EXPECT_FALSE(fakes.clipboard.isSecret);
    view.setUppercased(false);
    view.setIncludeHyphens(false);
    view.copyAllHistory(context);
    EXPECT_EQ(fakes.clipboard.content, "aaaaaaaa000040008000000000000001\n7c9e6679742540de944be07fc1f90ae7");
    view.clearHistory();
    view.copyAllHistory(context);
    EXPECT_EQ(fakes.clipboard.content, "") << "an empty history replaces the clipboard's content";
}

TEST_F(UUIDGeneratorViewTest, ClearingTheHistoryKeepsTheCurrentUUID) {
    const auto current = view.currentUUID;
    view.clearHistory();
    EXPECT_FALSE(view.hasHistory());
    EXPECT_EQ(view.currentUUID, current);
}

TEST_F(UUIDGeneratorViewTest, LimitsTheCountToOneToAHundred) {
    view.setBulkCount(0);
    EXPECT_EQ(view.bulkCount, 1);
    view.setBulkCount(101);
    EXPECT_EQ(view.bulkCount, 100);
}

TEST_F(UUIDGeneratorViewTest, TitlesShowTheCounts) {
    EXPECT_EQ(view.bulkTitle(), "Generate 5");
    EXPECT_EQ(view.historyTitle(), "History (1)");
    view.setBulkCount(100);
    view.generateBulk(context);
    EXPECT_EQ(view.bulkTitle(), "Generate 100");
    EXPECT_EQ(view.historyTitle(), "History (100)");
    view.clearHistory();
    EXPECT_EQ(view.historyTitle(), "History (0)");
}

} // namespace
} // namespace korvane
