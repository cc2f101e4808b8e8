#include "Utilities/Text/TextSearch.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

std::vector<std::string> hitsOf(std::string_view text, const TextQuery& query) {
    std::vector<std::string> hits;
    const auto found = findHits(text, query);
    for (const auto& range : found->ranges)
        hits.push_back(std::to_string(range.start) + " " + std::string(range.of(text)));
    return hits;
}

TEST(TextSearch, FindsWhatIsAskedFor) {
    const struct {
        std::string_view name;
        std::string_view text;
        TextQuery query;
        std::vector<std::string> hits;
    } rows[] = {
        {"nothing", "abc", {""}, {}},
        {"no hit", "abc", {"x"}, {}},
        {"any case", "aBc ABC", {"Bc"}, {"1 Bc", "5 BC"}},
        {"its own case", "aBc ABC", {"Bc", false, true}, {"1 Bc"}},
        {"case folding", "Straße STRASSE ÄÖ", {"äö"}, {"16 ÄÖ"}},
        {"signs are literal", "a.c [a.c] abc", {"[A.c]"}, {"4 [a.c]"}},
        {"a line feed", "a\nb\nb", {"A\nB"}, {"0 a\nb"}},
        {"hits do not overlap", "aaaaa", {"aa", false, true}, {"0 aa", "2 aa"}},
        {"the same in any case", "aAaAa", {"aa"}, {"0 aA", "2 aA"}},
        {"a pattern", "a1 b22", {R"([a-z]\d+)", true}, {"0 a1", "3 b22"}},
        {"the case of a pattern", "A1 a1", {R"(a\d)", true, true}, {"3 a1"}},
        {"ends of lines", "ab\nb\nab", {"^a|b$", true}, {"0 a", "1 b", "3 b", "5 a", "6 b"}},
        {"empty matches", "ab", {"x*|b", true}, {}},
        {"ill-formed bytes",
         "a\xff"
         "b a",
         {"b", false, true},
         {"2 b"}},
    };

    for (const auto& [name, text, query, hits] : rows)
        EXPECT_EQ(hitsOf(text, query), hits) << name;
}

TEST(TextSearch, ReportsAFaultyPattern) {
    const auto hits = findHits("text", {"(", true});
    ASSERT_FALSE(hits);
    EXPECT_NE(hits.error(), "");
    EXPECT_TRUE(findHits("text (", {"("})) << "a literal has no faults";
}

TEST(TextSearch, StopsWhenAsked) {
    const auto source = std::make_unique<std::stop_source>(); // a local variable causes a warning
    source->request_stop();
    for (const bool isCaseSensitive : {false, true})
        EXPECT_FALSE(
            findHits(std::string(1000, 'a'), {"a", false, isCaseSensitive}, source->get_token())->isComplete);
}

TEST(TextSearch, EndsAfterSoManyHits) {
    for (const bool isCaseSensitive : {false, true}) {
        for (const std::size_t excess : {0U, 1U}) {
            const auto hits =
                findHits(std::string(TextHits::maxCount + excess, 'a'), {"a", false, isCaseSensitive});
            EXPECT_EQ(hits->ranges.size(), TextHits::maxCount);
            EXPECT_EQ(hits->isComplete, excess == 0);
        }
    }
}

TEST(TextSearch, FindsHitsAcrossTheEndsOfParts) {
    constexpr std::size_t part = std::size_t{16} << 20;
    std::string text(2 * part + 10, '.');
    for (const std::size_t start : {part - 2, 2 * part - 1})
        text.replace(start, 4, "here");
    EXPECT_EQ(hitsOf(text, {"here", false, true}),
              (std::vector<std::string>{std::to_string(part - 2) + " here",
                                        std::to_string(2 * part - 1) + " here"}));
}

RC_GTEST_PROP(TextSearch, BothWaysToFindALiteralAgree, ()) {
    const auto letters = rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab.\\\n(")));
    const auto text = *letters;
    const auto needle = *rc::gen::nonEmpty(rc::gen::resize(3, letters));
    RC_ASSERT(*findHits(text, {needle, false, true}) == *findHits(text, {needle, false, false}));
}

} // namespace
} // namespace korvane
