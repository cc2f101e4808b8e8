#include "Images/Program/Server.h"

#include "Utilities/ImageConverter.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace korvane::ImageServer {

namespace {

using ImageMessages::caseAt;
using ImageMessages::Memory;
using ImageMessages::Operation;
using ImageMessages::Reply;

/// In seconds. A process that has lost its client ends at the latest then, even if the decoder hangs; the
/// client's limit is shorter.
constexpr unsigned maxSeconds = 3600;

std::unexpected<ConversionError> invalid() {
    return std::unexpected(ConversionError::invalidImage);
}

/// An answer and its memory.
struct Answer {
    Reply reply{};
    Memory memory{};
};

using Answered = std::expected<Answer, ConversionError>;

/// The answer with the result of an operation that makes a picture or a file.
template <typename Result>
Answered answerWith(const std::expected<Result, ConversionError>& result) {
    if (!result)
        return std::unexpected(result.error());
    Answer answer;
    ImageMessages::describe(*result, answer.reply, answer.memory);
    return answer;
}

Answered formatOf(const SharedBytes& file) {
    const auto format = ImageConverter::formatOf(file);
    if (!format)
        return std::unexpected(ConversionError::unsupportedFormat);
    return Answer{.reply = {.format = static_cast<std::uint32_t>(*format)}};
}

Answered infoOf(const SharedBytes& file) {
    const auto info = ImageConverter::getImageInfo(file);
    const auto format = ImageConverter::formatOf(file);
    if (!info || !format)
        return invalid();
    const auto model = std::ranges::find(ImageMessages::colorModels, info->colorSpace);
    if (model == ImageMessages::colorModels.end())
        return invalid();
    return Answer{.reply = {.format = static_cast<std::uint32_t>(*format),
                            .info = {.width = info->width,
                                     .height = info->height,
                                     .colorModel = static_cast<std::uint32_t>(
                                         model - ImageMessages::colorModels.begin()),
                                     .hasAlpha = info->hasAlpha ? 1U : 0U,
                                     .dpi = info->dpi,
                                     .pictureCount = info->pictureCount}}};
}

Answered answerAboutFile(Operation operation, const SharedBytes& file) {
    switch (operation) {
    case Operation::formatOf:
        return formatOf(file);
    case Operation::getImageInfo:
        return infoOf(file);
    default:
        return answerWith(ImageConverter::decode(file, {}));
    }
}

Answered answerAboutImage(Operation operation, const ImageMessages::Request& request, const Image& image) {
    using namespace ImageConverter;
    const auto format = caseAt<ImageFormat>(request.format);
    const auto rotation = caseAt<Rotation>(request.rotation);
    const auto direction = caseAt<FlipDirection>(request.direction);
    if (!format || !rotation || !direction)
        return invalid();
    switch (operation) {
    case Operation::convert:
        return answerWith(convert(image, *format, request.quality));
    case Operation::rotate:
        return answerWith(rotate(image, *rotation));
    case Operation::flip:
        return answerWith(flip(image, *direction));
    case Operation::resize:
        return answerWith(resize(image, {request.width, request.height}, request.maintainsAspectRatio != 0));
    default:
        return answerWith(preview(image, std::max(1, request.width)));
    }
}

Answered answer(Request request) {
    const auto& record = request.record;
    const auto operation = static_cast<Operation>(record.operation);
    const bool isAboutFile = operation == Operation::formatOf || operation == Operation::decode ||
                             operation == Operation::getImageInfo;
    if (isAboutFile) {
        const auto file = ImageMessages::fileOf(record.fileBytes, std::move(request.descriptors));
        if (!file)
            return invalid();
        file->willBeRead();
        return answerAboutFile(operation, *file);
    }
    const auto image = ImageMessages::imageOf(record.picture, std::move(request.descriptors));
    if (!image)
        return invalid();
    SharedBytes::of(image->samples, image->byteCount()).willBeRead();
    return answerAboutImage(operation, record, *image);
}

Answered guardedAnswer(Request request, const std::function<void(const Request&)>& before) {
    try {
        if (before)
            before(request);
        return answer(std::move(request));
    } catch (const std::bad_alloc&) {
        return std::unexpected(ConversionError::outOfMemory);
    }
}

std::uint32_t formatsWith(bool (*has)(ImageFormat)) {
    std::uint32_t formats = 0;
    for (const auto format : allCases<ImageFormat>) {
        if (has(format))
            formats |= 1U << static_cast<unsigned>(format);
    }
    return formats;
}

} // namespace

bool isConnected(int socket) {
    int type = 0;
    socklen_t size = sizeof type;
    return getsockopt(socket, SOL_SOCKET, SO_TYPE, &type, &size) == 0 && type == SOCK_SEQPACKET;
}

ImageMessages::Greeting greeting() {
    return {.decodable = formatsWith(ImageConverter::canDecode),
            .encodable = formatsWith(ImageConverter::canEncode)};
}

void serve(int socket, const std::function<void(const Request&)>& before) {
    while (auto request = ImageMessages::receive<ImageMessages::Request>(socket)) {
        if (request->record.operation >= ImageMessages::operationCount)
            return;
        alarm(maxSeconds); // its signal ends the process
        const auto number = request->record.number;
        auto answered = guardedAnswer(*std::move(request), before);
        if (!answered)
            answered = Answer{.reply = {.error = static_cast<std::uint32_t>(answered.error()) + 1}};
        answered->reply.number = number;
        alarm(0);
        if (!ImageMessages::send(socket, answered->reply, answered->memory))
            return;
    }
}

} // namespace korvane::ImageServer
