#include "Utilities/RegularExpression.h"

#include "support/Searches.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <unicode/uregex.h>

#include <string>

namespace korvane {
namespace {

using RegularExpression::Budget;
using RegularExpression::Findings;
using RegularExpression::Interruption;
using namespace support;

struct SearchRow {
    std::string_view name;
    std::string_view pattern;
    std::string text;
    std::vector<std::string> expected;
};

class RegularExpressionSearch : public testing::TestWithParam<SearchRow> {};

TEST_P(RegularExpressionSearch, Finds) {
    const auto& row = GetParam();
    const auto findings = search(row.pattern, row.text);
    EXPECT_EQ(described(findings), row.expected);
    EXPECT_FALSE(findings.interruption);
}

const SearchRow searchRows[] = {
    {"NoMatchInAnEmptyText", "a", "", {}},
    {"EmptyGroupMatchesAtEveryPosition", "()", "a", {"0-0 ", "$1 0-0 ", "1-1 ", "$1 1-1 "}},
    {"Letter", "a", "AaA", {"1-2 a"}},
    {"AbsentGroup", "(a)|(b)", "b", {"0-1 b", "$2 0-1 b"}},
    {"PresentEmptyGroup", "(x*)a", "a", {"0-1 a", "$1 0-0 "}},
    {"TwoGroups",
     R"((\w+)-(\w+))",
     "a-b c-d",
     {"0-3 a-b", "$1 0-1 a", "$2 2-3 b", "4-7 c-d", "$1 4-5 c", "$2 6-7 d"}},
    {"ZeroLength", "x*", "ab", {"0-0 ", "1-1 ", "2-2 "}},
    {"ZeroLengthBetween", "a*", "baac", {"0-0 ", "1-3 aa", "3-3 ", "4-4 "}},
    {"GroupInLookAhead", "a(?=(b))", "ab", {"0-1 a", "$1 1-2 b"}},
    {"GroupInLookBehind", "(?<=(é))b", "éb", {"2-3 b", "$1 0-2 é"}},
    {"CaretMatchesOnlyTheStartOfTheText", "^.", "ab\ncd", {"0-1 a"}},
    {"DollarMatchesNoEarlierLineEnd", ".$", "ab\ncd", {"4-5 d"}},
    {"DollarMatchesBeforeTheLastLineBreak", "b$", "ab\n", {"1-2 b"}},
    {"DotStopsAtLineBreaks", ".+", "a\r\nb\nc\vd\u2028e", {"0-1 a", "3-4 b", "5-6 c", "7-8 d", "11-12 e"}},
    {"CarriageReturnLineFeed", R"(\r\n)", "a\r\nb", {"1-3 \r\n"}},
    {"SpaceAndHashAreLiteral", "a #b", "a #b", {"0-4 a #b"}},
    {"NonASCII", R"(\w+)", "größer Ωmega", {"0-8 größer", "9-15 Ωmega"}},
    {"SurrogatePair", ".", "a😀é", {"0-1 a", "1-5 😀", "5-7 é"}},
    {"ZeroLengthAroundSurrogatePair", "x*", "😀", {"0-0 ", "4-4 "}},
    {"HalfOfASurrogatePair", R"(a\ud83d)", "a😀", {}},
    {"PairWrittenAsItsHalves", R"(\ud83d\ude00)", "a😀", {"1-5 😀"}},
    {"NotUTF8",
     "b",
     "\xff\xe2\x82"
     "b",
     {"3-4 b"}},
    {"NullCharacter", R"(\x00.)", std::string("a\0b", 3), {std::string("1-3 \0b", 6)}},
    {"NamedGroup", "(?<year>[0-9]+)", "in 1984", {"3-7 1984", "$1 3-7 1984"}},
    {"Property", R"(\p{Lu})", "aÄB", {"1-3 Ä", "3-4 B"}},
};

INSTANTIATE_TEST_SUITE_P(Rows, RegularExpressionSearch, testing::ValuesIn(searchRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(RegularExpression, IgnoresLetterCaseOnlyOnRequest) {
    EXPECT_EQ(search("a", "AaA", true).matchCount(), 1);
    EXPECT_EQ(search("a", "AaA", false).matchCount(), 3);
    EXPECT_EQ(search("STRASSE", "straße", false).matchCount(), 1);
}

struct ErrorRow {
    std::string_view pattern;
    std::string_view expected;
};

TEST(RegularExpression, ReportsPatternErrorsAndTheirPositions) {
    const ErrorRow rows[] = {
        {"", "Empty pattern."},
        {"(", "Incorrectly nested parentheses at character 1."},
        {R"((\w+@([a-z]+)", "Incorrectly nested parentheses at character 12."},
        {"ab)", "Incorrectly nested parentheses at character 3."},
        {"*", "Syntax error at character 1."},
        {"a**", "Syntax error at character 3."},
        {"a|+", "Syntax error at character 3."},
        {"(?y)", "Syntax error at character 3."},
        {"a\\", "Unrecognized escape sequence at character 2."},
        {R"(\x{110000})", "Unrecognized escape sequence at character 2."},
        {R"(\p{Foo})", "Unknown Unicode property or character class at character 7."},
        {"[[:foo:]]", "Unknown Unicode property or character class at character 8."},
        {R"(\N{NO SUCH NAME})", "Unknown character name."},
        {"a{99999999999}", "Number too big at character 12."},
        {"a{2", "Error in the interval between braces at character 3."},
        {"a{2,1}", "Interval with a maximum less than its minimum at character 6."},
        {R"(\1)", "Back reference to a capture group that does not exist at character 2."},
        {"(?<=a*)b", "Look-behind without a maximum length at character 7."},
        {"[a", "Missing closing bracket at character 2."},
        {"[z-a]", "Character range whose end comes before its start at character 4."},
        {"(?<n>a)(?<n>b)", "Invalid name of a capture group at character 12."},
        {R"(\k<missing>)", "Invalid name of a capture group at character 11."},
        {"é(", "Incorrectly nested parentheses at character 2."},
        {"👩‍👩‍👧(", "Incorrectly nested parentheses at character 2."},
        {"a\n(\n)b)", "Incorrectly nested parentheses at character 7."},
        {"a\r\nb)", "Incorrectly nested parentheses at character 4."},
        {"a\u2028b)", "Incorrectly nested parentheses at character 4."},
        {"a\u0085b\rc)", "Incorrectly nested parentheses at character 6."},
        {"a\vb)", "Incorrectly nested parentheses at character 4."},
    };
    for (const auto& [pattern, expected] : rows)
        EXPECT_EQ(errorOf(pattern), expected) << pattern;
}

TEST(RegularExpression, RejectsPatternsAboveTheSizeAndNestingLimits) {
    EXPECT_EQ(errorOf(std::string(RegularExpression::maxPatternSize + 1, 'a')), "Pattern too big.");
    EXPECT_EQ(errorOf(std::string(RegularExpression::maxPatternSize, 'a')), "");
    EXPECT_EQ(errorOf(std::string(1000, '(')), "Nesting too deep at character 101.");
    EXPECT_EQ(errorOf(std::string(1000, '[')), "Nesting too deep at character 100.");
}

/// Few enough steps for a hostile pattern to end at once on any machine.
const Budget fewSteps{.time = std::chrono::hours(1), .steps = 20};

TEST(RegularExpression, StopsOnHostilePatternsAndKeepsEarlierMatches) {
    struct Row {
        std::string_view pattern;
        std::string text;
    };

    const Row rows[] = {
        {"^(.*)+ ", std::string(5000, 'a')},
        {"(a+)+$", std::string(50, 'a') + "b"},
        {R"(^(([A-z\d]([A-z\d-]*[A-z\d])*)\.)+[A-z]{2,})", std::string(60, 'a') + "!"},
        {"((){60000}){60000}", "a"},
        {"(x+x+)+y", std::string(60, 'x')},
    };
    for (const auto& [pattern, text] : rows) {
        const auto findings = search(pattern, text, true, fewSteps);
        EXPECT_EQ(findings.interruption, Interruption::tookTooLong) << pattern;
        EXPECT_EQ(findings.matchCount(), 0) << pattern;
    }
    const auto findings = search("(;)|(a+)+$", ";;" + std::string(50, 'a') + "b;", true, fewSteps);
    EXPECT_EQ(findings.interruption, Interruption::tookTooLong);
    EXPECT_EQ(described(findings), (std::vector<std::string>{"0-1 ;", "$1 0-1 ;", "1-2 ;", "$1 1-2 ;"}));
}

TEST(RegularExpression, StopsWhenItsTimeIsUp) {
    const Budget noTime{.time = std::chrono::milliseconds(0)};
    EXPECT_EQ(search("a", std::string(100, 'a'), true, noTime).interruption, Interruption::tookTooLong);
    EXPECT_EQ(search("b", std::string(100, 'a'), true, noTime).interruption, Interruption::tookTooLong);
    EXPECT_EQ(search("(a+)+$", std::string(50, 'a') + "b", true, noTime).interruption,
              Interruption::tookTooLong);
}

// Without checks of the clock in between, each of these runs for minutes.
TEST(RegularExpression, StopsInsideMatchesThatICUDoesNotReport) {
    std::string text;
    text.resize(10'000'000, 'a');
    const Budget littleTime{.time = std::chrono::milliseconds(20)};
    for (const std::string_view pattern :
         {"(.*)\\1\\1y", "^.*(?>.*)y", "^(?=(.*))(?:a(?=.*y))*?x", "^.*?(?<=a)(?!.*b)x", "^.*[^x]*+y",
          "^(?<n>.*)\\k<n>y", "^.*\\X++y", "^(?w).*\\b(?=.*)y"})
        EXPECT_EQ(search(pattern, text, true, littleTime).interruption, Interruption::tookTooLong) << pattern;
}

TEST(RegularExpression, StopsWhenCancelled) {
    const auto source = std::make_unique<std::stop_source>();
    source->request_stop();
    const auto findings =
        search("a", "aaa", true, {.time = std::chrono::hours(1), .stop = source->get_token()});
    EXPECT_EQ(findings.interruption, Interruption::cancelled);
    EXPECT_EQ(findings.matchCount(), 0);
}

std::string repeated(std::string_view part, std::size_t count) {
    std::string text;
    for (; count > 0; --count)
        text += part;
    return text;
}

// Compiling each of these in one piece takes seconds or much longer.
TEST(RegularExpression, StopsWhileAPatternIsCompiled) {
    const Budget littleTime{.time = std::chrono::milliseconds(20)};
    for (const std::string_view set : {"[\\x{0}-\\x{10FFFF}]", "[\\p{L}&&[^\\p{Lu}]]", "\\p{Alphabetic}"}) {
        const auto pattern = repeated(set, RegularExpression::maxPatternSize / set.size());
        const auto findings = search(pattern, "text", false, littleTime);
        EXPECT_EQ(findings.interruption, Interruption::patternTookTooLong) << set;
        EXPECT_EQ(findings.matchCount(), 0) << set;
    }
    std::stop_source source;
    source.request_stop();
    const auto findings = search(repeated("[a]", 1000), "text", false, {.stop = source.get_token()});
    EXPECT_EQ(findings.interruption, Interruption::cancelled);
}

TEST(RegularExpression, SearchesWithThousandsOfSets) {
    const auto findings = search(repeated("[a-c]", 3000), std::string(7000, 'b'));
    EXPECT_EQ(findings.matchCount(), 2);
    EXPECT_FALSE(findings.interruption);
}

TEST(RegularExpression, StopsAtItsMemoryLimit) {
    EXPECT_EQ(search("(a|b)*c", std::string(5'000'000, 'a')).interruption, Interruption::tookTooMuchMemory);
    EXPECT_FALSE(search("(a|b)*", std::string(1'000'000, 'a')).interruption);
}

TEST(RegularExpression, CollectsABoundedNumberOfPieces) {
    std::string pattern = "a";
    for (int group = 0; group < 999; ++group)
        pattern += "()";
    const auto findings = search(pattern, std::string(20'000, 'a'));
    EXPECT_EQ(findings.interruption, Interruption::tooManyMatches);
    EXPECT_LE(findings.pieces.size(), RegularExpression::maxPieces);
    EXPECT_EQ(findings.matchCount(), RegularExpression::maxPieces / 1000);
}

/// What ICU finds in the UTF-8 text itself, whose positions need no conversion.
std::vector<std::string> naiveSearch(const std::string& pattern, const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto units = icu::UnicodeString::fromUTF8(pattern);
    const icu::LocalURegularExpressionPointer regex(
        uregex_open(units.getBuffer(), units.length(), 0, nullptr, &status));
    const icu::LocalUTextPointer handle(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status));
    uregex_setUText(regex.getAlias(), handle.getAlias(), &status);
    std::vector<std::string> pieces;
    while (uregex_findNext(regex.getAlias(), &status) != 0) {
        for (std::int32_t group = 0; group <= uregex_groupCount(regex.getAlias(), &status); ++group) {
            const auto start = uregex_start64(regex.getAlias(), group, &status);
            const auto end = uregex_end64(regex.getAlias(), group, &status);
            if (start < 0)
                continue;
            const auto place = fmt::format(
                "{}-{} {}", start, end,
                text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
            pieces.push_back(group == 0 ? place : fmt::format("${} {}", group, place));
        }
    }
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    return pieces;
}

std::string joined(const std::vector<std::string>& pieces) {
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    return text;
}

RC_GTEST_PROP(RegularExpression, FindsWhatICUFindsInTheUTF8Text, ()) {
    const auto text = joined(*rc::gen::container<std::vector<std::string>>(
        rc::gen::element<std::string>("a", "b", "é", "😀", "\r\n", "\n", " ", "👩‍👧")));
    const auto pattern = *rc::gen::element<std::string>(
        "a", ".", "a*", "(a)|(b)", "(a*)(b?)", "[^a]", "(?<=(.))(a)", "a(?=(.)?)", "(\\w+)\\s", "é|😀",
        "(?s).", "\\X", "(😀|a)+?b", "$", "^", "(.)\\1", "\\b", "(a)?(😀)?(b)?");
    RC_ASSERT(described(search(pattern, text)) == naiveSearch(pattern, text));
}

/// The error of ICU for a pattern compiled in one piece.
UErrorCode naiveError(const std::string& pattern) {
    UErrorCode status = U_ZERO_ERROR;
    const auto units = icu::UnicodeString::fromUTF8(pattern);
    uregex_close(uregex_open(units.getBuffer(), units.length(), 0, nullptr, &status));
    return status;
}

/// Enough sets for a pattern to be compiled piece by piece, with sets at every position.
RC_GTEST_PROP(RegularExpression, CompilingPieceByPieceAgreesWithICU, ()) {
    const auto parts = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
        "a", "é", "😀", "[a-c]", "[^\\x{1F600}]", "\\x{61}", "\\u0061", "\\ud83d\\ude00",
        "\\N{LATIN SMALL LETTER A}", "\\Q[.\\E", "(?#note)", "\\p{L}", "[[:alpha:]--[z]]", "(?<n>b)?", "(",
        ")", "x{2,3}", "\\", "]", "|"));
    const auto pattern = joined(parts) + "|" + repeated("[a]?", 5);
    const auto error = naiveError(pattern);
    RC_ASSERT(errorOf(pattern).empty() == (U_SUCCESS(error) != 0));
    if (U_SUCCESS(error)) {
        const std::string text = "ab[.é😀ca😀😀xxx";
        RC_ASSERT(described(search(pattern, text)) == naiveSearch(pattern, text));
    }
}

TEST(RegularExpression, CompilingPieceByPieceReportsErrorPositions) {
    for (std::size_t length = 0; length < 40; ++length) {
        const auto before = repeated("[a]", 6) + std::string(length, 'b');
        const auto place = [&](std::size_t characters) { return std::to_string(before.size() + characters); };
        EXPECT_EQ(errorOf(before + "\\x{110000}"),
                  "Unrecognized escape sequence at character " + place(2) + ".");
        EXPECT_EQ(errorOf(before + "é😀[z-a]"),
                  "Character range whose end comes before its start at character " + place(6) + ".");
        EXPECT_EQ(errorOf(before + "(\n"), "Incorrectly nested parentheses at character " + place(2) + ".");
    }
}

TEST(RegularExpression, FindsWhatICUFindsInALongText) {
    std::string text;
    std::uint32_t state = 1;
    while (text.size() < 400'000) {
        state = state * 1'664'525 + 1'013'904'223;
        constexpr std::string_view words[] = {"a", "ab", "aa ", "é", "😀", "😀😀", "\n", "zz"};
        text += words[state >> 29];
    }
    for (const std::string pattern : {"(?=(a+))a", "(?<=😀)é", "(a|😀)++b", "(.)\\1", "(?>a*)b", "\\X(?=z)",
                                      "(?!.)", ".++", "(?s)(?=.)[^z]++z", "(?i)(A+)\\1"})
        EXPECT_EQ(described(search(pattern, text)), naiveSearch(pattern, text)) << pattern;
}

} // namespace
} // namespace korvane
