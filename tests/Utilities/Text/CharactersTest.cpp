#include "Utilities/Text/Characters.h"

#include "Utilities/Text/LetterCase.h"

#include "support/CodePoints.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <cstdint>
#include <string>
#include <vector>

namespace korvane {
namespace {

using Pieces = std::vector<std::string>;

Pieces charactersOf(std::string_view text) {
    const auto views = characters(text);
    return {views.begin(), views.end()};
}

/// The same by ICU's iterator over the whole text.
Pieces naiveCharacters(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    auto* rules = ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status);
    auto* units = utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status);
    ubrk_setUText(rules, units, &status);
    Pieces pieces;
    std::size_t start = 0;
    for (auto end = ubrk_next(rules); end != UBRK_DONE; end = ubrk_next(rules)) {
        pieces.emplace_back(text.substr(start, static_cast<std::size_t>(end) - start));
        start = static_cast<std::size_t>(end);
    }
    utext_close(units);
    ubrk_close(rules);
    return pieces;
}

struct CharactersRow {
    std::string_view name;
    std::string_view text;
    Pieces characters;
};

TEST(Characters, AreGraphemeClusters) {
    const CharactersRow rows[] = {
        {"nothing", "", {}},
        {"ASCII", "ab", {"a", "b"}},
        {"CR LF is one", "\r\r\n\n", {"\r", "\r\n", "\n"}},
        {"a mark and its letter", "ue\u0301", {"u", "e\u0301"}},
        {"a mark by itself", "\u0301x", {"\u0301", "x"}},
        {"a mark after CR LF", "\r\n\u0301", {"\r\n", "\u0301"}},
        {"a family", "a👨‍👩‍👧‍👦b", {"a", "👨‍👩‍👧‍👦", "b"}},
        {"emoji side by side", "👍🏽👍", {"👍🏽", "👍"}},
        {"flags", "🇳🇴🇸🇪🇩", {"🇳🇴", "🇸🇪", "🇩"}},
        {"keycap", "1\uFE0F\u20E3 2", {"1\uFE0F\u20E3", " ", "2"}},
        {"Hangul syllables", "한국어", {"한", "국", "어"}},
        {"Hangul letters", "\u1112\u1161\u11ab\u1100", {"\u1112\u1161\u11ab", "\u1100"}},
        {"Devanagari", "नमस्ते", {"न", "म", "स्ते"}},
        {"Thai", "ที่", {"ที่"}},
        {"a prefix joins the next", "\u06001\u0301!", {"\u06001\u0301", "!"}},
        {"bytes that are not UTF-8", "a\xff\xfe", {"a", "\xff", "\xfe"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(charactersOf(row.text), row.characters) << row.name;
}

TEST(Characters, FirstCharacterIncludesItsMarks) {
    EXPECT_EQ(firstCharacter(""), "");
    EXPECT_EQ(firstCharacter("x"), "x");
    EXPECT_EQ(firstCharacter("e\u0301a"), "e\u0301");
    EXPECT_EQ(firstCharacter("\r\n."), "\r\n");
}

TEST(Characters, SkipsASCIIUpToCharactersThatMayBeJoined) {
    Characters characters("ab\r\nc\r\n\u0301z");
    EXPECT_EQ(characters.skipASCII(), 4U);
    EXPECT_EQ(characters.next(), "\r\n");
    EXPECT_EQ(characters.skipASCII(), 0U);
    EXPECT_EQ(characters.next(), "\u0301");
    EXPECT_EQ(characters.next(), "z");
    EXPECT_EQ(characters.next(), "");
}

/// Each code point twice in a row, and next to characters that may join it.
TEST(Characters, AgreeWithICUForEveryCodePoint) {
    std::string text;
    forEachCodePoint([&](UChar32, std::string_view character) {
        text.append("a").append(character).append(character).append("क").append(character).append("각");
    });
    EXPECT_TRUE(charactersOf(text) == naiveCharacters(text)); // too many to print
}

RC_GTEST_PROP(Characters, AgreeWithOneIteratorOverTheWholeText, ()) {
    const auto pieces = *rc::gen::container<Pieces>(rc::gen::elementOf(
        Pieces{"a",  "\r", "\n", "ü", "\u0308", "\u200D", "\u200C", "©",      "❤",     "\uFE0F",
               "👩", "👍", "🏽", "🇳", "🇴",      "\u0600", "ᄀ",     "ᅡ",      "ᆨ",     "가",
               "각", "क",  "ष",  "्",  "ि",      "漢",     "\u0085", "\u00AD", "\u2028"}));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    RC_ASSERT(charactersOf(text) == naiveCharacters(text));
}

struct ClassRow {
    std::string_view name;
    std::string_view character;
    std::string_view classes; ///< U, l, a letter (A) and a number (n)
};

TEST(Characters, HaveTheirUnicodeClasses) {
    constexpr ClassRow rows[] = {
        {"capital", "A", "UA"},
        {"small", "z", "lA"},
        {"digit", "7", "n"},
        {"symbol", "|", ""},
        {"space", " ", ""},
        {"line break", "\r\n", ""},
        {"accented", "é", "lA"},
        {"accented by a mark", "e\u0301", "lA"},
        {"capital with a mark", "E\u0301", "UA"},
        {"sharp s", "ß", "lA"},
        {"title case", "ǅ", "A"},
        {"Cyrillic", "Ж", "UA"},
        {"ideograph", "漢", "A"},
        {"ideograph for one", "一", "An"},
        {"Arabic digit", "٣", "n"},
        {"fraction", "½", "n"},
        {"Roman numeral", "Ⅷ", "UAn"},
        {"superscript", "²", "n"},
        {"circled letter", "Ⓐ", "UA"},
        {"feminine ordinal", "ª", "lA"},
        {"keycap", "1\uFE0F\u20E3", "n"},
        {"emoji", "👍", ""},
        {"family", "👨‍👩‍👧", ""},
        {"a lone mark", "\u0301", ""},
        {"not UTF-8", "\xff", ""},
    };
    for (const auto& row : rows) {
        std::string classes;
        if (isUppercase(row.character))
            classes += 'U';
        if (isLowercase(row.character))
            classes += 'l';
        if (isLetter(row.character))
            classes += 'A';
        if (isNumeric(row.character))
            classes += 'n';
        EXPECT_EQ(classes, row.classes) << row.name;
    }
}

TEST(Characters, OfASCIIHaveTheirClasses) {
    for (char c = 0; c < 127; ++c) {
        const std::string_view character(&c, 1);
        EXPECT_EQ(isUppercase(character), c >= 'A' && c <= 'Z') << int{c};
        EXPECT_EQ(isLowercase(character), c >= 'a' && c <= 'z') << int{c};
        EXPECT_EQ(isNumeric(character), c >= '0' && c <= '9') << int{c};
        EXPECT_EQ(isLetter(character), isUppercase(character) || isLowercase(character)) << int{c};
    }
}

TEST(Characters, AreUppercaseLowercaseOrNeither) {
    for (const std::string_view capital : {"A", "Z", "Ä", "A\u0308", "Σ", "Ⓐ", "Ⅷ", "ẞ", "𐐀", "Ж"}) {
        EXPECT_TRUE(isUppercase(capital)) << capital;
        EXPECT_FALSE(isLowercase(capital)) << capital;
    }
    for (const std::string_view small : {"a", "z", "ä", "a\u0308", "ς", "ⓐ", "ⅷ", "ß", "𐐨", "ª"}) {
        EXPECT_FALSE(isUppercase(small)) << small;
        EXPECT_TRUE(isLowercase(small)) << small;
    }
    for (const std::string_view neither : {"", "1", "_", " ", "漢", "א", "ǅ", "👍", "\r\n", "5\u0308"}) {
        EXPECT_FALSE(isUppercase(neither)) << neither;
        EXPECT_FALSE(isLowercase(neither)) << neither;
    }
}

/// The properties of a code point agree with its case mappings.
TEST(Characters, HaveTheCaseThatTheMappingsImply) {
    forEachCodePoint([](UChar32 codePoint, std::string_view character) {
        const bool staysUpper = uppercased(character) == character;
        const bool staysLower = lowercased(character) == character;
        ASSERT_EQ(isUppercase(character), u_isUUppercase(codePoint) || (staysUpper && !staysLower))
            << codePoint;
        ASSERT_EQ(isLowercase(character), u_isULowercase(codePoint) || (staysLower && !staysUpper))
            << codePoint;
    });
}

} // namespace
} // namespace korvane
