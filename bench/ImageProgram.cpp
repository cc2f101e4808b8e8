/// The image engine as a command, so that whole processes can be compared:
///
///     korvane_bench_images photograph WIDTH HEIGHT FILE   writes a synthetic photograph
///     korvane_bench_images convert QUALITY IN OUT         decodes IN and encodes it by the extension of OUT
///     korvane_bench_images quarter QUALITY IN OUT         the same, scaled to a quarter of the side lengths

#include "Utilities/ImageConverter.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

using namespace ImageConverter;

/// Smooth light with edges, fine detail and noise. Reproducible.
Image photograph(int width, int height) {
    Image image{.width = width, .height = height, .channels = 3};
    const std::shared_ptr<std::byte[]> samples(new std::byte[image.byteCount()]);
    unsigned noise = 1;
    auto* sample = samples.get();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double u = 8.0 * x / width;
            const double v = 6.0 * y / height;
            const double edge = std::sin(3 * u) + std::cos(2 * v) > 0.4 ? 30 : 0;
            const double detail = 12 * std::sin(0.9 * x) * std::cos(0.7 * y) * (v > 3 ? 1 : 0);
            for (int channel = 0; channel < 3; ++channel) {
                noise = noise * 1664525U + 1013904223U;
                const double light = 128 + 60 * std::sin(u + channel) * std::cos(v - channel) + edge + detail;
                *sample++ = static_cast<std::byte>(std::clamp(light + (noise >> 29), 0.0, 255.0));
            }
        }
    }
    image.samples = {samples, samples.get()};
    return image;
}

std::string read(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(static_cast<std::size_t>(std::max<std::streamoff>(0, file.tellg())), '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

std::optional<ImageFormat> formatOfName(std::string_view path) {
    for (const auto format : allCases<ImageFormat>) {
        if (path.ends_with(fileExtension(format)))
            return format;
    }
    return std::nullopt;
}

bool write(const Image& image, const std::string& path, double quality) {
    const auto format = formatOfName(path);
    if (!format)
        return false;
    const auto bytes = convert(image, *format, quality);
    return bytes && std::ofstream(path, std::ios::binary)
                        .write(bytes->view().data(), static_cast<std::streamsize>(bytes->size()));
}

bool run(const std::vector<std::string>& arguments) {
    if (arguments.size() != 4)
        return false;
    if (arguments[0] == "photograph")
        return write(photograph(std::stoi(arguments[1]), std::stoi(arguments[2])), arguments[3], 0.9);
    auto image = decode(read(arguments[2]), {});
    if (image && arguments[0] == "quarter")
        image = resize(*image, {image->width / 4, image->height / 4}, false);
    return image && write(*image, arguments[3], std::stod(arguments[1]));
}

} // namespace
} // namespace korvane

int main(int argc, char* argv[]) {
    if (korvane::run({argv + 1, argv + argc}))
        return 0;
    std::fprintf(stderr, "invalid arguments, or the operation failed\n");
    return 1;
}
