#include "Views/Tools/PasswordGeneratorView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

using namespace std::chrono_literals;

struct PasswordGeneratorViewTest : testing::Test {
    FakeServices fakes{};
    PasswordGeneratorView view{};
    Context<PasswordGeneratorView> context{fakes.services, [this](const auto& change) { change(view); }};

    std::vector<std::string> passwords() const {
        std::vector<std::string> result;
        std::ranges::transform(view.passwordHistory, std::back_inserter(result), &PasswordEntry::password);
        return result;
    }

    void includeNothing() {
        view.setIncludeUppercase(false);
        view.setIncludeLowercase(false);
        view.setIncludeNumbers(false);
        view.setIncludeSymbols(false);
    }
};

TEST_F(PasswordGeneratorViewTest, StartsWithItsDefaults) {
    EXPECT_EQ(view.currentPassword, "");
    EXPECT_TRUE(view.passwordHistory.empty());
    EXPECT_EQ(view.length, 16);
    EXPECT_TRUE(view.includeUppercase && view.includeLowercase && view.includeNumbers && view.includeSymbols);
    EXPECT_FALSE(view.excludeAmbiguous);
    EXPECT_EQ(view.bulkCount, 5);
}

TEST_F(PasswordGeneratorViewTest, AddsANewPasswordAtTheTop) {
    view.generatePassword(context);
    const auto first = view.currentPassword;
    EXPECT_EQ(first.size(), 16U);
    fakes.clock.moment += 1h;
    view.generatePassword(context);
    EXPECT_NE(view.currentPassword, first);
    EXPECT_EQ(passwords(), (std::vector{view.currentPassword, first}));
    EXPECT_EQ(view.passwordHistory[0].timestamp, fakes.clock.moment);
    EXPECT_EQ(view.passwordHistory[1].timestamp, fakes.clock.moment - 1h);
    EXPECT_NE(view.passwordHistory[0].id, view.passwordHistory[1].id);
    EXPECT_EQ(view.passwordHistory[0].strength, PasswordGenerator::calculateStrength(view.currentPassword));
}

TEST_F(PasswordGeneratorViewTest, DrawsFromTheChosenClasses) {
    struct Row {
        void (PasswordGeneratorView::*include)(bool);
        int (*isMember)(int);
    };

    constexpr Row rows[] = {
        {&PasswordGeneratorView::setIncludeUppercase, std::isupper},
        {&PasswordGeneratorView::setIncludeLowercase, std::islower},
        {&PasswordGeneratorView::setIncludeNumbers, std::isdigit},
        {&PasswordGeneratorView::setIncludeSymbols, std::ispunct},
    };
    view.setLength(128);
    for (const auto& row : rows) {
        includeNothing();
        (view.*row.include)(true);
        view.generatePassword(context);
        EXPECT_EQ(view.currentPassword.size(), 128U);
        EXPECT_TRUE(std::ranges::all_of(view.currentPassword, row.isMember)) << view.currentPassword;
    }
}

TEST_F(PasswordGeneratorViewTest, ExcludesAmbiguousCharacters) {
    view.setLength(128);
    view.setExcludeAmbiguous(true);
    for (int i = 0; i < 50; ++i) {
        view.generatePassword(context);
        EXPECT_EQ(view.currentPassword.find_first_of("0O1lI|"), std::string::npos) << view.currentPassword;
    }
}

TEST_F(PasswordGeneratorViewTest, ABulkShowsTheFirstPasswordDrawn) {
    view.generatePassword(context);
    const auto before = view.currentPassword;
    view.setBulkCount(4);
    view.generateBulk(context);
    ASSERT_EQ(view.passwordHistory.size(), 5U);
    EXPECT_EQ(view.currentPassword, view.passwordHistory[3].password);
    EXPECT_EQ(view.passwordHistory[4].password, before);
}

