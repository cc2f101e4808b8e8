#include "Utilities/UUID.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace korvane {
namespace {

TEST(UUID, IsRandomWithVersionAndVariant) {
    std::unordered_set<UUID> seen;
    for (int i = 0; i < 10'000; ++i) {
        const auto uuid = UUID::random();
        EXPECT_EQ(uuid.bytes[6] >> 4, 4);
        EXPECT_EQ(uuid.bytes[8] >> 6, 2);
        seen.insert(uuid);
    }
    EXPECT_EQ(seen.size(), 10'000U);
}

} // namespace
} // namespace korvane
