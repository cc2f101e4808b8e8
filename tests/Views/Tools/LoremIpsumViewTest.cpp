#include "Views/Tools/LoremIpsumView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>

namespace korvane {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view openingSentence = "Lorem ipsum dolor sit amet, consectetur adipiscing elit.";

TEST(LoremIpsumView, StartsWithItsDefaults) {
    const LoremIpsumView view;
    EXPECT_EQ(view.generationType, GenerationType::paragraphs);
    EXPECT_EQ(view.count, 3);
    EXPECT_TRUE(view.startWithLorem);
    EXPECT_FALSE(view.hasText());
    EXPECT_FALSE(view.copied);
    EXPECT_EQ(view.countLabel(), "Count: 3");
}

TEST(LoremIpsumView, GeneratesThreeParagraphs) {
    LoremIpsumView view;
    view.generate();
    EXPECT_TRUE(view.generatedText.starts_with(openingSentence));
    EXPECT_NE(view.generatedText.find(".\n\n"), std::string::npos);
    EXPECT_EQ(view.paragraphs().value, 3);
    EXPECT_GE(view.sentences().value, 9);
    EXPECT_LE(view.sentences().value, 21);
}

TEST(LoremIpsumView, GeneratesTheChosenTypeAndCount) {
    LoremIpsumView view;
    view.setGenerationType(GenerationType::words);
    view.setCount(2);
    view.generate();
    EXPECT_EQ(view.generatedText, "Lorem ipsum");
    EXPECT_EQ(view.words(), (StatPill{"Words", 2, PaletteColor::green}));
    EXPECT_EQ(view.sentences(), (StatPill{"Sentences", 0, PaletteColor::blue}));
    EXPECT_EQ(view.paragraphs(), (StatPill{"Paragraphs", 1, PaletteColor::purple}));
    EXPECT_EQ(view.characters(), (StatPill{"Characters", 11, PaletteColor::orange}));

    view.setGenerationType(GenerationType::sentences);
    view.setCount(1);
    view.generate();
    EXPECT_EQ(view.generatedText, openingSentence);
    view.setStartWithLorem(false);
    view.generate();
    EXPECT_FALSE(view.generatedText.starts_with(openingSentence));
    EXPECT_EQ(view.sentences().value, 1);
}

TEST(LoremIpsumView, GeneratesOnlyOnRequestAndDifferentlyEachTime) {
    LoremIpsumView view;
    view.setCount(4);
    view.setStartWithLorem(false);
    EXPECT_FALSE(view.hasText());
    view.generate();
    const auto text = view.generatedText;
    view.setGenerationType(GenerationType::words);
    view.setCount(5);
    view.setStartWithLorem(true);
    EXPECT_EQ(view.generatedText, text);
    view.setGenerationType(GenerationType::paragraphs);
    view.generate();
    EXPECT_NE(view.generatedText, text);
}

TEST(LoremIpsumView, LimitsTheCountToOneToAHundred) {
    LoremIpsumView view;
    view.setCount(0);
    EXPECT_EQ(view.countLabel(), "Count: 1");
    view.setCount(101);
    EXPECT_EQ(view.countLabel(), "Count: 100");
}

TEST(LoremIpsumView, CopiesAndShowsFeedbackForOneAndAHalfSeconds) {
    FakeServices fakes;
    LoremIpsumView view{.generatedText = "Lorem ipsum"};
    const Context<LoremIpsumView> context{fakes.services, [&view](const auto& change) { change(view); }};
    view.copy(context);
    EXPECT_EQ(fakes.clipboard.content, "Lorem ipsum");
    EXPECT_FALSE(fakes.clipboard.isSecret);
    EXPECT_TRUE(view.copied);
    fakes.timers.advance(1499ms);
    EXPECT_TRUE(view.copied);
    fakes.timers.advance(1ms);
    EXPECT_FALSE(view.copied);
}

TEST(LoremIpsumView, ClearRemovesTheTextAndKeepsTheCount) {
    LoremIpsumView view;
    view.generate();
    view.clear();
    EXPECT_FALSE(view.hasText());
    EXPECT_EQ(view.count, 3);
}

} // namespace
} // namespace korvane