TEST_F(PasswordGeneratorViewTest, KeepsTheNewestFifty) {
    for (int i = 0; i < 50; ++i)
        view.generatePassword(context);
    EXPECT_EQ(view.passwordHistory.size(), 50U);
    const auto second = view.passwordHistory[48].password;
    view.generatePassword(context);
    EXPECT_EQ(view.passwordHistory.size(), 50U);
    EXPECT_EQ(view.passwordHistory.back().password, second) << "the oldest is removed";
}

TEST_F(PasswordGeneratorViewTest, ABulkOfFiftyReplacesTheHistory) {
    view.setBulkCount(50);
    view.generateBulk(context);
    const auto before = passwords();
    view.generateBulk(context);
    EXPECT_EQ(view.passwordHistory.size(), 50U);
    for (const auto& password : passwords())
        EXPECT_EQ(std::ranges::find(before, password), before.end());
    EXPECT_EQ(view.currentPassword, view.passwordHistory.back().password);
}

TEST_F(PasswordGeneratorViewTest, WithoutAClassTheEntryIsEmpty) {
    view.generatePassword(context);
    includeNothing();
    view.generatePassword(context);
    EXPECT_FALSE(view.hasPassword());
    ASSERT_EQ(view.passwordHistory.size(), 2U);
    EXPECT_EQ(view.passwordHistory[0].password, "");
    EXPECT_EQ(view.passwordHistory[0].strength, PasswordStrength::veryWeak);
    view.generateBulk(context);
    EXPECT_EQ(view.passwordHistory.size(), 7U);
    EXPECT_FALSE(view.hasPassword());
}

TEST_F(PasswordGeneratorViewTest, CopiesItsHistoryAsASecret) {
    view.passwordHistory = {{.password = "newest"}, {.password = ""}, {.password = "oldest"}};
    view.copyAllHistory(context);
    EXPECT_EQ(fakes.clipboard.content, "newest\n\noldest");
    EXPECT_TRUE(fakes.clipboard.isSecret);
    view.clearHistory();
    view.copyAllHistory(context);
    EXPECT_EQ(fakes.clipboard.content, "") << "an empty history replaces the clipboard's content";
}

TEST_F(PasswordGeneratorViewTest, ClearingTheHistoryKeepsTheCurrentPassword) {
    view.generatePassword(context);
    view.clearHistory();
    EXPECT_TRUE(view.hasPassword());
    EXPECT_FALSE(view.hasHistory());
}

TEST_F(PasswordGeneratorViewTest, LimitsLengthAndBulkCount) {
    struct Row {
        int requested;
        int length;
        int bulkCount;
    };

    constexpr Row rows[] = {{-1, 8, 1},   {7, 8, 7},      {8, 8, 8},     {50, 50, 50},
                            {51, 51, 50}, {128, 128, 50}, {129, 128, 50}};
    for (const auto& row : rows) {
        view.setLength(row.requested);
        view.setBulkCount(row.requested);
        EXPECT_EQ(view.length, row.length) << row.requested;
        EXPECT_EQ(view.bulkCount, row.bulkCount) << row.requested;
    }
}

TEST_F(PasswordGeneratorViewTest, ChangingAnOptionGeneratesNothing) {
    view.generatePassword(context);
    const auto before = view.currentPassword;
    view.setLength(20);
    includeNothing();
    view.setExcludeAmbiguous(true);
    view.setBulkCount(9);
    EXPECT_EQ(view.currentPassword, before);
    EXPECT_EQ(view.passwordHistory.size(), 1U);
}

TEST_F(PasswordGeneratorViewTest, DescribesThePassword) {
    view.currentPassword = "k7#Vq9!mZx2@Rw4L";
    EXPECT_EQ(view.strength(), PasswordStrength::veryStrong);
    EXPECT_EQ(view.entropyText(), "Entropy: 104 bits"); // of 104.9
    EXPECT_EQ(view.characterCountText(), "16 characters");
    EXPECT_EQ(view.lengthText(), "16");
    EXPECT_EQ(view.bulkTitle(), "Generate 5");
    EXPECT_EQ(view.historyTitle(), "History (0)");
    view.generatePassword(context);
    EXPECT_EQ(view.historyTitle(), "History (1)");
}

} // namespace
} // namespace korvane
