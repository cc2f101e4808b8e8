#include "Utilities/Text/Collation.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

namespace korvane {
namespace {

std::vector<std::string_view> sorted(const std::vector<std::string_view>& texts, SortOrder order) {
    std::vector<std::string_view> result;
    for (const auto index : localizedCaseInsensitiveOrder(texts, order))
        result.push_back(texts[index]);
    return result;
}

using Texts = std::vector<std::string_view>;

TEST(Collation, SortsByLetterThenAccentWithoutCase) {
    const Texts texts = {"zebra", "Apfel", "éclair", "apple", "Zoo", "eclipse", "", "10", "9", " x", "_y"};
    EXPECT_EQ(sorted(texts, SortOrder::ascending),
              (Texts{"", " x", "_y", "10", "9", "Apfel", "apple", "éclair", "eclipse", "zebra", "Zoo"}));
    EXPECT_EQ(sorted(texts, SortOrder::descending),
              (Texts{"Zoo", "zebra", "eclipse", "éclair", "apple", "Apfel", "9", "10", "_y", " x", ""}));
}

TEST(Collation, KeepsTheOrderOfEqualTexts) {
    const Texts texts = {"b", "A", "a", "\u00E9", "e\u0301", "E\u0301", "a", "e"};
    EXPECT_EQ(sorted(texts, SortOrder::ascending),
              (Texts{"A", "a", "a", "b", "e", "\u00E9", "e\u0301", "E\u0301"}));
    EXPECT_EQ(sorted(texts, SortOrder::descending),
              (Texts{"\u00E9", "e\u0301", "E\u0301", "e", "b", "A", "a", "a"}));
}

TEST(Collation, ComparesTextsAfterALongCommonPrefix) {
    const std::string common(100, 'x');
    const std::string first = common + "a";
    const std::string second = common + "B";
    const std::string third = common + "c";
    EXPECT_EQ(sorted({third, second, common, first}, SortOrder::ascending),
              (Texts{common, first, second, third}));
}

TEST(Collation, SortsNullCharactersAndInvalidUTF8) {
    using namespace std::string_view_literals;
    EXPECT_EQ(sorted({"b", "a\0b"sv, "\xff", ""}, SortOrder::ascending).size(), 4U);
    EXPECT_TRUE(localizedCaseInsensitiveOrder({}, SortOrder::ascending).empty());
}

RC_GTEST_PROP(Collation, AgreesWithComparingEachPair, ()) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale::getRoot(), status));
    collator->setStrength(icu::Collator::SECONDARY);
    const auto texts = *rc::gen::container<std::vector<std::string>>(
        rc::gen::container<std::string>(rc::gen::elementOf(std::string("aAbBzZ019 _-.,'\t"))));
    const std::vector<std::string_view> views(texts.begin(), texts.end());
    std::vector<std::size_t> expected(texts.size());
    std::iota(expected.begin(), expected.end(), std::size_t{0});
    const auto compare = [&](std::size_t a, std::size_t b) {
        return collator->compare(icu::UnicodeString::fromUTF8(texts[a]),
                                 icu::UnicodeString::fromUTF8(texts[b]));
    };
    auto descending = expected;
    std::ranges::stable_sort(expected, [&](auto a, auto b) { return compare(a, b) < 0; });
    std::ranges::stable_sort(descending, [&](auto a, auto b) { return compare(a, b) > 0; });
    RC_ASSERT(localizedCaseInsensitiveOrder(views, SortOrder::ascending) == expected);
    RC_ASSERT(localizedCaseInsensitiveOrder(views, SortOrder::descending) == descending);
}

} // namespace
} // namespace korvane
