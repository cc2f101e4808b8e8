#include "Utilities/Text/Text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <memory>
#include <string>
#include <vector>

namespace korvane {
namespace {

struct CountRow {
    std::string_view name;
    std::string_view text;
    std::size_t characters;
    std::size_t lines;
};

constexpr CountRow countRows[] = {
    {"nothing", "", 0, 1},
    {"ASCII", "Hello", 5, 1},
    {"a line feed at the end", "a\nb\n", 4, 3},
    {"CR LF is one character and two newlines", "a\r\nb", 3, 3},
    {"lone carriage returns", "\r\r", 2, 3},
    {"every newline character", "\n\v\f\r\u0085\u2028\u2029", 7, 8},
    {"umlaut, composed", "ü", 1, 1},
    {"umlaut, decomposed", "u\u0308x", 2, 1},
    {"a mark with nothing before it", "\u0308", 1, 1},
    {"a mark after a line feed", "\n\u0308", 2, 2},
    {"family of emoji", "👨‍👩‍👧‍👦!", 2, 1},
    {"two flags", "🇳🇴🇸🇪", 2, 1},
    {"copyright joined to a heart", "©\u200D❤", 1, 1},
    {"Hangul syllables and letters", "각각", 2, 1},
    {"Arabic number sign before a digit", "\u06001", 1, 1},
    {"Devanagari consonants joined by a virama", "क्षि", 1, 1},
    {"Han", "漢字かな", 4, 1},
    {"a CR LF after a letter that may carry marks", "各\r\n\u0308", 3, 3},
    {"a CR LF after a mark", "u\u0308\r\nx", 3, 3},
    {"not UTF-8", "a\xff", 2, 1},
};

TEST(Text, CountsCharactersAndLines) {
    for (const auto& row : countRows) {
        EXPECT_EQ(characterCount(row.text), row.characters) << row.name;
        EXPECT_EQ(lineCount(row.text), row.lines) << row.name;
    }
}

/// The same count by one break iterator over the whole text.
std::size_t naiveCharacterCount(const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> iterator(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const auto utf16 = icu::UnicodeString::fromUTF8(text); // the iterator keeps no copy
    iterator->setText(utf16);
    std::size_t count = 0;
    while (iterator->next() != icu::BreakIterator::DONE)
        ++count;
    return count;
}

RC_GTEST_PROP(Text, CountsCharactersAsOneIteratorOverTheWholeTextDoes, ()) {
    const auto pieces =
        *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(std::vector<std::string>{
            "a",      "\r", "\n", "ü", "u\u0308", "\u0308", "\u200D", "©", "❤", "👩", "👍",     "🏽",    "🇳",
            "\u0600", "ᄀ", "ᅡ",  "ᆨ", "각",      "क",      "ष",      "्",  "ि", "漢", "\u0085", "\u00AD"}));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    RC_ASSERT(characterCount(text) == naiveCharacterCount(text));
}

TEST(Text, TrimsWhitespaceAndNewlinesAtTheEndsOnly) {
    EXPECT_EQ(trimmingWhitespacesAndNewlines(" \t\r\n a b \u00A0\u2003\u2028\u0085"), "a b");
    EXPECT_EQ(trimmingWhitespacesAndNewlines("\u3000\n"), "");
    EXPECT_EQ(trimmingWhitespacesAndNewlines(""), "");
    EXPECT_EQ(trimmingWhitespacesAndNewlines("\u200B"), "\u200B"); // a zero-width space is a format character
    EXPECT_EQ(trimmingWhitespacesAndNewlines("\xff "), "\xff");
}

TEST(Text, TrimsWhitespaceButNotNewlines) {
    EXPECT_EQ(trimmingWhitespaces(" \t\u00A0a b\u3000 "), "a b");
    EXPECT_EQ(trimmingWhitespaces(" \n a\r\n \t"), "\n a\r\n");
    EXPECT_EQ(trimmingWhitespaces("\u2028"), "\u2028");
    EXPECT_EQ(trimmingWhitespaces(" \t "), "");
    EXPECT_EQ(trimmingWhitespaces(" \n a \r"), "\n a \r");
    EXPECT_EQ(trimmingWhitespaces("\t "), "");
}

TEST(Text, JoinsATextIntoOneLine) {
    struct Row {
        std::string_view text;
        std::string_view line;
    };

    constexpr Row rows[] = {
        {"", ""},
        {"1700000000\n", "1700000000"},
        {"1700000000\r\n", "1700000000"},
        {"a\n\r\n\u2028\u2029\u0085\v\f", "a"},
        {"\n", ""},
        {"a\nb", "a b"},
        {"a\r\nb", "a b"},
        {"a\n\rb", "a  b"},
        {"a\n\nb\n", "a  b"},
        {"\na", " a"},
        {"ä\u2028ö\u2029ü\u0085ß\vé\fè\r漢", "ä ö ü ß é è 漢"},
        {" a\t b ", " a\t b "},
        {"a \n ", "a   "},
        {"\xff\n\xff\n", "\xff \xff"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(onOneLine(row.text), row.line) << row.text;
}

TEST(Text, CountsWordsBetweenWhiteSpaceAndNewlines) {
    EXPECT_EQ(wordCount(""), 0U);
    EXPECT_EQ(wordCount(" \n\t"), 0U);
    EXPECT_EQ(wordCount("one"), 1U);
    EXPECT_EQ(wordCount("  one\r\ntwo\u2028three-four,\u00A0five\n"), 4U);
    EXPECT_EQ(wordCount("漢字かな"), 1U);
    EXPECT_EQ(wordCount("\xff \xff"), 2U);
}

TEST(Text, CountsTheColumnsOfALine) {
    EXPECT_EQ(columnCount(""), 0U);
    EXPECT_EQ(columnCount("a \"b\""), 5U);
    EXPECT_EQ(columnCount("éя"), 2U);
    EXPECT_EQ(columnCount("漢字👩"), 6U);
    EXPECT_EQ(columnCount("e\u0301"), 2U) << "at most";
}

TEST(Text, DistinguishesUTF8FromOtherBytes) {
    for (const std::string_view good :
         {"", "plain ASCII text", "ü", "漢字", "👩", "\xef\xbf\xbf", "\xf4\x8f\xbf\xbf"})
        EXPECT_TRUE(isValidUTF8(good)) << good;
    for (const std::string_view bad :
         {"\xff", "\x80", "\xc3", "abcdefgh\xc3", "\xc0\x80", "\xe0\x80\x80", "\xed\xa0\x80",
          "\xf4\x90\x80\x80", "\xf8\x88\x80\x80\x80", "\xe6\xbc"})
        EXPECT_FALSE(isValidUTF8(bad));
}

TEST(Text, FindsTheFirstByteThatIsNotUTF8) {
    EXPECT_EQ(validUTF8PrefixLength(""), 0U);
    EXPECT_EQ(validUTF8PrefixLength("plain ASCII text, and ü漢👩"),
              std::string_view("plain ASCII text, and ü漢👩").size());
    EXPECT_EQ(validUTF8PrefixLength("\xff"), 0U);
    EXPECT_EQ(validUTF8PrefixLength("0123456789abcdef\xff"), 16U);
    EXPECT_EQ(validUTF8PrefixLength("ü\xc3"), 2U);
    EXPECT_EQ(validUTF8PrefixLength("ü\xed\xa0\x80ü"), 2U);
}

TEST(Text, PositionsCountLinesAndCharactersFromOne) {
    EXPECT_EQ(positionAt("", 0), (TextPosition{1, 1}));
    EXPECT_EQ(positionAt("ab\ncd", 4), (TextPosition{2, 2}));
    EXPECT_EQ(positionAt("ab\n", 3), (TextPosition{2, 1}));
    EXPECT_EQ(positionAt("a\r\n\r\nb", 5), (TextPosition{3, 1})) << "CR LF ends one line, not two";
    EXPECT_EQ(positionAt("a\r\nb", 2), (TextPosition{1, 3})) << "between CR and LF";
    EXPECT_EQ(positionAt("a\r\rb\n\rc", 6), (TextPosition{5, 1}));
    EXPECT_EQ(positionAt("a\r", 2), (TextPosition{2, 1}));
    EXPECT_EQ(positionAt("ü👨‍👩‍👧x", std::string_view("ü👨‍👩‍👧").size()),
              (TextPosition{1, 3}));
}

TEST(Text, ContainsIgnoresCaseButNotAccents) {
    EXPECT_TRUE(localizedCaseInsensitiveContains("JSON Formatter", "json"));
    EXPECT_TRUE(localizedCaseInsensitiveContains("Straße", "STRASSE"));
    EXPECT_TRUE(localizedCaseInsensitiveContains("Gru\u0308n", "grÜN"));
    EXPECT_FALSE(localizedCaseInsensitiveContains("Grün", "grun"));
    EXPECT_FALSE(localizedCaseInsensitiveContains("Café", "cafe"));
    EXPECT_FALSE(localizedCaseInsensitiveContains("Cafe\u0301", "CAFE"));
    EXPECT_FALSE(localizedCaseInsensitiveContains("Café", "\u0301")) << "an accent without its letter";
    EXPECT_TRUE(localizedCaseInsensitiveContains("é and e", "E")) << "a later position may still match";
    EXPECT_TRUE(localizedCaseInsensitiveContains("Café", "CAFÉ"));
    EXPECT_TRUE(localizedCaseInsensitiveContains("Café", "caf"));
    EXPECT_FALSE(localizedCaseInsensitiveContains("Base64", "65"));
    EXPECT_FALSE(localizedCaseInsensitiveContains("Base64", ""));
    EXPECT_TRUE(localizedCaseInsensitiveContains("Hash Generator", " "));
}

} // namespace
} // namespace korvane
