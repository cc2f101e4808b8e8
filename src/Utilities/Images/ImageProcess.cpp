#include "Utilities/Images/ImageProcess.h"

#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace korvane {

namespace {

using ImageMessages::caseAt;
using ImageMessages::Greeting;
using ImageMessages::Operation;
using ImageMessages::Reply;
using ImageMessages::Request;

using Clock = std::chrono::steady_clock;

/// A descriptor that becomes readable at a stop request.
class StopEvent {
public:
    explicit StopEvent(const std::stop_token& stop)
        : m_event(stop.stop_possible() ? eventfd(0, EFD_CLOEXEC) : -1),
          m_callback(stop, Signal{m_event.number()}) {}

    int descriptor() const { return m_event.number(); }

private:
    struct Signal {
        int event;

        void operator()() const { eventfd_write(event, 1); }
    };

    FileDescriptor m_event;
    std::stop_callback<Signal> m_callback;
};

bool isEmpty(const SharedBytes& file) {
    return file.empty();
}

bool isEmpty(const Image& image) {
    return !image.samples;
}

std::optional<Image> readImage(ImageMessages::Received<Reply>& reply) {
    return ImageMessages::imageOf(reply.record.picture, std::move(reply.descriptors));
}

/// Without the size of the file.
std::optional<ImageInfo> readInfo(ImageMessages::Received<Reply>& reply) {
    const auto& record = reply.record.info;
    const auto format = caseAt<ImageFormat>(reply.record.format);
    const bool isPossible = record.width >= 1 && record.height >= 1 && isValidDPI(record.dpi) &&
                            record.pictureCount >= 0 && record.hasAlpha <= 1 &&
                            record.colorModel < ImageMessages::colorModels.size();
    if (!format || !isPossible)
        return std::nullopt;
    return ImageInfo{.width = record.width,
                     .height = record.height,
                     .format = std::string(description(*format)),
                     .colorSpace = std::string(ImageMessages::colorModels[record.colorModel]),
                     .hasAlpha = record.hasAlpha != 0,
                     .dpi = record.dpi,
                     .pictureCount = record.pictureCount};
}

} // namespace

/// The right to use the process: one operation has it at a time.
class ImageProcess::Turn {
public:
    Turn(ImageProcess& process, const Stop& stop) : m_process(process) {
        std::unique_lock lock(process.m_mutex);
        m_isTaken = process.m_turnEnded.wait(lock, stop, [&] { return !process.m_isBusy; });
        if (m_isTaken)
            process.m_isBusy = true;
    }

    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    ~Turn() {
        if (!m_isTaken)
            return;
        {
            const std::scoped_lock lock(m_process.m_mutex);
            m_process.m_isBusy = false;
        }
        m_process.m_turnEnded.notify_one();
    }

    /// Whether it was given before a stop request.
    bool isTaken() const { return m_isTaken; }

private:
    ImageProcess& m_process;
    bool m_isTaken = false;
};

std::string installedImageProgram() {
    std::error_code error;
    const auto own = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto beside = own.parent_path() / "korvane-images";
    return !error && access(beside.c_str(), X_OK) == 0 ? beside.string() : KORVANE_IMAGE_PROGRAM;
}

ImageProcess::ImageProcess(ImageProcessOptions options) : m_options(std::move(options)) {}

ImageProcess::~ImageProcess() = default;

std::optional<int> ImageProcess::lastSignal() const {
    const std::scoped_lock lock(m_mutex);
    return m_lastSignal;
}

void ImageProcess::endProcess() {
    if (!m_child)
        return;
    const int status = m_child->end();
    m_child.reset();
    const std::scoped_lock lock(m_mutex);
    m_lastSignal = WIFSIGNALED(status) ? std::optional(WTERMSIG(status)) : std::nullopt;
}

std::unexpected<ConversionError> ImageProcess::failed(ConversionError error) {
    endProcess();
    return std::unexpected(error);
}

