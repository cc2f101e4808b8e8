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

TEST(UUID, IsRandomInEveryOtherBit) {
    // By chance, a bit is the same in all 64 UUIDs once in 2^56 runs.
    UUID ones;
    UUID zeros;
    for (int i = 0; i < 64; ++i) {
        const auto uuid = UUID::random();
        for (std::size_t byte = 0; byte < uuid.bytes.size(); ++byte) {
            ones.bytes[byte] |= uuid.bytes[byte];
            zeros.bytes[byte] |= static_cast<std::uint8_t>(~uuid.bytes[byte]);
        }
    }
    EXPECT_EQ(ones.text(), "FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF");
    EXPECT_EQ(zeros.text(), "FFFFFFFF-FFFF-BFFF-7FFF-FFFFFFFFFFFF");
}

TEST(UUID, WritesItsCanonicalForm) {
    // The version 4 example of RFC 9562, appendix A.3, and both extremes.
    EXPECT_EQ((UUID{{0x91, 0x91, 0x08, 0xF7, 0x52, 0xD1, 0x43, 0x20, 0x9B, 0xAC, 0xF8, 0x47, 0xDB, 0x41, 0x48,
                     0xA8}}
                   .text()),
              "919108F7-52D1-4320-9BAC-F847DB4148A8");
    EXPECT_EQ(UUID{}.text(), "00000000-0000-0000-0000-000000000000");
    UUID maxUUID;
    maxUUID.bytes.fill(0xFF);
    EXPECT_EQ(maxUUID.text(), "FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF");
}

} // namespace
} // namespace korvane
