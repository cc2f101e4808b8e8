#include "Utilities/Images/ImageMessages.h"

#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <vector>

#include <sys/socket.h>
#include <unistd.h>

namespace korvane::ImageMessages {
namespace {

class ImageMessagesTest : public ::testing::Test {
protected:
    ImageMessagesTest() {
        std::array<int, 2> numbers{};
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, numbers.data()), 0);
        sender = FileDescriptor(numbers[0]);
        receiver = FileDescriptor(numbers[1]);
    }

    /// Sends the beginning of a record.
    void sendPart(const Reply& reply, std::size_t bytes) const {
        EXPECT_EQ(::send(sender.number(), &reply, bytes, MSG_NOSIGNAL), static_cast<ssize_t>(bytes));
    }

    FileDescriptor sender{};
    FileDescriptor receiver{};
};

TEST_F(ImageMessagesTest, APictureArrivesWithoutACopyOfItsSamples) {
    auto image = support::distinctPicture({7, 5}, 4, 2);
    image.colorProfile = "a profile";
    image.horizontalDPI = 300;
    Reply reply{.number = 3};
    Memory memory;
    describe(image, reply, memory);
    ASSERT_TRUE(send(sender.number(), reply, memory));
    auto received = receive<Reply>(receiver.number());
    ASSERT_TRUE(received);
    EXPECT_EQ(received->record.number, 3);
    const auto arrived = imageOf(received->record.picture, std::move(received->descriptors));
    ASSERT_TRUE(arrived);
    EXPECT_TRUE(support::haveSamePixels(*arrived, image));
    EXPECT_EQ(arrived->colorProfile, "a profile");
    EXPECT_EQ(arrived->horizontalDPI, 300);
    memory.clear();
    describe(*arrived, reply, memory);
    EXPECT_EQ(memory.front().samples(), arrived->samples) << "sent back as the memory that it is";
}

TEST_F(ImageMessagesTest, OnlyWholeMessagesAreReceived) {
    const Reply reply{};
    sendPart(reply, sizeof reply - 1);
    EXPECT_FALSE(receive<Reply>(receiver.number()));
    const std::array<Reply, 2> two{};
    EXPECT_GT(::send(sender.number(), two.data(), sizeof reply + 1, MSG_NOSIGNAL), 0);
    EXPECT_FALSE(receive<Reply>(receiver.number()));
    EXPECT_TRUE(send(sender.number(), Reply{.signature = signature + 1}));
    EXPECT_FALSE(receive<Reply>(receiver.number())) << "another version";
    EXPECT_TRUE(send(sender.number(), reply));
    EXPECT_TRUE(receive<Reply>(receiver.number())) << "what follows is intact";
    sender = {};
    EXPECT_FALSE(receive<Reply>(receiver.number())) << "the end of the connection";
}

TEST_F(ImageMessagesTest, TooManyDescriptorsAreRefused) {
    const auto bytes = SharedBytes::copyOf("bytes");
    EXPECT_FALSE(send(sender.number(), Reply{}, {bytes, bytes, bytes}));
    EXPECT_FALSE(send(sender.number(), Reply{}, {SharedBytes()})) << "no memory at all";
    EXPECT_TRUE(send(sender.number(), Reply{}, {bytes, bytes}));
    EXPECT_EQ(receive<Reply>(receiver.number())->descriptors.size(), 2);
}

TEST_F(ImageMessagesTest, SendingToNobodyCausesNoSignal) {
    receiver = {};
    EXPECT_FALSE(send(sender.number(), Reply{}));
}

TEST_F(ImageMessagesTest, SendingDoesNotBlock) {
    int sent = 0;
    while (send(sender.number(), Reply{}) && sent < 1'000'000)
        ++sent;
    EXPECT_GT(sent, 0);
    EXPECT_LT(sent, 1'000'000);
}

TEST(ImageMessages, APictureMustHaveAPossibleShapeAndItsMemory) {
    constexpr PictureRecord valid{.width = 4,
                                  .height = 2,
                                  .channels = 3,
                                  .bytesPerSample = 1,
                                  .horizontalDPI = 72,
                                  .verticalDPI = 72,
                                  .profileBytes = 5};
    const auto imageWith = [](PictureRecord record, std::vector<std::size_t> sizes = {24, 5}) {
        Descriptors descriptors;
        for (const auto size : sizes)
            descriptors.emplace_back(dup(*SharedBytes::copyOf(std::string(size, 'x')).descriptor()));
        return imageOf(record, std::move(descriptors));
    };
    EXPECT_TRUE(imageWith(valid));
    EXPECT_FALSE(imageWith(valid, {24}));
    EXPECT_FALSE(imageWith(valid, {24, 5, 5}));
    EXPECT_FALSE(imageWith(valid, {23, 5}));
    EXPECT_FALSE(imageWith(valid, {24, 6}));
    EXPECT_FALSE(imageWith(valid, {}));
    const std::function<void(PictureRecord&)> changes[] = {
        [](auto& record) { record.width = 0; },
        [](auto& record) { record.width = -4; },
        [](auto& record) { record.height = 0; },
        [](auto& record) { record.width = record.height = std::numeric_limits<std::int32_t>::max(); },
        [](auto& record) { record.channels = 5; },
        [](auto& record) { record.channels = 0; },
        [](auto& record) { record.bytesPerSample = 3; },
        [](auto& record) { record.bytesPerSample = 0; },
        [](auto& record) { record.horizontalDPI = std::numeric_limits<double>::quiet_NaN(); },
        [](auto& record) { record.verticalDPI = 0; },
        [](auto& record) { record.profileBytes = 0; },
        [](auto& record) { record.profileBytes = std::numeric_limits<std::uint64_t>::max(); },
    };
    for (std::size_t i = 0; i < std::size(changes); ++i) {
        auto record = valid;
        changes[i](record);
        EXPECT_FALSE(imageWith(record)) << "change " << i;
    }
}

TEST(ImageMessages, AFileMustHaveExactlyItsMemory) {
    const auto fileWith = [](std::uint64_t bytes, std::size_t count) {
        Descriptors descriptors;
        for (std::size_t i = 0; i < count; ++i)
            descriptors.emplace_back(dup(*SharedBytes::copyOf("seven b").descriptor()));
        return fileOf(bytes, std::move(descriptors));
    };
    EXPECT_TRUE(fileWith(7, 1));
    EXPECT_FALSE(fileWith(8, 1));
    EXPECT_FALSE(fileWith(0, 1));
    EXPECT_FALSE(fileWith(7, 0));
    EXPECT_FALSE(fileWith(7, 2));
    EXPECT_FALSE(fileWith(maxFileBytes + 1, 1));
}

} // namespace
} // namespace korvane::ImageMessages
