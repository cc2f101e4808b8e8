#include "support/TextAreaProperties.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace korvane {
namespace {

TEST(TextAreaFuzz, SeedsHoldEveryProperty) {
    int seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KORVANE_FUZZ_CORPUS "/TextArea")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string program(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(support::brokenTextAreaProperty(program), "") << entry.path();
        ++seeds;
    }
    EXPECT_GT(seeds, 0);
}

RC_GTEST_PROP(TextAreaFuzz, RandomStepsHoldEveryProperty, ()) {
    RC_ASSERT(support::brokenTextAreaProperty(*rc::gen::arbitrary<std::string>()) == "");
}

} // namespace
} // namespace korvane
