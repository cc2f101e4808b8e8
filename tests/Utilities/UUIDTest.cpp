#include "Utilities/UUID.h"

#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <cstddef>
#include <thread>
#include <unordered_set>
#include <utility>
#include <vector>

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

TEST(LazyUUID, IsTheSameWheneverItIsRequested) {
    const LazyUUID identity;
    const auto uuid = identity();
    EXPECT_EQ(uuid.bytes[6] >> 4, 4) << "a random one";
    EXPECT_EQ(identity(), uuid);
    EXPECT_NE(LazyUUID()(), uuid);
}

TEST(LazyUUID, IsEqualInCopiesOnly) {
    for (const bool isRequested : {false, true}) {
        const LazyUUID identity;
        const LazyUUID other;
        if (isRequested) {
            EXPECT_NE(identity(), other());
        }
        EXPECT_EQ(identity, identity);
        EXPECT_NE(identity, other);
        const LazyUUID copy = identity;
        EXPECT_EQ(copy, identity);
        EXPECT_EQ(copy(), identity());
        EXPECT_NE(copy, other);
        LazyUUID assigned;
        assigned = identity;
        EXPECT_EQ(assigned, identity);
    }
}

TEST(LazyUUID, MovesToAnotherPlace) {
    LazyUUID identity;
    const LazyUUID copy = identity;
    const LazyUUID moved = std::move(identity);
    EXPECT_EQ(moved, copy);
    EXPECT_EQ(moved(), copy());
    LazyUUID assigned;
    const auto earlier = assigned();
    assigned = LazyUUID(copy);
    EXPECT_EQ(assigned(), copy());
    EXPECT_NE(assigned(), earlier);
}

TEST(LazyUUID, IsTheSameInAllThreads) {
    for (int round = 0; round < 100; ++round) {
        const LazyUUID identity;
        std::array<UUID, 4> seen;
        std::barrier start(static_cast<std::ptrdiff_t>(seen.size()));
        {
            std::vector<std::jthread> threads;
            for (auto& uuid : seen)
                threads.emplace_back([&] {
                    start.arrive_and_wait();
                    uuid = identity();
                });
        }
        for (const auto& uuid : seen)
            EXPECT_EQ(uuid, identity());
    }
}

} // namespace
} // namespace korvane
