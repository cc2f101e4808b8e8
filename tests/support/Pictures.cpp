#include "support/Pictures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace korvane::support {

namespace {

std::size_t offsetOf(const Image& image, int x, int y, int channel) {
    return static_cast<std::size_t>(y) * image.rowBytes() +
           static_cast<std::size_t>((x * image.channels + channel) * image.bytesPerSample);
}

bool haveSameShape(const Image& one, const Image& other) {
    return one.width == other.width && one.height == other.height && one.channels == other.channels &&
           one.bytesPerSample == other.bytesPerSample;
}

} // namespace

Image picture(ImageSize size, int channels, int bytesPerSample,
              const std::function<int(int x, int y, int channel)>& sample) {
    Image image{
        .width = size.width, .height = size.height, .channels = channels, .bytesPerSample = bytesPerSample};
    const std::shared_ptr<std::byte[]> samples(new std::byte[image.byteCount()]);
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            for (int channel = 0; channel < channels; ++channel) {
                const auto value = static_cast<std::uint16_t>(sample(x, y, channel));
                auto* place = samples.get() + offsetOf(image, x, y, channel);
                if (bytesPerSample == 2)
                    std::memcpy(place, &value, 2);
                else
                    *place = static_cast<std::byte>(value);
            }
        }
    }
    image.samples = {samples, samples.get()};
    return image;
}

Image distinctPicture(ImageSize size, int channels, int bytesPerSample) {
    const int most = bytesPerSample == 2 ? 65535 : 255;
    return picture(size, channels, bytesPerSample, [&](int x, int y, int channel) {
        return (x * 37 + y * 101 + channel * 59 + x * y * 7) * (bytesPerSample == 2 ? 211 : 1) % (most + 1);
    });
}

Image plainPicture(ImageSize size, const std::vector<int>& color) {
    return picture(size, static_cast<int>(color.size()), 1,
                   [&](int, int, int channel) { return color[static_cast<std::size_t>(channel)]; });
}

Image photograph(ImageSize size) {
    return picture(size, 3, 1, [&](int x, int y, int channel) {
        const double u = 6.0 * x / size.width;
        const double v = 4.0 * y / size.height;
        const double light = std::sin(u + channel) + std::cos(v * (1 + channel)) + 0.3 * std::sin(9 * u * v);
        const int grain = (x * 73 + y * 151 + x * y) % 9 - 4;
        return std::clamp(static_cast<int>(128 + 50 * light) + grain, 0, 255);
    });
}

int sampleAt(const Image& image, int x, int y, int channel) {
    const auto* place = image.samples.get() + offsetOf(image, x, y, channel);
    if (image.bytesPerSample == 1)
        return static_cast<int>(*place);
    std::uint16_t value = 0;
    std::memcpy(&value, place, 2);
    return value;
}

std::vector<int> pixelAt(const Image& image, int x, int y) {
    std::vector<int> pixel;
    for (int channel = 0; channel < image.channels; ++channel)
        pixel.push_back(sampleAt(image, x, y, channel));
    return pixel;
}

int largestDifference(const Image& one, const Image& other) {
    if (!haveSameShape(one, other))
        return 65536;
    int largest = 0;
    for (int y = 0; y < one.height; ++y) {
        for (int x = 0; x < one.width; ++x) {
            for (int channel = 0; channel < one.channels; ++channel)
                largest = std::max(largest,
                                   std::abs(sampleAt(one, x, y, channel) - sampleAt(other, x, y, channel)));
        }
    }
    return largest;
}

bool haveSamePixels(const Image& one, const Image& other) {
    return haveSameShape(one, other) &&
           std::memcmp(one.samples.get(), other.samples.get(), one.byteCount()) == 0;
}

} // namespace korvane::support
