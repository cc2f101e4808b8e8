/// The image engine as the window's process calls it: each operation is a request to a separate program,
/// which may not open a file or a socket, start a program, or take memory or time without bounds. Whatever
/// happens to it is an error of one operation; the next one gets a fresh process.
#pragma once

#include "Utilities/ImageConverter.h"
#include "Utilities/Images/ChildProcess.h"
#include "Utilities/Images/ImageMessages.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <expected>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace korvane {

/// Which formats the installed libraries can read and write.
struct ImageCodecs {
    std::uint32_t decodable = 0; ///< one bit for each format, in order
    std::uint32_t encodable = 0;

    bool canDecode(ImageFormat format) const { return has(decodable, format); }

    bool canEncode(ImageFormat format) const { return has(encodable, format); }

private:
    static bool has(std::uint32_t formats, ImageFormat format) {
        return (formats >> static_cast<unsigned>(format) & 1U) != 0;
    }
};

/// The path of the program: beside the program that calls it, as in the build folder, or else where it is
/// installed.
std::string installedImageProgram();

struct ImageProcessOptions {
    std::string program = installedImageProgram();
    std::vector<std::string> arguments{};

    /// From the start of the process until it is ready: hundreds of times as long as usual, for a computer
    /// that has just been switched on or is short of memory.
    std::chrono::milliseconds startLimit = std::chrono::seconds(30);

    /// For one operation. The slowest, writing HEIC, takes about a minute for the largest picture on two
    /// processors, and twenty times as long on a busy computer; twice that.
    std::chrono::milliseconds operationLimit = std::chrono::minutes(40);
};

/// One image process at a time, and the operations of `ImageConverter` in it. May be used on any thread;
/// operations wait for each other. All of them start the process if it does not run, and fail, beside the
/// errors of the engine, with those that are `isAboutProcess`. A stop request ends the process at once, and
/// fails with `cancelled`.
class ImageProcess {
public:
    explicit ImageProcess(ImageProcessOptions options = {});
    ImageProcess(const ImageProcess&) = delete;
    ImageProcess& operator=(const ImageProcess&) = delete;

    /// Kills the process. No operation may be running.
    ~ImageProcess();

    using Stop = std::stop_token;

    std::expected<ImageCodecs, ConversionError> codecs(const Stop& stop = {});

    /// Fails with `unsupportedFormat` if the bytes are in none of the six formats.
    std::expected<ImageFormat, ConversionError> formatOf(const SharedBytes& bytes, const Stop& stop = {});
    std::expected<Image, ConversionError> decode(const SharedBytes& bytes, const Stop& stop = {});

    /// Fails with `invalidImage` if the facts cannot be read.
    std::expected<ImageInfo, ConversionError> getImageInfo(const SharedBytes& bytes, const Stop& stop = {});
    std::expected<SharedBytes, ConversionError> convert(const Image& image, ImageFormat to, double quality,
                                                        const Stop& stop = {});
    std::expected<Image, ConversionError> rotate(const Image& image, Rotation by, const Stop& stop = {});
    std::expected<Image, ConversionError> flip(const Image& image, FlipDirection direction,
                                               const Stop& stop = {});
    std::expected<Image, ConversionError> resize(const Image& image, ImageSize to, bool maintainAspectRatio,
                                                 const Stop& stop = {});
    std::expected<Image, ConversionError> preview(const Image& image, int side, const Stop& stop = {});

    /// The signal that ended the last process that has ended; none if it exited by itself.
    std::optional<int> lastSignal() const;

private:
    using Received = ImageMessages::Received<ImageMessages::Reply>;
    class Turn;

    template <typename Result, typename Input>
    std::expected<Result, ConversionError>
    perform(ImageMessages::Operation operation, ImageMessages::Request request, const Input& input,
            const Stop& stop, std::optional<Result> (*read)(Received&));
    std::expected<Received, ConversionError> answer(ImageMessages::Request request,
                                                    const ImageMessages::Memory& memory, const Stop& stop);
    std::expected<Received, ConversionError> exchange(const ImageMessages::Request& request,
                                                      const ImageMessages::Memory& memory, const Stop& stop);
    std::expected<void, ConversionError> ensureRunning(const Stop& stop);
    std::expected<void, ConversionError> awaitMessage(std::chrono::milliseconds limit,
                                                      const Stop& stop) const;
    bool hasUnexpectedMessage() const;
    std::unexpected<ConversionError> failed(ConversionError error);
    void endProcess();

    const ImageProcessOptions m_options;
    mutable std::mutex m_mutex;
    std::condition_variable_any m_turnEnded;
    bool m_isBusy =
        false; ///< guarded by the mutex; everything below belongs to the operation that has its turn
    std::optional<ChildProcess> m_child;
    ImageCodecs m_codecs{};
    std::uint32_t m_requestNumber = 0;
    std::optional<int> m_lastSignal;
};

} // namespace korvane
