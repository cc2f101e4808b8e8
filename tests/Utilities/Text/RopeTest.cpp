#include "Utilities/Text/Rope.h"

#include "support/RopePrinter.h"
#include "support/RopeProperties.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <ranges>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace korvane {
namespace {

using namespace std::string_view_literals;
using support::brokenRope;
using support::brokenRopeProperty;

std::string repeated(std::string_view piece, std::size_t size) {
    std::string text;
    while (text.size() < size)
        text += piece;
    return text;
}

/// Whether all of `view` is in `text`'s memory.
bool isIn(std::string_view text, std::string_view view) {
    const std::less_equal<const char*> isBefore;
    return isBefore(text.data(), view.data()) &&
           isBefore(view.data() + view.size(), text.data() + text.size());
}

/// How many of the bytes of `rope` are in `text`'s memory.
std::size_t sharedBytes(const Rope& rope, std::string_view text) {
    std::size_t shared = 0;
    for (const auto chunk : rope.chunks())
        shared += isIn(text, chunk) ? chunk.size() : 0;
    return shared;
}

TEST(Rope, ReadsAsSimplyAsAString) {
    Rope rope = "abc";
    EXPECT_EQ(rope, "abc");
    EXPECT_EQ("abc", rope);
    EXPECT_EQ(rope, "abc"sv);
    EXPECT_EQ(rope, std::string("abc"));
    EXPECT_EQ(rope, Rope("abc"));
    EXPECT_NE(rope, "abd");
    EXPECT_NE(rope, "ab");
    EXPECT_NE(rope, Rope("abd"));
    rope += "d"sv;
    EXPECT_EQ(rope + std::string("e"), "abcde");
    EXPECT_EQ(testing::PrintToString(rope), "\"abcd\"");
    rope = {};
    EXPECT_EQ(rope, "");
    EXPECT_EQ(rope, Rope());
}

TEST(Rope, AMovedFromRopeIsEmpty) {
    Rope rope = "abc";
    const auto moved = std::move(rope);
    EXPECT_EQ(moved, "abc");
    EXPECT_TRUE(rope.empty()); // NOLINT(bugprone-use-after-move)
}

TEST(Rope, ReplacesRangesOfItself) {
    const Rope rope = "Hello, world";
    EXPECT_EQ(rope.replacing(0, 0, "> "), "> Hello, world");
    EXPECT_EQ(rope.replacing(5, 12, ""), "Hello");
    EXPECT_EQ(rope.replacing(7, 12, rope), "Hello, Hello, world");
    EXPECT_EQ(rope.replacing(0, 12, {}), "");
    EXPECT_EQ(rope.substr(7), "world");
    EXPECT_EQ(rope.substr(0, 5), "Hello");
    EXPECT_EQ(rope.substr(12, 5), "");
    EXPECT_EQ(rope, "Hello, world");
}

TEST(Rope, AnswersForEveryTextOfATable) {
    for (const auto text : {""sv, "a"sv, "a\0b"sv, "a\r\nb\u0085c\u2028\u2029"sv, "é€😀\u0301"sv,
                            "\xF0\x9F\x98z"sv, "\xFF\xC0\x80\xED\xA0\x80"sv})
        EXPECT_EQ(brokenRope(text, text), "") << text;
}

TEST(Rope, FindsTheStartOfACharacterAroundAPosition) {
    const Rope rope = "a😀\u2028z";
    EXPECT_EQ(rope.byteOffset(2), 1U); // inside the surrogate pair
    EXPECT_EQ(rope.byteOffset(3), 5U);
    EXPECT_EQ(rope.utf16Offset(4), 1U);
    EXPECT_EQ(rope.newlinesBefore(7), 0U);
    EXPECT_EQ(rope.newlinesBefore(8), 1U);
    EXPECT_EQ(rope.afterNewline(1), 8U);
    EXPECT_EQ(rope.afterNewline(2), rope.size());
}

TEST(Rope, SeeksByAFunctionOfTheSummary) {
    const auto text = repeated("a line of some forty UTF-16 units, or so\n", 50'000);
    const Rope rope = text;
    const auto rows = [](const TextSummary& before) { return before.newlines + before.utf16Units / 16; };
    const auto summaries = support::naiveSummaries(text);
    for (std::size_t row = 0; row < rows(rope.summary()) + 2; row += 7) {
        const auto first = std::ranges::lower_bound(summaries, row, {}, rows);
        EXPECT_EQ(rope.seek(rows, row), first == summaries.end() ? summaries.back() : *first);
        EXPECT_EQ(rope.seekLast(rows, row), *(std::ranges::upper_bound(summaries, row, {}, rows) - 1));
    }
}

TEST(Rope, JoinsBytesOnTwoSidesOfAnEditToACharacter) {
    const Rope start = "x\xE2";
    EXPECT_FALSE(start.isValidUTF8());
    const auto joined = start + "\x80\xA8y";
    EXPECT_TRUE(joined.isValidUTF8());
    EXPECT_EQ(joined.newlineCount(), 1U);
    EXPECT_EQ(joined.utf16Size(), 3U);
    EXPECT_EQ(brokenRope(joined, "x\u2028y"), "");
    const auto separated = joined.replacing(2, 2, "-");
    EXPECT_EQ(brokenRope(separated, "x\xE2-\x80\xA8y"), "");
    EXPECT_EQ(brokenRope(separated.replacing(2, 3, ""), "x\u2028y"), "");
}

TEST(Rope, JoinsACharacterWhoseBytesAreInALeafEach) {
    // Full leaves are not merged with the single bytes beside them.
    const std::string full(RopeTree::maxLeafSize - 1, 'a');
    const auto bytes = Rope(full + '\x9F') + "\x98" + Rope('\x80' + full);
    const auto trailBytes = bytes.substr(full.size());
    ASSERT_EQ(std::ranges::distance(trailBytes.chunks()), 3);
    EXPECT_EQ(brokenRope(Rope(full + '\xF0') + trailBytes, full + "😀" + full), "");
    EXPECT_EQ(brokenRope(Rope(full + '\xE2') + trailBytes, full + "\xE2\x9F\x98\x80" + full), "");
    EXPECT_EQ(brokenRope(Rope(full + '\xC2') + trailBytes, full + "\xC2\x9F\x98\x80" + full), "");
}

TEST(Rope, IsCorrectAroundTheSizeOfALeaf) {
    for (const auto character : {"a"sv, "\n"sv, "é"sv, "\u2028"sv, "😀"sv, "\xF0\x9F\x98"sv, "\xFF"sv}) {
        for (auto size = RopeTree::maxLeafSize - 5; size <= RopeTree::maxLeafSize + 5; ++size) {
            const auto before = std::string(size, 'x');
            const auto text = before + std::string(character) + "z";
            ASSERT_EQ(brokenRope(text, text), "") << character << " at " << size;
            ASSERT_EQ(brokenRope(Rope(before) + character + "z", text), "") << character << " at " << size;
        }
    }
}

RC_GTEST_PROP(Rope, IsWhatTheStringIsAfterAnyEdits, ()) {
    const auto program = *rc::gen::container<std::string>(rc::gen::arbitrary<char>());
    RC_ASSERT(brokenRopeProperty(program) == "");
}

TEST(Rope, IsWhatTheStringIsAfterLongRandomEdits) {
    std::mt19937 random(5);
    for (int run = 0; run < 40; ++run) {
        std::string program(800, '\0');
        for (auto& byte : program)
            byte = static_cast<char>(random());
        ASSERT_EQ(brokenRopeProperty(program), "") << run;
    }
}

TEST(Rope, HoldsEveryPropertyOnTheFuzzSeeds) {
    int seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KORVANE_FUZZ_CORPUS "/Rope")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string program(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(brokenRopeProperty(program), "") << entry.path();
        ++seeds;
    }
    EXPECT_GT(seeds, 0);
}

TEST(Rope, TakesAStringOverWithoutACopy) {
    auto text = repeated("line\n", 1'000'000);
    const auto* const data = text.data();
    const Rope rope = std::move(text);
    ASSERT_TRUE(rope.contiguous());
    EXPECT_EQ(rope.contiguous()->data(), data);
    EXPECT_EQ(rope.contiguous()->size(), rope.size());
    EXPECT_EQ(std::ranges::distance(rope.chunks()), 1);
    const auto copy = rope;
    EXPECT_EQ(copy.contiguous()->data(), data);
}

TEST(Rope, IsContiguousUntilItIsEdited) {
    const Rope rope = repeated("line\n", 100'000);
    const auto middle = 6 * RopeTree::maxLeafSize + RopeTree::maxLeafSize / 2;
    EXPECT_EQ(Rope().contiguous(), "");
    const auto edited = rope.replacing(middle, middle, "x");
    EXPECT_FALSE(edited.contiguous());
    const auto restored = edited.replacing(middle, middle + 1, "");
    ASSERT_TRUE(restored.contiguous());
    EXPECT_EQ(restored.contiguous()->data(), rope.contiguous()->data());
    EXPECT_EQ(restored, rope);
}

TEST(Rope, SharesAllButTheEditWithTheEditedText) {
    const Rope rope = repeated("a line of text\n", 10'000'000);
    const auto original = *rope.contiguous();
    const auto middle = 600 * RopeTree::maxLeafSize + RopeTree::maxLeafSize / 2;
    const auto edited = rope.replacing(middle, middle + 1, "é");
    EXPECT_EQ(sharedBytes(edited, original), rope.size() - 1);
    auto typed = rope;
    for (std::size_t count = 0; count < 500; ++count)
        typed = typed.replacing(middle + count, middle + count, "k");
    EXPECT_EQ(sharedBytes(typed, original), rope.size());
    // What has been typed is one piece.
    const auto isNew = [&](std::string_view chunk) { return !isIn(original, chunk); };
    EXPECT_EQ(std::ranges::count_if(typed.chunks(), isNew), 1);
}

TEST(Rope, ComparesVersions) {
    const Rope rope = repeated("a line of text\n", 1'000'000);
    const auto left = rope.replacing(500'000, 500'001, "x");
    EXPECT_EQ(left, rope.replacing(500'000, 500'001, "x"));
    EXPECT_NE(left, rope.replacing(500'000, 500'001, "y"));
    EXPECT_NE(left, rope.replacing(500'001, 500'002, "x"));
    EXPECT_NE(left, rope);
    EXPECT_EQ(left, Rope(left.string()));
    EXPECT_EQ(left.replacing(500'000, 500'001, rope.substr(500'000, 1)), rope);
}

RC_GTEST_PROP(Rope, KnowsWhatVersionsHaveInCommon, ()) {
    const auto text = repeated("abcdefgh", *rc::gen::inRange<std::size_t>(0, 20'000));
    const Rope rope = text;
    const auto edit = [&text] {
        const auto from = *rc::gen::inRange<std::size_t>(0, text.size() + 1);
        return std::pair(from, *rc::gen::inRange(from, text.size() + 1));
    };
    const auto [from, to] = edit();
    const Rope inserted = *rc::gen::string<std::string>();
    const auto version = rope.replacing(from, to, inserted);
    const auto [otherFrom, otherTo] = edit();
    for (const auto& other : {rope, rope.replacing(otherFrom, otherTo, "x"), Rope(version.string())}) {
        const auto left = version.string();
        const auto right = other.string();
        RC_ASSERT(version.commonPrefix(other) ==
                  static_cast<std::size_t>(std::ranges::mismatch(left, right).in1 - left.begin()));
        const auto reversed = std::views::reverse(left);
        RC_ASSERT(version.commonSuffix(other) ==
                  static_cast<std::size_t>(std::ranges::mismatch(reversed, std::views::reverse(right)).in1 -
                                           reversed.begin()));
    }
}

TEST(Rope, IsFlattenedWithoutACopyIfItIsOneRun) {
    const Rope rope = repeated("abc", 100'000);
    EXPECT_EQ(FlatText(rope).view().data(), rope.contiguous()->data());
    const auto edited = rope.replacing(50'000, 50'001, "xyz");
    const FlatText flat(edited);
    EXPECT_EQ(edited.contiguous(), std::nullopt);
    EXPECT_EQ(edited, flat.view());
    EXPECT_EQ(FlatText(Rope()).view(), "");
}

TEST(Rope, ASmallCutOutDoesNotKeepTheLargeBuffer) {
    const Rope rope = repeated("a line of text\n", 1'000'000);
    const auto original = *rope.contiguous();
    EXPECT_EQ(sharedBytes(rope.substr(1'000, Rope::maxCopiedSize), original), 0U);
    EXPECT_EQ(sharedBytes(rope.substr(1'000, Rope::maxCopiedSize + 1), original), Rope::maxCopiedSize + 1);
    EXPECT_EQ(sharedBytes(rope.replacing(10, rope.size() - 10, ""), original), 0U);
    // A small text that is in small buffers is shared as it is.
    const Rope small = repeated("a line of text\n", 10'000);
    EXPECT_EQ(sharedBytes(small + "x", *small.contiguous()), RopeTree::maxLeafSize);
}

TEST(Rope, ASmallTextDoesNotKeepTheCapacityOfItsString) {
    std::string text = "a small text that was read into a large buffer";
    text.reserve(1'000'000);
    const auto* const data = text.data();
    const Rope rope = std::move(text);
    EXPECT_NE(rope.contiguous()->data(), data);
    EXPECT_EQ(rope, "a small text that was read into a large buffer");
}

TEST(Rope, ChunksOutliveTheRope) {
    const auto chunks = Rope("abc").chunks();
    EXPECT_EQ(*chunks.begin(), "abc");
    EXPECT_TRUE(Rope().chunks().begin() == Rope().chunks().end());
}

TEST(Rope, SharesTextBetweenThreads) {
    const Rope shared = repeated("a line of text\n", 300'000);
    std::array<Rope, 4> results;
    {
        std::vector<std::jthread> threads;
        for (auto& result : results) {
            threads.emplace_back([&shared, &result] {
                result = shared;
                for (std::size_t edit = 0; edit < 300; ++edit)
                    result = result.replacing(edit * 900, edit * 900 + 1, shared.substr(edit, 1));
            });
        }
    }
    for (const auto& result : results)
        EXPECT_EQ(result, results[0]);
    EXPECT_EQ(brokenRope(results[0], results[0].string()), "");
}

} // namespace
} // namespace korvane
