#include "Views/Tools/HashGeneratorView.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

using HashGenerator::HashAlgorithm;
using HashGenerator::HashResult;
using enum HashGenerator::HashAlgorithm;

struct HashGeneratorViewTest : testing::Test {
    FakeServices fakes{};
    HashGeneratorView view{};
    Context<HashGeneratorView> context{fakes.services, [this](const auto& change) { change(view); }};

    void type(std::string text) { view.setInputText(std::move(text), context); }

    static std::string large(char character) { return std::string(maxImmediateSize + 1, character); }
};

TEST_F(HashGeneratorViewTest, StartsEmptyAndLive) {
    EXPECT_EQ(view.inputText, "");
    EXPECT_EQ(view.hashes, std::vector<HashResult>());
    EXPECT_EQ(view.selectedAlgorithm, std::nullopt);
    EXPECT_TRUE(view.liveUpdate);
    EXPECT_FALSE(view.hasStatistics());
    for (const auto algorithm : allCases<HashAlgorithm>)
        EXPECT_EQ(view.row(algorithm),
                  (HashResultRow{.algorithm = algorithm, .hash = "", .isSelected = false}));
}

TEST_F(HashGeneratorViewTest, HashesAsTextIsTyped) {
    type("abc");
    EXPECT_EQ(view.hashes, HashGenerator::allHashes("abc"));
    EXPECT_EQ(view.row(md5).hash, "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(view.row(md5).lengthText(), "32 chars");
    EXPECT_EQ(view.row(sha1).lengthText(), "40 chars");
    EXPECT_EQ(view.row(sha256).lengthText(), "64 chars");
    EXPECT_EQ(view.row(sha512).lengthText(), "128 chars");
}

TEST_F(HashGeneratorViewTest, AClearedTextHasDigests) {
    type("abc");
    type("");
    EXPECT_EQ(view.row(md5).hash, "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_FALSE(view.hasStatistics());
}

TEST_F(HashGeneratorViewTest, SettingTheSameTextChangesNothing) {
    type("");
    EXPECT_TRUE(view.hashes.empty());
}

TEST_F(HashGeneratorViewTest, WithoutLiveUpdateTypingLeavesTheDigests) {
    type("abc");
    view.setLiveUpdate(false);
    type("other");
    EXPECT_EQ(view.hashes, HashGenerator::allHashes("abc"));
    EXPECT_EQ(view.statistics(), "5 characters • 5 bytes");
    view.generateAll(context);
    EXPECT_EQ(view.hashes, HashGenerator::allHashes("other"));
}

TEST_F(HashGeneratorViewTest, TurningLiveUpdateOnHashesAtTheNextChange) {
    view.setLiveUpdate(false);
    type("abc");
    view.setLiveUpdate(true);
    EXPECT_TRUE(view.hashes.empty());
    type("abcd");
    EXPECT_EQ(view.hashes, HashGenerator::allHashes("abcd"));
}

TEST_F(HashGeneratorViewTest, GeneratesDigestsOfTheEmptyText) {
    view.generateAll(context);
    EXPECT_EQ(view.hashes, HashGenerator::allHashes(""));
}

TEST_F(HashGeneratorViewTest, MarksTheRowClickedLast) {
    view.select(sha1);
    view.select(sha1);
    EXPECT_TRUE(view.row(sha1).isSelected);
    view.select(sha512);
    EXPECT_FALSE(view.row(sha1).isSelected);
    EXPECT_TRUE(view.row(sha512).isSelected);
}

TEST_F(HashGeneratorViewTest, CountsCharactersAndBytes) {
    type("é");
    EXPECT_EQ(view.statistics(), "1 characters • 2 bytes");
    type("e\u0301👨‍👩‍👧\r\n");
    EXPECT_EQ(view.statistics(), "3 characters • 23 bytes");
    EXPECT_TRUE(view.hasStatistics());
}

TEST_F(HashGeneratorViewTest, NumbersHaveNoSeparators) {
    type(std::string(1'234'567, 'x'));
    fakes.background.runAll();
    EXPECT_EQ(view.statistics(), "1234567 characters • 1234567 bytes");
}

TEST_F(HashGeneratorViewTest, ALargeTextIsHashedAndCountedInTheBackground) {
    type(std::string(maxImmediateSize, 'x'));
    EXPECT_EQ(fakes.background.pendingCount(), 0U);
    type(large('y'));
    EXPECT_TRUE(view.hashes.empty()) << "the digests of another text are not shown";
    EXPECT_EQ(view.statistics(), "… characters • 262145 bytes");
    fakes.background.runAll();
    EXPECT_EQ(view.hashes, HashGenerator::allHashes(large('y')));
    EXPECT_EQ(view.statistics(), "262145 characters • 262145 bytes");
    EXPECT_FALSE(view.hashing.isRunning());
}

TEST_F(HashGeneratorViewTest, ARowShowsItsLengthWhileADigestIsComputed) {
    EXPECT_FALSE(view.row(sha1).showsLength());
    EXPECT_EQ(view.row(sha1).prompt(), "Enter text to generate hash");
    type(large('x'));
    EXPECT_TRUE(view.row(sha1).isComputing);
    EXPECT_FALSE(view.row(sha1).hasHash());
    EXPECT_TRUE(view.row(sha1).showsLength());
    EXPECT_EQ(view.row(sha1).lengthText(), "40 chars");
    EXPECT_EQ(view.row(sha1).prompt(), "");
    fakes.background.runAll();
    EXPECT_FALSE(view.row(sha1).isComputing);
    EXPECT_TRUE(view.row(sha1).showsLength());
    view.setLiveUpdate(false);
    type(large('y'));
    EXPECT_FALSE(view.row(sha1).isComputing) << "only counted";
}

TEST_F(HashGeneratorViewTest, OnlyTheLastOfSeveralLargeTextsIsHashed) {
    type(large('x'));
    const auto stop = view.hashing.task->stopToken();
    type(large('y'));
    EXPECT_TRUE(stop.stop_requested());
    fakes.background.runAll();
    EXPECT_EQ(view.hashes, HashGenerator::allHashes(large('y')));
}

TEST_F(HashGeneratorViewTest, ASmallTextDoesNotWaitForALargeOne) {
    type(large('x'));
    type("abc");
    EXPECT_EQ(view.hashes, HashGenerator::allHashes("abc"));
    fakes.background.runAll();
    EXPECT_EQ(view.hashes, HashGenerator::allHashes("abc"));
    EXPECT_EQ(view.statistics(), "3 characters • 3 bytes");
}

TEST_F(HashGeneratorViewTest, WithoutLiveUpdateTypingDoesNotCancelARequestedGeneration) {
    view.setLiveUpdate(false);
    type(large('x'));
    EXPECT_FALSE(view.hashing.isRunning());
    view.generateAll(context);
    type("abc");
    fakes.background.runAll();
    EXPECT_EQ(view.hashes, HashGenerator::allHashes(large('x'))) << "as if they had been computed at once";
}

TEST_F(HashGeneratorViewTest, HasItsTextsAndColours) {
    EXPECT_EQ(HashGeneratorView::footer,
              "All hashing is done locally using Apple's CryptoKit framework. No data leaves your device.");
    EXPECT_EQ(HashResultRow::placeholder, "Enter text to generate hash");
    EXPECT_EQ(color(md5), PaletteColor::red);
    EXPECT_EQ(color(sha1), PaletteColor::orange);
    EXPECT_EQ(color(sha256), PaletteColor::green);
    EXPECT_EQ(color(sha512), PaletteColor::blue);
}

} // namespace
} // namespace korvane