/// Waits until a message or the end of the connection can be received.
std::expected<void, ConversionError> ImageProcess::awaitMessage(std::chrono::milliseconds limit,
                                                                const Stop& stop) const {
    const StopEvent event(stop);
    pollfd descriptors[] = {{.fd = m_child->socket(), .events = POLLIN, .revents = 0},
                            {.fd = event.descriptor(), .events = POLLIN, .revents = 0}};
    const auto end = Clock::now() + limit;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0)
            return std::unexpected(ConversionError::timedOut);
        if (poll(descriptors, std::size(descriptors), static_cast<int>(left.count())) < 0)
            continue; // interrupted by a signal
        if (stop.stop_requested())
            return std::unexpected(ConversionError::cancelled);
        if (descriptors[0].revents != 0)
            return {};
    }
}

bool ImageProcess::hasUnexpectedMessage() const {
    pollfd descriptor{.fd = m_child->socket(), .events = POLLIN, .revents = 0};
    return poll(&descriptor, 1, 0) != 0; // the end of the connection, too
}

std::expected<void, ConversionError> ImageProcess::ensureRunning(const Stop& stop) {
    if (m_child && hasUnexpectedMessage())
        endProcess();
    if (m_child)
        return {};
    auto started = ChildProcess::start(m_options.program, m_options.arguments, ImageMessages::socketNumber);
    if (!started)
        return std::unexpected(ConversionError::processMissing);
    m_child.emplace(*std::move(started));
    if (const auto awaited = awaitMessage(m_options.startLimit, stop); !awaited)
        return failed(awaited.error());
    const auto greeting = ImageMessages::receive<Greeting>(m_child->socket());
    if (!greeting || !greeting->descriptors.empty())
        return failed(ConversionError::processMissing);
    if (greeting->record.isIsolated != 1)
        return failed(ConversionError::processNotIsolated);
    m_codecs = {.decodable = greeting->record.decodable, .encodable = greeting->record.encodable};
    return {};
}

std::expected<ImageProcess::Received, ConversionError>
ImageProcess::exchange(const Request& request, const ImageMessages::Memory& memory, const Stop& stop) {
    if (!ImageMessages::send(m_child->socket(), request, memory))
        return std::unexpected(ConversionError::processEnded);
    if (const auto awaited = awaitMessage(m_options.operationLimit, stop); !awaited)
        return std::unexpected(awaited.error());
    char first = 0;
    if (recv(m_child->socket(), &first, 1, MSG_PEEK | MSG_DONTWAIT) <= 0)
        return std::unexpected(ConversionError::processEnded);
    auto reply = ImageMessages::receive<Reply>(m_child->socket());
    if (!reply)
        return std::unexpected(ConversionError::invalidAnswer);
    return *std::move(reply);
}

/// The answer to the request. One to an earlier request, sent twice, is no fault of this one, which is then
/// repeated in a fresh process.
std::expected<ImageProcess::Received, ConversionError>
ImageProcess::answer(Request request, const ImageMessages::Memory& memory, const Stop& stop) {
    for (const bool isLastAttempt : {false, true}) {
        if (const auto running = ensureRunning(stop); !running)
            return std::unexpected(running.error());
        request.number = ++m_requestNumber;
        auto reply = exchange(request, memory, stop);
        if (!reply)
            return failed(reply.error());
        if (reply->record.number == request.number)
            return reply;
        endProcess();
        if (isLastAttempt)
            break;
    }
    return std::unexpected(ConversionError::invalidAnswer);
}

/// Performs an operation on `input`, a file or a picture. `read` returns the result in the answer, or none if
/// that is invalid. All that goes wrong but the engine's own errors ends the process.
template <typename Result, typename Input>
std::expected<Result, ConversionError> ImageProcess::perform(Operation operation, Request request,
                                                             const Input& input, const Stop& stop,
                                                             std::optional<Result> (*read)(Received&)) {
    if (isEmpty(input))
        return std::unexpected(ConversionError::invalidImage);
    const Turn turn(*this, stop);
    if (!turn.isTaken())
        return std::unexpected(ConversionError::cancelled);
    request.operation = static_cast<std::uint32_t>(operation);
    try {
        ImageMessages::Memory memory;
        ImageMessages::describe(input, request, memory);
        auto reply = answer(request, memory, stop);
        if (!reply)
            return std::unexpected(reply.error());
        if (const auto code = reply->record.error; code != 0) {
            const auto error = caseAt<ConversionError>(code - 1);
            if (!error || !reply->descriptors.empty())
                return failed(ConversionError::invalidAnswer);
            return std::unexpected(*error);
        }
        if (auto result = read(*reply))
            return *std::move(result);
        return failed(ConversionError::invalidAnswer);
    } catch (const std::bad_alloc&) {
        return failed(ConversionError::outOfMemory);
    }
}

