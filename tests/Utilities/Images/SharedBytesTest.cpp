#include "Utilities/Images/SharedBytes.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace korvane {
namespace {

/// A file in memory with four bytes and the seals given.
FileDescriptor memoryWith(unsigned seals) {
    FileDescriptor memory(memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    EXPECT_EQ(write(memory.number(), "four", 4), 4);
    EXPECT_EQ(fcntl(memory.number(), F_ADD_SEALS, seals), 0);
    return memory;
}

constexpr unsigned allSeals = F_SEAL_SEAL | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;

TEST(SharedBytes, HoldWhatWasCopied) {
    const std::string text(100'000, 'x');
    const auto bytes = SharedBytes::copyOf(text);
    EXPECT_EQ(bytes.view(), text);
    EXPECT_EQ(bytes, SharedBytes(bytes));
    EXPECT_NE(bytes, SharedBytes::copyOf(text)) << "equal only if they share memory";
    EXPECT_TRUE(SharedBytes::copyOf("").empty());
    EXPECT_FALSE(SharedBytes().descriptor());
}

TEST(SharedBytes, CannotBeChanged) {
    const auto bytes = SharedBytes::copyOf("four");
    const int memory = *bytes.descriptor();
    EXPECT_EQ(write(memory, "more", 4), -1);
    EXPECT_EQ(ftruncate(memory, 0), -1);
    EXPECT_EQ(mmap(nullptr, 4, PROT_READ | PROT_WRITE, MAP_SHARED, memory, 0), MAP_FAILED);
    EXPECT_EQ(fcntl(memory, F_ADD_SEALS, F_SEAL_WRITE), -1) << "nor can its seals";
}

TEST(SharedBytes, AreAdoptedOnlyWithAllSealsAndTheirSize) {
    EXPECT_TRUE(SharedBytes::adopt(memoryWith(allSeals), 4));
    EXPECT_FALSE(SharedBytes::adopt(memoryWith(allSeals), 3));
    EXPECT_FALSE(SharedBytes::adopt(memoryWith(allSeals), 5));
    EXPECT_FALSE(SharedBytes::adopt(memoryWith(allSeals), 0));
    for (const unsigned seal : {1U * F_SEAL_SEAL, 1U * F_SEAL_SHRINK, 1U * F_SEAL_GROW, 1U * F_SEAL_WRITE})
        EXPECT_FALSE(SharedBytes::adopt(memoryWith(allSeals & ~seal), 4)) << seal;
    EXPECT_FALSE(SharedBytes::adopt(FileDescriptor(open("/dev/zero", O_RDONLY | O_CLOEXEC)), 4));
    EXPECT_FALSE(SharedBytes::adopt(FileDescriptor(), 4));
}

TEST(SharedBytes, AreFoundAgainBehindSamples) {
    const auto bytes = SharedBytes::copyOf("four");
    EXPECT_EQ(SharedBytes::of(bytes.samples(), 4), bytes);
    const auto part = SharedBytes::of(bytes.samples(), 3);
    EXPECT_EQ(part.view(), "fou") << "a part is copied";
    EXPECT_NE(part.samples(), bytes.samples());
    const auto* heap = new std::byte[4]{std::byte('h'), std::byte('e'), std::byte('a'), std::byte('p')};
    const std::shared_ptr<const std::byte> samples(heap, [](const std::byte* owned) { delete[] owned; });
    EXPECT_EQ(SharedBytes::of(samples, 4).view(), "heap");
}

TEST(SharedBuffer, GrowsAndKeepsItsBytes) {
    SharedBuffer buffer;
    std::string expected;
    for (int i = 0; i < 300; ++i) {
        buffer.append(std::to_string(i));
        buffer.append(static_cast<std::size_t>(i), '-');
        expected += std::to_string(i) + std::string(static_cast<std::size_t>(i), '-');
    }
    buffer.resize(buffer.size() + 2);
    expected += std::string(2, '\0');
    EXPECT_EQ(buffer.size(), expected.size());
    EXPECT_EQ(buffer.finish().view(), expected);
    EXPECT_EQ(buffer.size(), 0);
    buffer.append("again");
    EXPECT_EQ(buffer.finish().view(), "again");
    EXPECT_TRUE(buffer.finish().empty());
}

TEST(SharedBuffer, TakesNoMoreThanItsSizeInTheEnd) {
    SharedBuffer buffer;
    buffer.reserve(1 << 20);
    buffer.append("four");
    const auto bytes = buffer.finish();
    EXPECT_EQ(lseek(*bytes.descriptor(), 0, SEEK_END), 4);
}

TEST(SharedBuffer, MemoryThatDoesNotExistIsAnException) {
    SharedBuffer buffer;
    EXPECT_THROW(buffer.reserve(std::size_t(1) << 62), std::bad_alloc);
}

} // namespace
} // namespace korvane
