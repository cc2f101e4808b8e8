#include "Utilities/Diff/CommonSubsequence.h"

#include "support/NaiveDiff.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <numeric>
#include <random>

namespace korvane::DiffEngine {
namespace {

using Identities = std::vector<LineIdentity>;

Identities randomIdentities(std::mt19937& random, std::size_t size, LineIdentity alphabet) {
    std::uniform_int_distribution<LineIdentity> anyOf(0, alphabet - 1);
    Identities identities(size);
    std::ranges::generate(identities, [&] { return anyOf(random); });
    return identities;
}

/// `list` with about one element in `share` replaced, left out or doubled, and one stretch moved.
Identities edited(std::mt19937& random, const Identities& list, unsigned share, LineIdentity alphabet) {
    Identities result;
    for (const auto element : list) {
        switch (random() % (3 * share)) {
        case 0:
            break;
        case 1:
            result.push_back(static_cast<LineIdentity>(random() % alphabet));
            break;
        case 2:
            result.insert(result.end(), {element, element});
            break;
        default:
            result.push_back(element);
        }
    }
    if (result.size() > 8 && random() % 2 == 0)
        std::ranges::rotate(result.begin() + 1,
                            result.begin() + 1 + static_cast<std::ptrdiff_t>(result.size() / 4),
                            result.end() - 1);
    return result;
}

/// Limits so tight that even short lists take several attempts, nested snapshots, and records of a few rows.
constexpr TableLimits tight = {
    .minEdits = 1, .editShare = 1000, .widening = 2, .snapshots = 2, .recordedWords = 4};

void expectTheNaiveResult(const Identities& a, const Identities& b, const TableLimits& limits) {
    const auto expected = support::naiveSubsequence(a, b);
    ASSERT_EQ(longestCommonSubsequence(a, b, {}, limits), expected)
        << ::testing::PrintToString(a) << " and " << ::testing::PrintToString(b);
}

TEST(CommonSubsequence, BreaksTiesAsTheTableWalkDoes) {
    struct SubsequenceRow {
        std::string_view name;
        Identities a;
        Identities b;
        Identities expected;
    };

    const std::vector<SubsequenceRow> rows = {
        {"the same", {1, 2, 3}, {1, 2, 3}, {1, 2, 3}},
        {"nothing in common", {0, 1}, {2, 3}, {}},
        {"one of two, exchanged: the tie goes along the second list", {0, 1}, {1, 0}, {1}},
        {"one of three, reversed", {0, 1, 2}, {2, 1, 0}, {2}},
        {"between equal ends", {7, 0, 1, 7}, {7, 1, 0, 7}, {7, 1, 7}},
        {"with a foreign element between", {0, 9, 1}, {1, 0, 8}, {1}},
        {"one empty", {}, {1}, {}},
        {"both empty", {}, {}, {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(longestCommonSubsequence(row.a, row.b), row.expected) << row.name;
        EXPECT_EQ(support::naiveSubsequence(row.a, row.b), row.expected) << row.name;
    }
}

TEST(CommonSubsequence, AgreesWithTheTableOnAllShortLists) {
    // All pairs of lists of up to five elements out of three.
    std::vector<Identities> lists;
    for (std::size_t size = 0, count = 1; size <= 5; ++size, count *= 3) {
        for (std::size_t number = 0; number < count; ++number) {
            Identities list(size);
            auto rest = number;
            for (auto& element : list) {
                element = static_cast<LineIdentity>(rest % 3);
                rest /= 3;
            }
            lists.push_back(list);
        }
    }
    for (const auto& a : lists) {
        for (const auto& b : lists)
            ASSERT_NO_FATAL_FAILURE(expectTheNaiveResult(a, b, {}));
    }
}

TEST(CommonSubsequence, AgreesWithTheTableOnRandomLists) {
    std::mt19937 random(1);
    for (int pair = 0; pair < 20'000; ++pair) {
        const auto alphabet = 1 + static_cast<LineIdentity>(random() % (pair % 2 == 0 ? 4 : 60));
        const auto a = randomIdentities(random, random() % 40, alphabet);
        const auto b = randomIdentities(random, random() % 40, alphabet);
        ASSERT_NO_FATAL_FAILURE(expectTheNaiveResult(a, b, pair % 3 == 0 ? tight : TableLimits()));
    }
}

TEST(CommonSubsequence, AgreesWithTheTableOnEditedLists) {
    std::mt19937 random(2);
    for (int pair = 0; pair < 20'000; ++pair) {
        const auto alphabet = 1 + static_cast<LineIdentity>(random() % (pair % 2 == 0 ? 4 : 60));
        const auto a = randomIdentities(random, random() % 60, alphabet);
        const auto b = edited(random, a, 1 + static_cast<unsigned>(random() % 8), alphabet);
        ASSERT_NO_FATAL_FAILURE(expectTheNaiveResult(a, b, pair % 3 == 0 ? TableLimits() : tight));
    }
}

TEST(CommonSubsequence, AgreesWithTheTableOnListsOfManyWords) {
    std::mt19937 random(3);
    for (unsigned pair = 0; pair < 150; ++pair) {
        const auto alphabet = static_cast<LineIdentity>(std::array{2, 5, 40, 300, 2000}[pair % 5]);
        const auto a = randomIdentities(random, 200 + random() % 800, alphabet);
        const auto b = pair % 3 == 0 ? randomIdentities(random, 200 + random() % 800, alphabet)
                                     : edited(random, a, 2U << pair % 6, alphabet);
        const TableLimits limits = {.minEdits = 1 + random() % 100,
                                    .editShare = 1000,
                                    .widening = 2 + random() % 3,
                                    .snapshots = 2 + random() % 6,
                                    .recordedWords = random() % 200};
        ASSERT_NO_FATAL_FAILURE(expectTheNaiveResult(a, b, limits));
        ASSERT_NO_FATAL_FAILURE(expectTheNaiveResult(b, a, {}));
    }
}

RC_GTEST_PROP(CommonSubsequence, AgreesWithTheTableOnArbitraryLists, ()) {
    const auto element = rc::gen::inRange<LineIdentity>(0, *rc::gen::inRange<LineIdentity>(1, 12));
    const auto a = *rc::gen::container<Identities>(element);
    const auto b = *rc::gen::container<Identities>(element);
    RC_ASSERT(longestCommonSubsequence(a, b) == support::naiveSubsequence(a, b));
    RC_ASSERT(longestCommonSubsequence(a, b, {}, tight) == support::naiveSubsequence(a, b));
}

TEST(CommonSubsequence, ALongListAndItsReverseHaveOneCommonElement) {
    Identities a(30'000);
    std::iota(a.begin(), a.end(), LineIdentity{0});
    const Identities b(a.rbegin(), a.rend());
    EXPECT_EQ(longestCommonSubsequence(a, b), Identities{29'999});
}

TEST(CommonSubsequence, ReturnsNothingOnceStopped) {
    const auto stop = std::make_unique<std::stop_source>(); // a local variable causes a warning
    stop->request_stop();
    EXPECT_EQ(longestCommonSubsequence(Identities{0, 1}, Identities{1, 0}, stop->get_token()), std::nullopt);
}

} // namespace
} // namespace korvane::DiffEngine
