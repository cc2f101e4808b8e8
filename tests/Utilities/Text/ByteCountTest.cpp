#include "Utilities/Text/ByteCount.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

namespace korvane {
namespace {

TEST(ByteCount, HasAUnitAndAsManyDigitsAsMatter) {
    struct Row {
        std::int64_t bytes;
        std::string_view text;
        std::string_view shortText;
    };

    constexpr Row rows[] = {
        {0, "0 bytes", "0 bytes"},
        {999, "999 bytes", "999 bytes"},
        {1000, "1 KB", "1 KB"},
        {482'499, "482 KB", "482 KB"},
        {999'499, "999 KB", "999 KB"},
        {999'500, "1.0 MB", "1 MB"},
        {48'210'774, "48.2 MB", "48 MB"},
        {99'949'999, "99.9 MB", "100 MB"},
        {99'950'000, "100 MB", "100 MB"},
        {1'100'000'000, "1.1 GB", "1 GB"},
        {5'000'000'000'000, "5000 GB", "5000 GB"},
    };
    for (const auto& [bytes, text, shortText] : rows) {
        EXPECT_EQ(byteCountText(bytes), text);
        EXPECT_EQ(shortByteCountText(bytes), shortText);
    }
}

} // namespace
} // namespace korvane
