/// The messages between the window's process and the image process: records of fixed size on a socket that
/// keeps their boundaries (SOCK_SEQPACKET), with shared memory for bytes of any length. Both sides check
/// every field of what they receive.
#pragma once

#include "Utilities/ImageConverter.h"
#include "Utilities/Images/FileDescriptor.h"
#include "Utilities/Images/SharedBytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace korvane::ImageMessages {

/// The image process finds its end of the connection under this number.
inline constexpr int socketNumber = 3;

/// The first word of every message. Changes with the records below, so that the processes of two versions
/// of the program do not misread each other.
inline constexpr std::uint32_t signature = 0x4B690001;

/// Larger files are not accepted from the image process: more than any format needs for the largest picture.
inline constexpr std::uint64_t maxFileBytes = std::uint64_t(1) << 32;

/// The largest colour profile that is passed on; those of devices have at most a few megabytes.
inline constexpr std::uint64_t maxProfileBytes = std::uint64_t(1) << 26;

enum class Operation : std::uint32_t {
    formatOf,
    decode,
    getImageInfo,
    convert,
    rotate,
    flip,
    resize,
    preview,
};

inline constexpr std::uint32_t operationCount = 8;

/// An `Image` without its samples and its colour profile, which follow as descriptors in this order.
struct PictureRecord {
    std::int32_t width = 0; ///< 0: there is no picture
    std::int32_t height = 0;
    std::int32_t channels = 0;
    std::int32_t bytesPerSample = 0;
    double horizontalDPI = 0;
    double verticalDPI = 0;
    std::uint64_t profileBytes = 0;
};

/// An `ImageInfo`; the client knows the size of the file.
struct InfoRecord {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint32_t colorModel = 0; ///< an index of `colorModels`
    std::uint32_t hasAlpha = 0;
    std::int32_t dpi = 0;
    std::int32_t pictureCount = 0;
};

inline constexpr auto colorModels = std::to_array<std::string_view>({"Unknown", "Gray", "RGB", "CMYK"});

/// What the client asks for. Operations ignore fields that they have no use for.
struct Request {
    std::uint32_t signature = ImageMessages::signature;
    std::uint32_t number = 0; ///< repeated in the reply
    std::uint32_t operation = 0;
    std::uint32_t format = 0;
    std::uint32_t rotation = 0;
    std::uint32_t direction = 0;
    std::int32_t width = 0; ///< of `resize`; the side of `preview`
    std::int32_t height = 0;
    std::uint32_t maintainsAspectRatio = 0;
    std::uint32_t padding = 0;
    double quality = 0;
    std::uint64_t fileBytes = 0; ///< above 0: the file follows as a descriptor, and there is no picture
    PictureRecord picture{};
};

/// The answer to one request.
struct Reply {
    std::uint32_t signature = ImageMessages::signature;
    std::uint32_t number = 0;
    std::uint32_t error = 0; ///< 0: none; otherwise 1 more than the `ConversionError`
    std::uint32_t format = 0;
    std::uint64_t fileBytes = 0; ///< as in `Request`
    InfoRecord info{};
    PictureRecord picture{};
};

/// The first message of the image process, once it is isolated. One bit for each format, in order.
struct Greeting {
    std::uint32_t signature = ImageMessages::signature;
    std::uint32_t isIsolated = 0; ///< otherwise the process ends after this message
    std::uint32_t decodable = 0;
    std::uint32_t encodable = 0;
};

/// The shared memory that goes with a record, in the order of its fields; at most `maxDescriptors`.
using Memory = std::vector<SharedBytes>;
using Descriptors = std::vector<FileDescriptor>;

inline constexpr std::size_t maxDescriptors = 2;

/// Sends `size` bytes as one message. Never blocks and causes no signal; returns whether it was sent.
bool sendBytes(int socket, const void* record, std::size_t size, const Memory& memory);

/// Receives one message of exactly `size` bytes with its descriptors, blocking until there is one; none at
/// the end of the connection, or if the message is shorter, longer, or has too many descriptors.
std::optional<Descriptors> receiveBytes(int socket, void* record, std::size_t size);

template <typename Record>
bool send(int socket, const Record& record, const Memory& memory = {}) {
    static_assert(std::is_trivially_copyable_v<Record>);
    return sendBytes(socket, &record, sizeof record, memory);
}

template <typename Record>
struct Received {
    Record record{};
    Descriptors descriptors{};
};

/// The next message, or none if it is not a `Record` of this version of the program.
template <typename Record>
std::optional<Received<Record>> receive(int socket) {
    static_assert(std::is_trivially_copyable_v<Record>);
    Received<Record> received;
    auto descriptors = receiveBytes(socket, &received.record, sizeof received.record);
    if (!descriptors || received.record.signature != signature)
        return std::nullopt;
    received.descriptors = *std::move(descriptors);
    return received;
}

/// Describes a file, or a picture, in the record of a message, and appends its memory. A picture that is not
/// in shared memory is copied. Throws `std::bad_alloc`.
void describe(const SharedBytes& file, Request& request, Memory& memory);
void describe(const SharedBytes& file, Reply& reply, Memory& memory);
void describe(const Image& image, Request& request, Memory& memory);
void describe(const Image& image, Reply& reply, Memory& memory);

/// The picture that was received; none unless its shape is possible and `descriptors` are exactly its memory.
std::optional<Image> imageOf(const PictureRecord& record, Descriptors descriptors);

/// The file that was received; none unless `descriptors` is exactly one, of that size.
std::optional<SharedBytes> fileOf(std::uint64_t bytes, Descriptors descriptors);

/// The case with that index, or none.
template <Enumerated E>
std::optional<E> caseAt(std::uint32_t index) {
    return index < allCases<E>.size() ? std::optional(allCases<E>[index]) : std::nullopt;
}

} // namespace korvane::ImageMessages
