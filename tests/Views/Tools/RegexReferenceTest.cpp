/// The fixed texts of the regular-expression screen.

#include "Views/Tools/RegexTesterView.h"

#include <gtest/gtest.h>

#include <set>

namespace korvane {
namespace {

TEST(RegexCheatItems, AreTheTwelveOfTheReference) {
    std::string items;
    for (const auto& [pattern, description] : regexCheatItems)
        items += std::string(pattern) + " " + std::string(description) + "\n";
    EXPECT_EQ(items, ". Any character\n"
                     "\\d Digit\n"
                     "\\w Word char\n"
                     "\\s Whitespace\n"
                     "^ Start\n"
                     "$ End\n"
                     "* 0 or more\n"
                     "+ 1 or more\n"
                     "? 0 or 1\n"
                     "{n} Exactly n\n"
                     "[abc] Character class\n"
                     "() Capture group\n");
}

TEST(RegexInterruptions, HaveTheirMessages) {
    using RegularExpression::Interruption;
    EXPECT_EQ(rawValue(Interruption::patternTookTooLong),
              "Matching stopped: the pattern takes too long to compile");
    EXPECT_EQ(rawValue(Interruption::tookTooLong),
              "Matching stopped: the pattern takes too long on this text");
    EXPECT_EQ(rawValue(Interruption::tookTooMuchMemory),
              "Matching stopped: the pattern takes too much memory on this text");
    EXPECT_EQ(rawValue(Interruption::tooManyMatches),
              "Matching stopped: the pattern matches too often in this text");
}

} // namespace
} // namespace korvane