std::expected<ImageCodecs, ConversionError> ImageProcess::codecs(const Stop& stop) {
    const Turn turn(*this, stop);
    if (!turn.isTaken())
        return std::unexpected(ConversionError::cancelled);
    if (const auto running = ensureRunning(stop); !running)
        return std::unexpected(running.error());
    return m_codecs;
}

std::expected<ImageFormat, ConversionError> ImageProcess::formatOf(const SharedBytes& bytes,
                                                                   const Stop& stop) {
    if (bytes.empty())
        return std::unexpected(ConversionError::unsupportedFormat);
    return perform<ImageFormat>(Operation::formatOf, {}, bytes, stop,
                                [](Received& reply) { return caseAt<ImageFormat>(reply.record.format); });
}

std::expected<Image, ConversionError> ImageProcess::decode(const SharedBytes& bytes, const Stop& stop) {
    if (bytes.empty())
        return std::unexpected(ConversionError::unsupportedFormat);
    return perform<Image>(Operation::decode, {}, bytes, stop, readImage);
}

std::expected<ImageInfo, ConversionError> ImageProcess::getImageInfo(const SharedBytes& bytes,
                                                                     const Stop& stop) {
    auto info = perform<ImageInfo>(Operation::getImageInfo, {}, bytes, stop, readInfo);
    if (info)
        info->fileSize = static_cast<std::int64_t>(bytes.size());
    return info;
}

std::expected<SharedBytes, ConversionError> ImageProcess::convert(const Image& image, ImageFormat to,
                                                                  double quality, const Stop& stop) {
    return perform<SharedBytes>(
        Operation::convert, {.format = static_cast<std::uint32_t>(to), .quality = quality}, image, stop,
        [](Received& reply) {
            return ImageMessages::fileOf(reply.record.fileBytes, std::move(reply.descriptors));
        });
}

std::expected<Image, ConversionError> ImageProcess::rotate(const Image& image, Rotation by,
                                                           const Stop& stop) {
    if (by == Rotation::none)
        return image;
    return perform<Image>(Operation::rotate, {.rotation = static_cast<std::uint32_t>(by)}, image, stop,
                          readImage);
}

std::expected<Image, ConversionError> ImageProcess::flip(const Image& image, FlipDirection direction,
                                                         const Stop& stop) {
    if (direction == FlipDirection::none)
        return image;
    return perform<Image>(Operation::flip, {.direction = static_cast<std::uint32_t>(direction)}, image, stop,
                          readImage);
}

std::expected<Image, ConversionError> ImageProcess::resize(const Image& image, ImageSize to,
                                                           bool maintainAspectRatio, const Stop& stop) {
    return perform<Image>(
        Operation::resize,
        {.width = to.width, .height = to.height, .maintainsAspectRatio = maintainAspectRatio ? 1U : 0U},
        image, stop, readImage);
}

std::expected<Image, ConversionError> ImageProcess::preview(const Image& image, int side, const Stop& stop) {
    auto result = perform<Image>(Operation::preview, {.width = side}, image, stop, [](Received& reply) {
        auto preview = readImage(reply);
        if (preview && (preview->channels != 4 || preview->bytesPerSample != 1)) // the window draws it
            preview.reset();
        return preview;
    });
    if (result && (result->width > side || result->height > side))
        return std::unexpected(ConversionError::invalidAnswer);
    return result;
}

} // namespace korvane
