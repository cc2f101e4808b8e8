#include "Views/Tools/RegexTesterView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <set>

namespace korvane {
namespace {

using namespace std::chrono_literals;
using Panel = RegexTesterView::MatchesPanel;

class RegexTesterViewTest : public testing::Test {
protected:
    FakeServices fakes{};
    std::optional<RegexTesterView> state{RegexTesterView{}};
    Context<RegexTesterView> context{fakes.services,
                                     [this](const std::function<void(RegexTesterView&)>& change) {
                                         if (state)
                                             change(*state);
                                     }};

    void search(std::string pattern, std::string text) {
        state->setPattern(std::move(pattern), context);
        state->setTestString(std::move(text), context);
    }

    std::vector<std::string> fullMatches() const {
        std::vector<std::string> texts;
        for (std::size_t index = 0; index < state->matches.size(); ++index)
            texts.emplace_back(state->matches[index].fullMatch);
        return texts;
    }

    bool isPending() const { return fakes.background.pendingCount() > 0; }
};

using Texts = std::vector<std::string>;
using Groups = std::vector<std::string_view>;

/// A text large enough to be searched in the background: `x` and many lines without one.
std::string longText() {
    std::string text = "x";
    while (text.size() < 10'000)
        text += "\nsome words";
    return text;
}

constexpr auto hostilePattern = "(a+)+$";

std::string hostileText() {
    return std::string(50, 'a') + "b";
}

TEST_F(RegexTesterViewTest, StartsEmptyLiveAndCaseSensitive) {
    EXPECT_EQ(state->pattern, "");
    EXPECT_EQ(state->testString, "");
    EXPECT_EQ(state->replacement, "");
    EXPECT_TRUE(state->matches.empty());
    EXPECT_EQ(state->replacedText, "");
    EXPECT_FALSE(state->errorMessage);
    EXPECT_TRUE(state->liveUpdate);
    EXPECT_TRUE(state->caseSensitive);
    EXPECT_FALSE(state->showReplacement);
    EXPECT_EQ(state->matchesPanel(), Panel::prompt);
}

TEST_F(RegexTesterViewTest, SearchesAreCaseSensitiveUnlessSwitchedOff) {
    search("a", "AaA");
    EXPECT_EQ(state->matchCount(), "1 match found");
    state->setCaseSensitive(false, context);
    EXPECT_EQ(state->matchCount(), "3 matches found");
    EXPECT_EQ(fullMatches(), (Texts{"A", "a", "A"}));
}

TEST_F(RegexTesterViewTest, AMatchHasItsRangeAndTheGroupsThatMatched) {
    search("(a)|(b)", "b");
    ASSERT_EQ(state->matches.size(), 1);
    const auto match = state->matches[0];
    EXPECT_EQ(match.fullMatch, "b");
    EXPECT_EQ(match.range, (RegularExpression::TextRange{0, 1}));
    EXPECT_EQ(match.groups, Groups{"b"});
}

TEST_F(RegexTesterViewTest, ZeroLengthMatchesAreListed) {
    search("x*", "ab");
    EXPECT_EQ(state->matchCount(), "3 matches found");
    EXPECT_EQ(fullMatches(), (Texts{"", "", ""}));
}

TEST_F(RegexTesterViewTest, EachMatchOfEachRunHasAUniqueIdentifier) {
    search("(a)", "aaa");
    std::set<UUID> ids;
    for (int run = 0; run < 2; ++run) {
        for (std::size_t index = 0; index < 3; ++index)
            ids.insert(state->matches[index].id);
        state->runRegex(context);
    }
    EXPECT_EQ(ids.size(), 6);
}

TEST_F(RegexTesterViewTest, AnInvalidPatternShowsAnErrorUntilItIsCorrected) {
    search("a", "a(a");
    state->setReplacement("b", context);
    state->setPattern("(", context);
    EXPECT_EQ(state->errorMessage, "Invalid regex: Incorrectly nested parentheses at character 1.");
    EXPECT_TRUE(state->matches.empty());
    EXPECT_EQ(state->replacedText, "");
    EXPECT_EQ(state->matchesPanel(), Panel::noMatches);
    state->setPattern("(a)", context);
    EXPECT_FALSE(state->errorMessage);
    EXPECT_EQ(fullMatches(), (Texts{"a", "a"}));
}

TEST_F(RegexTesterViewTest, EmptyPatternOrTextIsNoError) {
    search("(", "");
    EXPECT_FALSE(state->hasError());
    EXPECT_EQ(state->matchesPanel(), Panel::prompt);
    state->setTestString("text", context);
    EXPECT_TRUE(state->hasError());
    state->setPattern("", context);
    EXPECT_FALSE(state->hasError());
    EXPECT_EQ(state->matchesPanel(), Panel::prompt);
    state->setPattern("t", context);
    EXPECT_EQ(state->matchesPanel(), Panel::list);
    state->setTestString("", context);
    EXPECT_TRUE(state->matches.empty());
    EXPECT_EQ(state->matchesPanel(), Panel::prompt);
}

TEST_F(RegexTesterViewTest, AReplacementFollowsPatternTextAndCase) {
    state->setReplacement("$2 $1", context);
    EXPECT_EQ(state->replacedText, "");
    search(R"((\w+)-(\w+))", "left-right and up-down");
    EXPECT_EQ(state->replacedText, "right left and down up");
    state->setReplacement("\\1", context);
    EXPECT_EQ(state->replacedText, "1 and 1");
    state->setPattern("LEFT", context);
    EXPECT_EQ(state->replacedText, "left-right and up-down");
    state->setCaseSensitive(false, context);
    EXPECT_EQ(state->replacedText, "1-right and up-down");
    state->setTestString("left", context);
    EXPECT_EQ(state->replacedText, "1");
    state->setReplacement("", context);
    EXPECT_EQ(state->replacedText, "");
    EXPECT_EQ(state->matches.size(), 1);
}

TEST_F(RegexTesterViewTest, ReplacingKeepsMatchesAndTheirIdentifiers) {
    search("a", "aa");
    const auto before = state->matches;
    state->setReplacement("b", context);
    EXPECT_EQ(state->replacedText, "bb");
    EXPECT_EQ(state->matches, before);
}

TEST_F(RegexTesterViewTest, WithoutLiveUpdateOnlyTestSearches) {
    state->setLiveUpdate(false);
    search("a", "aAa");
    state->setReplacement("b", context);
    EXPECT_TRUE(state->matches.empty());
    EXPECT_EQ(state->replacedText, "");
    EXPECT_EQ(state->matchesPanel(), Panel::noMatches);
    state->runRegex(context);
    EXPECT_EQ(state->matches.size(), 2);
    EXPECT_EQ(state->replacedText, "bAb");
    state->setCaseSensitive(false, context);
    state->setReplacement("c", context);
    state->setTestString("other", context);
    EXPECT_EQ(fullMatches(), (Texts{"a", "a"}));
    EXPECT_EQ(state->replacedText, "bAb");
    state->runRegex(context);
    EXPECT_TRUE(state->matches.empty());
    EXPECT_EQ(state->replacedText, "other");
}

TEST_F(RegexTesterViewTest, SwitchingLiveUpdateOnSearchesAtTheNextChange) {
    state->setLiveUpdate(false);
    search("a", "aa");
    state->runRegex(context);
    state->setPattern("b", context);
    state->setTestString("bbb", context);
    state->setLiveUpdate(true);
    EXPECT_EQ(fullMatches(), (Texts{"a", "a"}));
    // The replacement uses the fields, the list shows the last run.
    state->setReplacement("-", context);
    EXPECT_EQ(state->replacedText, "---");
    EXPECT_EQ(fullMatches(), (Texts{"a", "a"}));
    state->setPattern("(", context);
    EXPECT_TRUE(state->hasError());
}

TEST_F(RegexTesterViewTest, AReplacementReportsNoInvalidPattern) {
    state->setLiveUpdate(false);
    search("(", "text");
    state->setLiveUpdate(true);
    state->setReplacement("x", context);
    EXPECT_EQ(state->replacedText, "");
    EXPECT_FALSE(state->hasError());
}

TEST_F(RegexTesterViewTest, ALongTextIsSearchedInTheBackground) {
    search("x|words$", longText());
    EXPECT_TRUE(isPending());
    EXPECT_EQ(state->matchesPanel(), Panel::prompt);
    fakes.background.runAll();
    EXPECT_EQ(fullMatches(), (Texts{"x", "words"}));
    EXPECT_FALSE(state->matching);
}

TEST_F(RegexTesterViewTest, TheOldResultStaysFor150MillisecondsToAvoidFlicker) {
    search("x", longText());
    fakes.background.runAll();
    state->setPattern("words$", context);
    EXPECT_EQ(fullMatches(), Texts{"x"});
    fakes.timers.advance(149ms);
    EXPECT_EQ(fullMatches(), Texts{"x"});
    fakes.timers.advance(1ms);
    EXPECT_EQ(state->matchesPanel(), Panel::busy);
    EXPECT_TRUE(state->matches.empty());
    fakes.background.runAll();
    EXPECT_EQ(fullMatches(), Texts{"words"});
    EXPECT_FALSE(state->isBusy);
}

TEST_F(RegexTesterViewTest, AResultInTimeDoesNotShowAsBusy) {
    search("x", longText());
    fakes.background.runAll();
    fakes.timers.advance(1s);
    EXPECT_EQ(fullMatches(), Texts{"x"});
    EXPECT_FALSE(state->isBusy);
}

TEST_F(RegexTesterViewTest, NoMatchesStaysWhileTheNextPatternIsSearched) {
    search("y", longText());
    fakes.background.runAll();
    EXPECT_EQ(state->matchesPanel(), Panel::noMatches);
    state->setPattern("yy", context);
    EXPECT_EQ(state->matchesPanel(), Panel::noMatches);
    state->setPattern("(", context);
    fakes.background.runAll();
    EXPECT_EQ(state->matchesPanel(), Panel::noMatches);
    state->setPattern("(y", context);
    EXPECT_EQ(state->matchesPanel(), Panel::noMatches);
}

TEST_F(RegexTesterViewTest, OnlyTheResultForTheLastInputsIsShown) {
    search("x", longText());
    state->setPattern("some$", context);
    state->setPattern("words$", context);
    fakes.background.runAll();
    EXPECT_EQ(fullMatches(), Texts{"words"});
}

TEST_F(RegexTesterViewTest, AShortSearchDropsTheResultOfALongOne) {
    search("x", longText());
    state->setTestString("xx", context);
    EXPECT_EQ(fullMatches(), (Texts{"x", "x"}));
    fakes.background.runAll();
    EXPECT_EQ(fullMatches(), (Texts{"x", "x"}));
}

TEST_F(RegexTesterViewTest, EmptyingAFieldCancelsTheSearch) {
    search("x", longText());
    fakes.timers.advance(1s);
    EXPECT_TRUE(state->isBusy);
    const auto stop = state->matching->stopToken();
    state->setPattern("", context);
    EXPECT_TRUE(stop.stop_requested());
    EXPECT_EQ(state->matchesPanel(), Panel::prompt);
    fakes.background.runAll();
    EXPECT_TRUE(state->matches.empty());
}

TEST_F(RegexTesterViewTest, AResultOfTestIsShownAfterTheFieldsHaveChanged) {
    state->setLiveUpdate(false);
    search("x", longText());
    state->runRegex(context);
    state->setPattern("some", context);
    fakes.background.runAll();
    EXPECT_EQ(fullMatches(), Texts{"x"});
}

TEST_F(RegexTesterViewTest, ALongReplacementIsComputedInTheBackground) {
    search("x", longText());
    fakes.background.runAll();
    const auto before = state->matches;
    state->setReplacement("y", context);
    EXPECT_TRUE(state->replacing);
    EXPECT_EQ(state->replacedText, "");
    state->setReplacement("z", context);
    fakes.background.runAll();
    EXPECT_EQ(state->replacedText, "z" + longText().substr(1));
    EXPECT_EQ(state->matches, before);
    state->setReplacement("", context);
    EXPECT_EQ(state->replacedText, "");
}

TEST_F(RegexTesterViewTest, EmptyingTheReplacementDropsItsResult) {
    search("x", longText());
    fakes.background.runAll();
    state->setReplacement("y", context);
    state->setReplacement("", context);
    fakes.background.runAll();
    EXPECT_EQ(state->replacedText, "");
}

TEST_F(RegexTesterViewTest, AReplacementChangedDuringASearchIsApplied) {
    state->setReplacement("y", context);
    search("x", longText());
    state->setReplacement("z", context);
    fakes.background.runAll();
    EXPECT_EQ(state->replacedText, "z" + longText().substr(1));
    EXPECT_EQ(fullMatches(), Texts{"x"});
}

TEST_F(RegexTesterViewTest, AHostilePatternEndsWithAMessageAndTheMatchesFound) {
    state->setReplacement("y", context);
    search(std::string("(;)|") + hostilePattern, ";" + hostileText());
    EXPECT_TRUE(isPending());
    EXPECT_FALSE(state->hasError());
    fakes.background.runAll();
    EXPECT_EQ(state->errorMessage, "Matching stopped: the pattern takes too long on this text");
    EXPECT_EQ(fullMatches(), Texts{";"});
    EXPECT_EQ(state->replacedText, ""); // a partial replacement would look complete
    state->setReplacement("z", context);
    EXPECT_EQ(state->replacedText, "");
}

TEST_F(RegexTesterViewTest, AStoppedSearchDoesNotShowNoMatches) {
    search(hostilePattern, hostileText());
    fakes.background.runAll();
    EXPECT_TRUE(state->matches.empty());
    EXPECT_EQ(state->matchesPanel(), Panel::stopped);
    EXPECT_EQ(RegexTesterView::message(Panel::stopped), "Matching stopped");
    state->setPattern("x", context);
    EXPECT_EQ(state->matchesPanel(), Panel::noMatches);
}

TEST_F(RegexTesterViewTest, OnlyTheMessageOfAnErrorIsAnnounced) {
    search("b", "a");
    EXPECT_EQ(state->announcedMessage(), "No matches found");
    state->setPattern("(", context);
    EXPECT_EQ(state->announcedMessage(), "");
    state->setPattern("a", context);
    EXPECT_EQ(state->announcedMessage(), "1 match found");
    search(hostilePattern, hostileText());
    fakes.background.runAll();
    EXPECT_EQ(state->announcedMessage(), "");
    state->setTestString("", context);
    EXPECT_EQ(state->announcedMessage(), "Enter a pattern and test string");
}

TEST_F(RegexTesterViewTest, APatternThatIsSlowToCompileIsSearchedInTheBackground) {
    search(R"([\p{L}][\p{L}][\p{L}])", "abc");
    EXPECT_TRUE(isPending());
    fakes.background.runAll();
    EXPECT_EQ(fullMatches(), Texts{"abc"});
    search("[a-c]{3}|" + std::string(250, 'x'), "abcc");
    EXPECT_TRUE(isPending());
}

TEST_F(RegexTesterViewTest, MatchesStayReadableWhenTheTextChanges) {
    search("a+", "baab");
    state->setLiveUpdate(false);
    state->setTestString("", context);
    EXPECT_EQ(fullMatches(), Texts{"aa"});
}

TEST_F(RegexTesterViewTest, CancellingStopsTheSearchAndSaysSo) {
    search(hostilePattern, hostileText());
    ASSERT_TRUE(isPending());
    fakes.timers.advance(std::chrono::seconds(1));
    EXPECT_TRUE(state->isBusy);
    state->cancel();
    EXPECT_FALSE(state->matching);
    EXPECT_FALSE(state->isBusy);
    EXPECT_EQ(state->announcedMessage(), "Matching stopped");
    fakes.background.runAll();
    EXPECT_EQ(state->announcedMessage(), "Matching stopped");
    search("a", "a");
    EXPECT_EQ(fullMatches(), Texts{"a"});
    state->cancel();
    EXPECT_EQ(fullMatches(), Texts{"a"}) << "there was nothing to cancel";
}

} // namespace
} // namespace korvane
