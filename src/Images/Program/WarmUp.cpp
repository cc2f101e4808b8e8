#include "Images/Program/WarmUp.h"

#include "Images/Vips.h"
#include "Utilities/ImageConverter.h"

#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

namespace korvane {

namespace {

/// A picture without colours of its own in shared memory of zeros.
Image blackPicture(int side, int channels, int bytesPerSample) {
    Image image{.width = side, .height = side, .channels = channels, .bytesPerSample = bytesPerSample};
    SharedBuffer buffer;
    buffer.resize(image.byteCount());
    image.samples = buffer.finish().samples();
    return image;
}

/// The C library reads /proc/sys/vm/overcommit_memory when it first returns memory of a thread's heap: when
/// more than 128 KiB are free at its end.
void shrinkHeapOfThread() {
    std::thread([] {
        constexpr std::size_t blockBytes = 100'000, blockCount = 20;
        std::vector<std::unique_ptr<char[]>> blocks;
        for (std::size_t i = 0; i < blockCount; ++i)
            blocks.emplace_back(new char[blockBytes]);
        while (!blocks.empty())
            blocks.pop_back();
    }).join();
}

void convert(const Image& image) {
    using namespace ImageConverter;
    for (const auto format : allCases<ImageFormat>) {
        const auto file = ImageConverter::convert(image, format, 0.5);
        if (file && decode(*file, {}))
            getImageInfo(*file);
    }
}

void transform(const Image& image) {
    using namespace ImageConverter;
    // More than the factor from which whole pixels are averaged first, and at the most the filter has.
    for (const int divisor : {2, 8, 12})
        resize(image, {image.width / divisor, image.height / divisor}, false);
    resize(image, {image.width + 3, image.height + 5}, false);
    rotate(image, Rotation::degrees90);
    rotate(image, Rotation::degrees180);
    flip(image, FlipDirection::horizontal);
    flip(image, FlipDirection::vertical);
    preview(image, image.width / 3);
}

} // namespace

bool warmUpImageLibraries() {
    shrinkHeapOfThread();
    if (!startVips())
        return false;
    // HEVC has no smaller blocks than 16 pixels.
    constexpr int codecSide = 16, transformSide = 96;
    convert(blackPicture(codecSide, 3, 1));
    convert(blackPicture(codecSide, 4, 2));
    transform(blackPicture(transformSide, 3, 1));
    transform(blackPicture(transformSide, 4, 2));
    return true;
}

} // namespace korvane
