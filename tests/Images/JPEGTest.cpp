/// Unusual but complete JPEG files, and incomplete ones.

#include "Utilities/ImageConverter.h"

#include "Images/JPEG.h"
#include "Images/Vips.h"
#include "support/ImageFiles.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include <jpeglib.h>

namespace korvane {
namespace {

using namespace ImageConverter;
using namespace support;

/// A file with a scan for each of the three colours.
std::string threeScans(const Image& image) {
    jpeg_compress_struct file{};
    jpeg_error_mgr errors{};
    file.err = jpeg_std_error(&errors);
    jpeg_create_compress(&file);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&file, &bytes, &size);
    file.image_width = static_cast<JDIMENSION>(image.width);
    file.image_height = static_cast<JDIMENSION>(image.height);
    file.input_components = 3;
    file.in_color_space = JCS_RGB;
    jpeg_set_defaults(&file);
    std::array<jpeg_scan_info, 3> scans{};
    for (int i = 0; i < 3; ++i)
        scans.at(static_cast<std::size_t>(i)) = {
            .comps_in_scan = 1, .component_index = {i}, .Ss = 0, .Se = 63, .Ah = 0, .Al = 0};
    file.scan_info = scans.data();
    file.num_scans = scans.size();
    jpeg_start_compress(&file, TRUE);
    auto* samples = const_cast<JSAMPLE*>(reinterpret_cast<const JSAMPLE*>(image.samples.get()));
    for (; file.next_scanline < file.image_height; samples += image.rowBytes())
        jpeg_write_scanlines(&file, &samples, 1);
    jpeg_finish_compress(&file);
    jpeg_destroy_compress(&file);
    std::string result(reinterpret_cast<const char*>(bytes), size);
    std::free(bytes);
    return result;
}

struct JPEGTest : ::testing::Test {
    std::stop_source stop{};
};

struct Variant {
    std::string_view name;
    std::string file;
};

std::vector<Variant> variants() {
    startVips();
    const auto source = photograph({40, 24});
    const auto picture = vipsImage(source);
    return {
        {"baseline", libraryFile(picture, ".jpg")},
        {"with restarts", libraryFile(picture, ".jpg[restart_interval=1]")},
        {"progressive", libraryFile(picture, ".jpg[interlace]")},
        {"gray", libraryFile(picture.colourspace(VIPS_INTERPRETATION_B_W), ".jpg")},
        {"three scans", threeScans(source)},
    };
}

constexpr char startOfScan = '\xda';
constexpr std::size_t markerBytes = 2;

/// The offsets of the segments up to the first scan, which comes last.
std::vector<std::size_t> segments(const std::string& file) {
    std::vector<std::size_t> starts{markerBytes};
    while (file.at(starts.back() + 1) != startOfScan) {
        const auto length = starts.back() + markerBytes;
        const auto high = static_cast<unsigned char>(file.at(length));
        starts.push_back(length + 256U * high + static_cast<unsigned char>(file.at(length + 1)));
    }
    return starts;
}

/// The offset of the parameters of the first scan: the first and last coefficient, and their bits.
std::size_t scanParameters(const std::string& file) {
    const auto scan = segments(file).back();
    return scan + markerBytes + static_cast<unsigned char>(file.at(scan + 3)) - 3;
}

void expectSamePicture(const std::string& changed, const Variant& variant, std::string_view change) {
    const auto image = decode(changed, {});
    ASSERT_TRUE(image) << variant.name << ", " << change;
    EXPECT_TRUE(haveSamePixels(*image, decoded(variant.file))) << variant.name << ", " << change;
    EXPECT_EQ(getImageInfo(changed)->width, 40) << variant.name << ", " << change;
}

TEST_F(JPEGTest, StrayBytesBetweenSegmentsAreIgnored) {
    for (const auto& variant : variants()) {
        const auto starts = segments(variant.file);
        for (std::size_t i = 1; i < starts.size(); ++i) // the first identifies the format
            expectSamePicture(std::string(variant.file).insert(starts[i], "\1\2\3"), variant, "stray bytes");
        auto paddedPixels = variant.file;
        expectSamePicture(paddedPixels.insert(variant.file.size() - markerBytes, 3, '\0'), variant,
                          "zeros before the end");
        expectSamePicture(variant.file + "trailer", variant, "a trailer");
    }
}

TEST_F(JPEGTest, AMissingEndMarkerIsIgnored) {
    for (const auto& variant : variants()) {
        const auto end = variant.file.size() - markerBytes;
        expectSamePicture(variant.file.substr(0, end), variant, "no end");
        expectSamePicture(variant.file.substr(0, end + 1), variant, "half an end");
    }
}

TEST_F(JPEGTest, ScanParametersOfSequentialFilesAreIgnored) {
    for (const auto& variant : variants()) {
        if (variant.name == "progressive") // which uses them
            continue;
        for (const auto& parameters :
             {std::string("\0\0\0", 3), std::string("\0\x40\0", 3), std::string("\1\x3f\x11")})
            expectSamePicture(std::string(variant.file).replace(scanParameters(variant.file), 3, parameters),
                              variant, "parameters of the scan");
    }
}

TEST_F(JPEGTest, ATruncatedFileIsRejectedOrDecodesCompletely) {
    for (const auto& variant : variants()) {
        const auto whole = decoded(variant.file);
        const auto pixels = segments(variant.file).back();
        int rejected = 0;
        for (std::size_t size = pixels; size < variant.file.size(); ++size) {
            const auto image = decode(variant.file.substr(0, size), {});
            EXPECT_TRUE(!image || haveSamePixels(*image, whole))
                << variant.name << ", " << size << " of " << variant.file.size();
            rejected += image ? 0 : 1;
        }
        EXPECT_GT(rejected, static_cast<int>(variant.file.size() - pixels) - 8)
            << variant.name << ": only the last few bytes may be missing";
    }
}

TEST_F(JPEGTest, DamagedScanDataAreRejected) {
    for (const auto& variant : variants()) {
        const auto pixels = scanParameters(variant.file) + 3;
        auto ended = variant.file;
        ended.replace(pixels + 20, 2, "\xff\xd9");
        EXPECT_EQ(decode(ended, {}).error(), ConversionError::invalidImage)
            << variant.name << ", an early end";
    }
    auto restarts = variants().at(1);
    const auto first = restarts.file.find("\xff\xd0", segments(restarts.file).back());
    restarts.file.at(first + 1) = '\xd3';
    EXPECT_EQ(decode(restarts.file, {}).error(), ConversionError::invalidImage) << "a lost restart";
}

TEST_F(JPEGTest, CheckingForCompletenessFailsOnceStopped) {
    const auto file = variants().front().file;
    EXPECT_TRUE(JPEG::isComplete(file, stop.get_token()));
    stop.request_stop();
    EXPECT_FALSE(JPEG::isComplete(file, stop.get_token()));
}

} // namespace
} // namespace korvane
