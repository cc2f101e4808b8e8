#include "Utilities/Text/UTF16Text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <unicode/utf16.h>

#include <string>

namespace korvane {
namespace {

/// The byte offset of each UTF-16 position, by converting the text before it.
std::vector<std::optional<std::uint32_t>> naiveOffsets(const std::string& text) {
    const auto units = icu::UnicodeString::fromUTF8(text);
    std::vector<std::optional<std::uint32_t>> offsets;
    for (std::int32_t unit = 0; unit <= units.length(); ++unit) {
        std::string before;
        units.tempSubString(0, unit).toUTF8String(before);
        const bool isInsidePair = unit < units.length() && units.getChar32Start(unit) != unit;
        offsets.push_back(isInsidePair ? std::nullopt
                                       : std::optional(static_cast<std::uint32_t>(before.size())));
    }
    return offsets;
}

void expectOffsets(const std::string& text, const std::vector<std::optional<std::uint32_t>>& offsets) {
    const UTF16Text copy(text);
    ASSERT_EQ(static_cast<std::size_t>(copy.units().length()) + 1, offsets.size());
    for (std::size_t unit = 0; unit < offsets.size(); ++unit)
        ASSERT_EQ(copy.byteOffset(static_cast<std::int64_t>(unit)), offsets[unit]) << text << " at " << unit;
}

RC_GTEST_PROP(UTF16Text, FindsTheByteOffsetOfEachPosition, ()) {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
        "a", "\n", "é", "क", "😀", "ascii and more of it", "👩‍👩‍👧"));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    expectOffsets(text, naiveOffsets(text));
}

TEST(UTF16Text, FindsByteOffsetsAroundRecordedPositions) {
    for (std::size_t length = 0; length < 40; ++length)
        expectOffsets(std::string(length, 'a') + "😀", naiveOffsets(std::string(length, 'a') + "😀"));
}

TEST(UTF16Text, CountsBytesThatAreNotUTF8) {
    expectOffsets("\xff", {0, 1});
    expectOffsets("a\xffz", {0, 1, 2, 3});
    expectOffsets("é\xff", {0, 2, 3});
    expectOffsets("\xe2\x82z", {0, 2, 3}); // a sequence that is cut short is one character
    expectOffsets("\xed\xa0\xbd", {0, 1, 2, 3});
}

} // namespace
} // namespace korvane
