/// The resolution that is read from files and written to them.

#include "Utilities/ImageConverter.h"

#include "support/ImageFiles.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {
namespace {

using namespace ImageConverter;
using namespace support;

TEST(Resolution, Is72WhereNoneIsStated) {
    const auto source = distinctPicture({9, 9});
    auto jpeg = std::string(convert(source, ImageFormat::jpeg, 0.9).value().view());
    if (const auto exif = jpeg.find("Exif"); exif != std::string::npos)
        jpeg.replace(exif, 4, "None");
    EXPECT_EQ(getImageInfo(jpeg)->dpi, 72);
    EXPECT_NEAR(decoded(jpeg).horizontalDPI, 72, 0.1);
    auto png = std::string(convert(source, ImageFormat::png, 0.9).value().view());
    const auto chunk = png.find("pHYs") - 4;
    png.erase(chunk, 4 + 4 + 9 + 4);
    EXPECT_EQ(getImageInfo(png)->dpi, 72);
    EXPECT_NEAR(decoded(png).horizontalDPI, 72, 0.1);
}

/// A PNG file with the given resolution chunk.
std::string pngWithResolution(std::uint32_t dots, char unit) {
    auto png = std::string(convert(distinctPicture({9, 9}), ImageFormat::png, 0.9).value().view());
    const auto start = png.find("pHYs") - 4;
    return png.replace(start, 4 + 4 + 9 + 4, chunk("pHYs" + bigEndian(dots) + bigEndian(dots) + unit));
}

/// A TIFF file with a resolution and a unit (TIFF 6.0: 1 for none, 2 for the inch, 3 for the centimetre).
std::string tiffWithResolution(double dotsPerInch, char unit) {
    auto source = distinctPicture({9, 9});
    source.horizontalDPI = dotsPerInch;
    auto tiff = std::string(convert(source, ImageFormat::tiff, 0.9).value().view());
    const std::string inch("\x28\x01\x03\0\x01\0\0\0\x02\0", 10);
    tiff.at(tiff.find(inch) + 8) = unit;
    return tiff;
}

/// A JPEG file with a density and a unit (JFIF 1.02: 0 for none, 1 for the inch, 2 for the centimetre).
std::string jpegWithResolution(char dots, char unit) {
    auto jpeg = std::string(convert(distinctPicture({9, 9}), ImageFormat::jpeg, 0.9).value().view());
    if (const auto exif = jpeg.find("Exif"); exif != std::string::npos)
        jpeg.replace(exif, 4, "None");
    const std::string density{unit, '\0', dots, '\0', dots, '\0', '\0'};
    return jpeg.insert(2, std::string("\xff\xe0\0\x10JFIF\0\1\2", 11) + density);
}

TEST(Resolution, CountsOnlyWithItsUnit) {
    struct Row {
        std::string_view name;
        std::string file;
        int dpi;
    };

    const Row rows[] = {
        {"PNG without a unit", pngWithResolution(2, 0), 72},
        {"PNG without a unit, with a plausible density", pngWithResolution(11811, 0), 72},
        {"PNG, a thousand dots a metre", pngWithResolution(1000, 1), 25},
        {"PNG, 300 dots an inch", pngWithResolution(11811, 1), 300},
        {"PNG, none", pngWithResolution(0, 1), 72},
        {"TIFF without a unit", tiffWithResolution(300, 1), 72},
        {"TIFF in inches", tiffWithResolution(300, 2), 300},
        {"TIFF, a dot a millimetre", tiffWithResolution(10, 3), 25},
        {"TIFF in centimetres", tiffWithResolution(100, 3), 254},
        {"JPEG without a unit", jpegWithResolution(100, 0), 72},
        {"JPEG in inches", jpegWithResolution(100, 1), 100},
        {"JPEG in centimetres", jpegWithResolution(100, 2), 254},
        {"JPEG, a dot a millimetre", jpegWithResolution(10, 2), 25},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(getImageInfo(row.file)->dpi, row.dpi) << row.name;
        const auto image = decoded(row.file);
        EXPECT_EQ(std::lround(image.horizontalDPI), row.dpi) << row.name;
        for (const auto format : {ImageFormat::png, ImageFormat::tiff, ImageFormat::bmp, ImageFormat::jpeg})
            EXPECT_EQ(getImageInfo(convert(image, format, 1).value())->dpi, row.dpi)
                << row.name << " as " << rawValue(format);
    }
}

TEST(Resolution, InWholeNumbersIsKeptExactly) {
    auto source = distinctPicture({3, 2});
    for (int dpi = 2; dpi <= 1200; dpi += dpi < 160 ? 1 : 13) {
        source.horizontalDPI = dpi;
        for (const auto format : {ImageFormat::png, ImageFormat::tiff, ImageFormat::bmp})
            EXPECT_EQ(getImageInfo(convert(source, format, 1).value())->dpi, dpi) << rawValue(format);
    }
}

TEST(Resolution, IsKeptHorizontallyAndVertically) {
    auto source = distinctPicture({9, 9});
    source.horizontalDPI = 300;
    source.verticalDPI = 150;
    for (const auto format : {ImageFormat::png, ImageFormat::jpeg, ImageFormat::tiff, ImageFormat::bmp}) {
        const auto image = throughFile(source, format);
        EXPECT_NEAR(image.horizontalDPI, 300, 0.1) << rawValue(format);
        EXPECT_NEAR(image.verticalDPI, 150, 0.1) << rawValue(format);
    }
}

} // namespace
} // namespace korvane
