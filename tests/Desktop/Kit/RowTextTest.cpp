#include "Desktop/Kit/RowText.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

TEST(RowText, KeepsAShortLine) {
    EXPECT_EQ(shortenedLine(""), "");
    EXPECT_EQ(shortenedLine("Zoë 漢字 👍"), "Zoë 漢字 👍");
    EXPECT_EQ(shortenedLine(std::string(1024, 'x')), std::string(1024, 'x'));
}

TEST(RowText, PutsEverythingOnOneLine) {
    EXPECT_EQ(shortenedLine("a\nb\r\nc\td\u2028e"), "a b  c d e");
}

TEST(RowText, ShortensALongLineBetweenCharacters) {
    EXPECT_EQ(shortenedLine(std::string(1'000'000, 'x')), std::string(1024, 'x') + "…");
    const auto cut = std::string(1022, 'x') + "👍";
    EXPECT_EQ(shortenedLine(cut + "y"), cut + "…");
    EXPECT_EQ(shortenedLine(cut), cut);
}

} // namespace
} // namespace korvane
