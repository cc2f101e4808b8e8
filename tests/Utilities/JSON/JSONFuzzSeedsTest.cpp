#include "support/JSONFormatterProperties.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace korvane {
namespace {

TEST(JSONFuzzSeeds, HoldEveryProperty) {
    int seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KORVANE_FUZZ_CORPUS "/JSONFormatter")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(support::brokenJSONFormatterProperty(text), "") << entry.path();
        ++seeds;
    }
    EXPECT_GT(seeds, 0);
}

RC_GTEST_PROP(JSONFuzzSeeds, RandomTokensHoldEveryProperty, ()) {
    // Random tokens get further into the reader than random bytes.
    const auto pieces =
        *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(std::vector<std::string>{
            "{",       "}",       "[",  "]",    ",",    ":",    "\"",      "\"a\"", "\"b\":", "1",
            "-",       ".5",      "e9", "0",    "true", "null", " ",       "\n",    "\\",     "\\u00e4",
            "\\ud83d", "\\udc69", "ü",  "\xff", "\x01", "/",    "\"a\":1", "[]",    "{}"}));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    RC_ASSERT(support::brokenJSONFormatterProperty(text) == "");
    RC_ASSERT(support::brokenJSONFormatterProperty("[" + text + "]") == "");
}

} // namespace
} // namespace korvane
