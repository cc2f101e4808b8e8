#include "Utilities/Images/ImageMessages.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/socket.h>

namespace korvane::ImageMessages {

namespace {

/// Room for `maxDescriptors` and one more, so that too many are noticed.
union Control {
    cmsghdr header;
    char bytes[CMSG_SPACE((maxDescriptors + 1) * sizeof(int))];
};

/// Takes ownership of the descriptors of a message.
Descriptors descriptorsOf(msghdr& message) {
    Descriptors descriptors;
    for (auto* part = CMSG_FIRSTHDR(&message); part; part = CMSG_NXTHDR(&message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS)
            continue;
        const auto count = (part->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; ++i) {
            int number = -1;
            std::memcpy(&number, CMSG_DATA(part) + i * sizeof number, sizeof number);
            descriptors.emplace_back(number);
        }
    }
    return descriptors;
}

bool isPossible(const PictureRecord& record) {
    const auto isIn = [](std::int32_t value, std::int32_t min, std::int32_t max) {
        return value >= min && value <= max;
    };
    constexpr auto maxSide = static_cast<std::int32_t>(ImageConverter::maxPixels);
    return isIn(record.width, 1, maxSide) && isIn(record.height, 1, maxSide) &&
           std::int64_t(record.width) * record.height <= ImageConverter::maxPixels &&
           isIn(record.channels, 1, 4) && isIn(record.bytesPerSample, 1, 2) &&
           isValidDPI(record.horizontalDPI) && isValidDPI(record.verticalDPI) &&
           record.profileBytes <= maxProfileBytes;
}

PictureRecord recordOf(const Image& image, Memory& memory) {
    memory.push_back(SharedBytes::of(image.samples, image.byteCount()));
    if (!image.colorProfile.empty())
        memory.push_back(SharedBytes::copyOf(image.colorProfile));
    return {.width = image.width,
            .height = image.height,
            .channels = image.channels,
            .bytesPerSample = image.bytesPerSample,
            .horizontalDPI = image.horizontalDPI,
            .verticalDPI = image.verticalDPI,
            .profileBytes = image.colorProfile.size()};
}

} // namespace

bool sendBytes(int socket, const void* record, std::size_t size, const Memory& memory) {
    std::array<int, maxDescriptors> numbers{};
    std::size_t count = 0;
    for (const auto& bytes : memory) {
        const auto number = bytes.descriptor();
        if (!number || count == maxDescriptors)
            return false;
        numbers[count++] = *number;
    }
    iovec content{.iov_base = const_cast<void*>(record), .iov_len = size};
    Control control{};
    msghdr message{};
    message.msg_iov = &content;
    message.msg_iovlen = 1;
    if (count > 0) {
        message.msg_control = &control;
        message.msg_controllen = CMSG_SPACE(count * sizeof(int));
        auto* part = CMSG_FIRSTHDR(&message);
        part->cmsg_level = SOL_SOCKET;
        part->cmsg_type = SCM_RIGHTS;
        part->cmsg_len = CMSG_LEN(count * sizeof(int));
        std::memcpy(CMSG_DATA(part), numbers.data(), count * sizeof(int));
    }
    return std::cmp_equal(sendmsg(socket, &message, MSG_NOSIGNAL | MSG_DONTWAIT), size);
}

std::optional<Descriptors> receiveBytes(int socket, void* record, std::size_t size) {
    iovec content{.iov_base = record, .iov_len = size};
    Control control{};
    msghdr message{};
    message.msg_iov = &content;
    message.msg_iovlen = 1;
    message.msg_control = &control;
    message.msg_controllen = sizeof control;
    ssize_t count = -1;
    do
        count = recvmsg(socket, &message, MSG_CMSG_CLOEXEC);
    while (count < 0 && errno == EINTR);
    if (count < 0)
        return std::nullopt;
    auto descriptors = descriptorsOf(message);
    const bool isCut = (message.msg_flags & (MSG_TRUNC | MSG_CTRUNC)) != 0;
    if (isCut || !std::cmp_equal(count, size) || descriptors.size() > maxDescriptors)
        return std::nullopt;
    return descriptors;
}

void describe(const SharedBytes& file, Request& request, Memory& memory) {
    request.fileBytes = file.size();
    memory.push_back(file);
}

void describe(const SharedBytes& file, Reply& reply, Memory& memory) {
    reply.fileBytes = file.size();
    memory.push_back(file);
}

void describe(const Image& image, Request& request, Memory& memory) {
    request.picture = recordOf(image, memory);
}

void describe(const Image& image, Reply& reply, Memory& memory) {
    reply.picture = recordOf(image, memory);
}

std::optional<Image> imageOf(const PictureRecord& record, Descriptors descriptors) {
    const std::size_t expected = record.profileBytes > 0 ? 2 : 1;
    if (!isPossible(record) || descriptors.size() != expected)
        return std::nullopt;
    Image image{.width = record.width,
                .height = record.height,
                .channels = record.channels,
                .bytesPerSample = record.bytesPerSample,
                .horizontalDPI = record.horizontalDPI,
                .verticalDPI = record.verticalDPI};
    const auto samples = SharedBytes::adopt(std::move(descriptors[0]), image.byteCount());
    if (!samples)
        return std::nullopt;
    image.samples = samples->samples();
    if (record.profileBytes > 0) {
        const auto profile = SharedBytes::adopt(std::move(descriptors[1]), record.profileBytes);
        if (!profile)
            return std::nullopt;
        image.colorProfile = profile->view();
    }
    return image;
}

std::optional<SharedBytes> fileOf(std::uint64_t bytes, Descriptors descriptors) {
    if (bytes > maxFileBytes || descriptors.size() != 1)
        return std::nullopt;
    return SharedBytes::adopt(std::move(descriptors[0]), bytes);
}

} // namespace korvane::ImageMessages
