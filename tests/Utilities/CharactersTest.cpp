#include "Utilities/Characters.h"

#include "Utilities/Text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

struct SplitRow {
    std::string_view name;
    std::string_view text;
    std::vector<std::string_view> characters;
};

TEST(Characters, AreWhatPeopleTakeForOne) {
    const std::vector<SplitRow> rows = {
        {"nothing", "", {}},
        {"ASCII", "aB3", {"a", "B", "3"}},
        {"CR LF", "a\r\n\r\n\n", {"a", "\r\n", "\r\n", "\n"}},
        {"CR at the end", "a\r", {"a", "\r"}},
        {"CR LF beside others", "é\r\nx", {"é", "\r\n", "x"}},
        {"marks", "e\u0301\u0323x", {"e\u0301\u0323", "x"}},
        {"joined emoji", "a👨‍👩‍👧b", {"a", "👨‍👩‍👧", "b"}},
        {"flags", "🇳🇴🇸🇪", {"🇳🇴", "🇸🇪"}},
        {"NUL", std::string_view("a\0b", 3), {"a", std::string_view("\0", 1), "b"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(characters(row.text), row.characters) << row.name;
}

RC_GTEST_PROP(Characters, AreAsManyAsCountedAndMakeUpTheText, ()) {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(
        rc::gen::elementOf(std::vector<std::string>{"a", "\r", "\n", "ü", "\u0308", "\u200D", "👩", "🏽", "🇳",
                                                    "ᄀ", "ᅡ", "क", "्", "漢", "\xff", "\xe2\x82"}));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    std::string joined;
    for (const auto character : characters(text))
        joined += character;
    RC_ASSERT(joined == text);
    RC_ASSERT(characters(text).size() == characterCount(text));
}

struct ClassRow {
    std::string_view name;
    std::string_view character;
    std::string_view classes; ///< U, l, a letter (A) and a number (n)
};

TEST(Characters, BelongToTheClassesOfUnicode) {
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

TEST(Characters, OfASCIIHaveTheClassesOfASCII) {
    for (char c = 0; c >= 0 && c < 127; ++c) {
        const std::string_view character(&c, 1);
        EXPECT_EQ(isUppercase(character), c >= 'A' && c <= 'Z') << int{c};
        EXPECT_EQ(isLowercase(character), c >= 'a' && c <= 'z') << int{c};
        EXPECT_EQ(isNumeric(character), c >= '0' && c <= '9') << int{c};
        EXPECT_EQ(isLetter(character), isUppercase(character) || isLowercase(character)) << int{c};
    }
}

} // namespace
} // namespace korvane
