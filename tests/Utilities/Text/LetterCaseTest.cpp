#include "Utilities/Text/LetterCase.h"

#include "Utilities/Text/Characters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace korvane {
namespace {

struct LetterCaseRow {
    std::string_view text;
    std::string_view upper;
    std::string_view lower;
    std::string_view capitals;
};

constexpr LetterCaseRow letterCaseRows[] = {
    {"", "", "", ""},
    {"hELLO wORLD", "HELLO WORLD", "hello world", "Hello World"},
    {"iPhone", "IPHONE", "iphone", "Iphone"},
    {"  o'neill-smith\tx_y.z ", "  O'NEILL-SMITH\tX_Y.Z ", "  o'neill-smith\tx_y.z ",
     "  O'neill-smith\tX_y.z "},
    {"one\r\ntwo\u2028three\u00A0four", "ONE\r\nTWO\u2028THREE\u00A0FOUR", "one\r\ntwo\u2028three\u00A0four",
     "One\r\nTwo\u2028Three\u00A0Four"},
    {"straße", "STRASSE", "straße", "Straße"},
    {"ßa", "SSA", "ßa", "SSa"},
    {"ΟΔΥΣΣΕΥΣ ΣΑΣ ΑΣ.", "ΟΔΥΣΣΕΥΣ ΣΑΣ ΑΣ.", "οδυσσευς σας ας.", "Οδυσσευς Σας Ας."},
    {"İstanbul", "İSTANBUL", "i\u0307stanbul", "İstanbul"},
    {"ﬁx ŉ", "FIX ʼN", "ﬁx ŉ", "FIx ʼN"},
    {"e\u0301a E\u0301A", "E\u0301A E\u0301A", "e\u0301a e\u0301a", "E\u0301a E\u0301a"},
    {"(hello) 1st \"x\"", "(HELLO) 1ST \"X\"", "(hello) 1st \"x\"", "(hello) 1st \"x\""},
    {"𐐨𐐀", "𐐀𐐀", "𐐨𐐨", "𐐀𐐨"},
    {"漢字 👍🏽 नमस्ते", "漢字 👍🏽 नमस्ते", "漢字 👍🏽 नमस्ते", "漢字 👍🏽 नमस्ते"},
};

TEST(LetterCase, MapsWholeTexts) {
    for (const auto& row : letterCaseRows) {
        EXPECT_EQ(uppercased(row.text), row.upper);
        EXPECT_EQ(lowercased(row.text), row.lower);
        EXPECT_EQ(capitalized(row.text), row.capitals);
    }
}

RC_GTEST_PROP(LetterCase, CapitalizesCharacterByCharacter, ()) {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(
        std::vector<std::string>{"a", "Bc", "dEF", "ß", "Äö", "e\u0301X", "ǆa", " ", "\n", "1a", "Ж", "ﬀ"}));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    std::string expected;
    bool isFirst = true;
    Characters characters(text);
    for (auto character = characters.next(); !character.empty(); character = characters.next()) {
        expected += isFirst ? uppercased(character) : lowercased(character);
        isFirst = character == " " || character == "\n";
    }
    RC_ASSERT(capitalized(text) == expected);
}

} // namespace
} // namespace korvane
