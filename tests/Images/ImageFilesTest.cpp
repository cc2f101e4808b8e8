/// Writing and reading each format, and reading files of other programs.

#include "Utilities/ImageConverter.h"

#include "Images/Vips.h"
#include "support/ImageFiles.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdlib>
#include <stop_token>

namespace korvane {
namespace {

using namespace ImageConverter;
using namespace support;
using vips::VImage;

struct ImageFilesTest : ::testing::Test {
    std::stop_source stop{};

    ImageFilesTest() { startVips(); }
};

TEST_F(ImageFilesTest, FormatsHaveTheirNamesAndExtensions) {
    struct Row {
        ImageFormat format;
        std::string_view rawValue;
        std::string_view fileExtension;
        bool supportsQuality;
        std::string_view description;
    };

    const Row rows[] = {
        {ImageFormat::png, "PNG", "png", false, "PNG image"},
        {ImageFormat::jpeg, "JPEG", "jpg", true, "JPEG image"},
        {ImageFormat::tiff, "TIFF", "tiff", false, "TIFF image"},
        {ImageFormat::gif, "GIF", "gif", false, "GIF image"},
        {ImageFormat::bmp, "BMP", "bmp", false, "BMP image"},
        {ImageFormat::heic, "HEIC", "heic", true, "HEIC image"},
    };
    EXPECT_EQ(std::size(rows), allCases<ImageFormat>.size());
    for (const auto& row : rows) {
        EXPECT_EQ(rawValue(row.format), row.rawValue);
        EXPECT_EQ(id(row.format), row.rawValue);
        EXPECT_EQ(fileExtension(row.format), row.fileExtension);
        EXPECT_EQ(supportsQuality(row.format), row.supportsQuality);
        EXPECT_EQ(description(row.format), row.description);
    }
}

TEST_F(ImageFilesTest, ChoicesAndErrorsHaveTheirTexts) {
    EXPECT_EQ(label(Rotation::none), "None");
    EXPECT_EQ(label(Rotation::degrees90), "90\u00B0");
    EXPECT_EQ(label(Rotation::degrees180), "180\u00B0");
    EXPECT_EQ(label(Rotation::degrees270), "270\u00B0");
    EXPECT_EQ(id(Rotation::degrees270), 270);
    EXPECT_EQ(rawValue(FlipDirection::none), "None");
    EXPECT_EQ(rawValue(FlipDirection::horizontal), "Horizontal");
    EXPECT_EQ(rawValue(FlipDirection::vertical), "Vertical");
    EXPECT_EQ(rawValue(FlipDirection::both), "Both");
    EXPECT_EQ(errorDescription(ConversionError::invalidImage), "Invalid or corrupted image");
    EXPECT_EQ(errorDescription(ConversionError::conversionFailed), "Failed to convert image");
    EXPECT_EQ(errorDescription(ConversionError::unsupportedFormat), "Unsupported image format");
    EXPECT_EQ(errorDescription(ConversionError::saveFailed), "Failed to save image");
    EXPECT_EQ(errorDescription(ConversionError::resizeFailed), "Failed to resize image");
}

TEST_F(ImageFilesTest, InfoIsReadWithoutDecoding) {
    for (const auto format : allCases<ImageFormat>) {
        auto source = distinctPicture({30, 20});
        source.horizontalDPI = 300;
        source.verticalDPI = 150;
        const auto file = convert(source, format, 0.9).value();
        EXPECT_EQ(formatOf(file), format);
        const auto info = getImageInfo(file);
        ASSERT_TRUE(info) << rawValue(format);
        EXPECT_EQ(info->width, 30);
        EXPECT_EQ(info->height, 20);
        EXPECT_EQ(info->format, std::string(rawValue(format)) + " image");
        EXPECT_EQ(info->fileSize, static_cast<std::int64_t>(file.size()));
        EXPECT_EQ(info->colorSpace, "RGB");
        const bool hasResolution = format != ImageFormat::gif && format != ImageFormat::heic;
        EXPECT_EQ(info->dpi, hasResolution ? 300 : 72) << rawValue(format);
    }
}

TEST_F(ImageFilesTest, InfoReportsColorSpaceAndAlpha) {
    const auto infoOf = [](int channels, ImageFormat format) {
        return getImageInfo(convert(distinctPicture({9, 9}, channels), format, 0.9).value()).value();
    };
    for (const auto format : {ImageFormat::png, ImageFormat::tiff}) {
        EXPECT_EQ(infoOf(1, format).colorSpace, "Gray");
        EXPECT_FALSE(infoOf(1, format).hasAlpha);
        EXPECT_TRUE(infoOf(2, format).hasAlpha);
        EXPECT_FALSE(infoOf(3, format).hasAlpha);
        EXPECT_TRUE(infoOf(4, format).hasAlpha);
    }
    EXPECT_EQ(infoOf(1, ImageFormat::jpeg).colorSpace, "Gray");
    EXPECT_FALSE(infoOf(4, ImageFormat::jpeg).hasAlpha);
    EXPECT_EQ(infoOf(1, ImageFormat::bmp).colorSpace, "Gray");
    EXPECT_TRUE(infoOf(4, ImageFormat::bmp).hasAlpha);
    EXPECT_TRUE(infoOf(4, ImageFormat::heic).hasAlpha);
    const auto plain = plainPicture({9, 9}, {200, 100, 50});
    const auto cmyk = vipsImage(plain).icc_transform("cmyk", VImage::option()->set("input_profile", "srgb"));
    EXPECT_EQ(getImageInfo(libraryFile(cmyk, ".jpg"))->colorSpace, "CMYK");
    EXPECT_EQ(getImageInfo(libraryFile(cmyk, ".tif"))->colorSpace, "CMYK");
    const auto lab = vipsImage(plain).colourspace(VIPS_INTERPRETATION_LAB);
    EXPECT_EQ(getImageInfo(libraryFile(lab, ".tif"))->colorSpace, "Unknown");
}

RC_GTEST_PROP(ImageFiles, LosslessFormatsKeepEveryPixel, ()) {
    const ImageSize size{*rc::gen::inRange(1, 50), *rc::gen::inRange(1, 50)};
    const int channels = *rc::gen::inRange(1, 5);
    const auto source = distinctPicture(size, channels);
    const auto deep = distinctPicture(size, channels, 2);
    for (const auto format : {ImageFormat::png, ImageFormat::tiff}) {
        RC_ASSERT(haveSamePixels(throughFile(source, format), source));
        RC_ASSERT(haveSamePixels(throughFile(deep, format), deep));
    }
    if (channels != 2)
        RC_ASSERT(haveSamePixels(throughFile(source, ImageFormat::bmp), source));
}

TEST_F(ImageFilesTest, LossyFormatsKeepPixelsApproximately) {
    const auto source = photograph({120, 80});
    EXPECT_LE(largestDifference(throughFile(source, ImageFormat::jpeg, 1), source), 24);
    EXPECT_LE(largestDifference(throughFile(source, ImageFormat::heic, 1), source), 40);
}

TEST_F(ImageFilesTest, GIFPaletteFitsThePicture) {
    const auto source = photograph({120, 80});
    const auto image = throughFile(source, ImageFormat::gif);
    double squares = 0;
    for (int y = 0; y < 80; ++y) {
        for (int x = 0; x < 120; ++x) {
            for (int channel = 0; channel < 3; ++channel) {
                const double difference = sampleAt(source, x, y, channel) - sampleAt(image, x, y, channel);
                squares += difference * difference;
            }
        }
    }
    EXPECT_LE(std::sqrt(squares / (120 * 80 * 3)), 14) << "an unfit palette gives a larger error";
}

TEST_F(ImageFilesTest, QualityChangesTheSizeWhereSupported) {
    const auto source = photograph({200, 150});
    for (const auto format : allCases<ImageFormat>) {
        const auto low = convert(source, format, 0.1).value().size();
        const auto high = convert(source, format, 1.0).value().size();
        if (supportsQuality(format))
            EXPECT_LT(2 * low, high) << rawValue(format);
        else
            EXPECT_EQ(low, high) << rawValue(format);
    }
}

TEST_F(ImageFilesTest, AnyQualityValueGivesADecodableFile) {
    const auto source = photograph({20, 15});
    for (const auto format : {ImageFormat::jpeg, ImageFormat::heic, ImageFormat::png}) {
        for (const double quality : {-1.0, 0.0, 2.0, std::nan("")})
            EXPECT_TRUE(decode(convert(source, format, quality).value(), {})) << quality;
    }
}

TEST_F(ImageFilesTest, EveryFormatKeepsAnySize) {
    for (const auto format : allCases<ImageFormat>) {
        for (const ImageSize size : {ImageSize{1, 1}, {2, 1}, {1, 300}, {300, 1}, {15, 17}, {63, 65}}) {
            for (const int channels : {1, 2, 3, 4}) {
                for (const int bytes : {1, 2}) {
                    const auto image = throughFile(distinctPicture(size, channels, bytes), format);
                    EXPECT_EQ(image.width, size.width)
                        << rawValue(format) << ' ' << size.width << ' ' << channels;
                    EXPECT_EQ(image.height, size.height) << rawValue(format);
                }
            }
        }
    }
}

TEST_F(ImageFilesTest, AlphaIsBlendedWithWhiteWhereUnsupported) {
    const auto half = plainPicture({16, 16}, {200, 0, 0, 128});
    const auto jpeg = throughFile(half, ImageFormat::jpeg, 1);
    EXPECT_EQ(jpeg.channels, 3);
    const auto pixel = pixelAt(jpeg, 8, 8);
    EXPECT_NEAR(pixel[0], 227, 3); // 200 * 128/255 + 255 * 127/255
    EXPECT_NEAR(pixel[1], 127, 3);
    const auto clear = plainPicture({16, 16}, {0, 0, 0, 0});
    EXPECT_NEAR(pixelAt(throughFile(clear, ImageFormat::jpeg, 1), 8, 8)[0], 255, 1);
    EXPECT_EQ(pixelAt(throughFile(clear, ImageFormat::gif), 8, 8)[3], 0);
    EXPECT_NEAR(pixelAt(throughFile(half, ImageFormat::heic, 1), 8, 8)[3], 128, 3);
}

TEST_F(ImageFilesTest, SixteenBitsAreKeptOrReducedToEight) {
    const auto deep =
        picture({16, 16}, 3, 2, [](int, int, int channel) { return channel == 0 ? 65535 : 0x8080; });
    EXPECT_EQ(pixelAt(throughFile(deep, ImageFormat::bmp), 3, 3), (std::vector{255, 128, 128}));
    EXPECT_EQ(pixelAt(throughFile(deep, ImageFormat::png), 3, 3), (std::vector{65535, 0x8080, 0x8080}));
}

TEST_F(ImageFilesTest, WideGamutColorsAreKeptOrConverted) {
    const auto source = plainPicture({8, 8}, {200, 100, 50});
    const auto wide = vipsImage(source).icc_transform("p3", VImage::option()->set("input_profile", "srgb"));
    for (const auto* suffix : {".png", ".tif", ".jpg[Q=100]"}) {
        const auto image = decoded(libraryFile(wide, suffix));
        EXPECT_NE(image.colorProfile, "");
        EXPECT_GT(std::abs(pixelAt(image, 4, 4)[0] - 200), 5) << "the samples are still in the wide gamut";
        for (const auto format :
             {ImageFormat::png, ImageFormat::tiff, ImageFormat::jpeg, ImageFormat::heic}) {
            const auto kept = throughFile(image, format, 1);
            EXPECT_EQ(kept.colorProfile, image.colorProfile) << suffix << ' ' << rawValue(format);
            EXPECT_LE(largestDifference(kept, image), 3) << rawValue(format);
        }
        for (const auto format : {ImageFormat::bmp, ImageFormat::gif}) {
            const auto pixel = pixelAt(throughFile(image, format), 4, 4);
            EXPECT_NEAR(pixel[0], 200, 3) << suffix << ' ' << rawValue(format);
            EXPECT_NEAR(pixel[1], 100, 3);
            EXPECT_NEAR(pixel[2], 50, 3);
        }
        EXPECT_NEAR(pixelAt(preview(image, 8).value(), 4, 4)[0], 200, 3);
    }
}

TEST_F(ImageFilesTest, CMYKIsConvertedToRGB) {
    const auto source = plainPicture({8, 8}, {180, 100, 80});
    const auto cmyk = vipsImage(source).icc_transform("cmyk", VImage::option()->set("input_profile", "srgb"));
    for (const auto* suffix : {".jpg[Q=100]", ".tif", ".jpg[Q=100,strip]"}) {
        const auto image = decoded(libraryFile(cmyk, suffix));
        EXPECT_EQ(image.channels, 3) << suffix;
        const auto pixel = pixelAt(image, 4, 4);
        EXPECT_NEAR(pixel[0], 180, 12) << suffix;
        EXPECT_NEAR(pixel[1], 100, 12) << suffix;
        EXPECT_NEAR(pixel[2], 80, 12) << suffix;
    }
}

TEST_F(ImageFilesTest, UnusualTIFFsAreRead) {
    const auto source = photograph({40, 30});
    const auto picture = vipsImage(source);
    for (const auto* suffix : {".tif[compression=lzw]", ".tif[compression=deflate,predictor=horizontal]",
                               ".tif[compression=packbits]", ".tif[tile]", ".tif[bigtiff]"})
        EXPECT_TRUE(haveSamePixels(decoded(libraryFile(picture, suffix)), source)) << suffix;
    EXPECT_EQ(decoded(libraryFile(picture.colourspace(VIPS_INTERPRETATION_B_W), ".tif[bitdepth=1]")).channels,
              1);
    EXPECT_LE(
        largestDifference(decoded(libraryFile(picture.colourspace(VIPS_INTERPRETATION_LAB), ".tif")), source),
        2);
    EXPECT_LE(largestDifference(decoded(libraryFile(picture.colourspace(VIPS_INTERPRETATION_scRGB), ".tif")),
                                source),
              2);
}

TEST_F(ImageFilesTest, TheFirstOfSeveralPicturesIsRead) {
    const auto first = plainPicture({8, 6}, {255, 0, 0});
    const auto second = plainPicture({8, 6}, {0, 0, 255});
    auto both = vipsImage(first).join(vipsImage(second), VIPS_DIRECTION_VERTICAL);
    both.set(VIPS_META_PAGE_HEIGHT, 6);
    for (const auto* suffix : {".gif", ".tif"}) {
        const auto file = libraryFile(both, suffix);
        EXPECT_EQ(getImageInfo(file)->pictureCount, 2) << suffix;
        EXPECT_EQ(getImageInfo(file)->height, 6) << suffix;
        EXPECT_EQ(sampleAt(decoded(file), 4, 5, 0), 255) << suffix;
    }
    for (const auto format : allCases<ImageFormat>)
        EXPECT_EQ(getImageInfo(convert(first, format, 1).value())->pictureCount, 1) << rawValue(format);
}

VImage asGray(const VImage& image) {
    return image.copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_B_W));
}

VImage asColor(const VImage& image) {
    const bool isLinear = vips_band_format_isfloat(image.format()) != 0;
    return image.copy(VImage::option()->set("interpretation",
                                            isLinear ? VIPS_INTERPRETATION_scRGB : VIPS_INTERPRETATION_sRGB));
}

TEST_F(ImageFilesTest, TIFFsWithUnusualSampleTypesAreRead) {
    struct Row {
        std::string_view name;
        VipsBandFormat format;
        double black;
        double white;
    };

    const Row rows[] = {
        {"8 bits with a sign", VIPS_FORMAT_CHAR, -128, 127},
        {"16 bits with a sign", VIPS_FORMAT_SHORT, -32768, 32767},
        {"32 bits", VIPS_FORMAT_UINT, 0, 4294967295.0},
        {"32 bits with a sign", VIPS_FORMAT_INT, -2147483648.0, 2147483647.0},
        {"linear light", VIPS_FORMAT_FLOAT, 0, 1},
        {"linear light beyond black and white", VIPS_FORMAT_FLOAT, -3, 7},
    };
    for (const auto& row : rows) {
        for (const int bands : {1, 3}) {
            auto picture = VImage::black(8, 4).linear(0, row.black);
            picture = picture.insert(VImage::black(4, 4).linear(0, row.white), 4, 0).cast(row.format);
            picture = bands == 1 ? asGray(picture) : asColor(VImage::bandjoin({picture, picture, picture}));
            const auto image = decoded(libraryFile(picture, ".tif"));
            ASSERT_EQ(image.channels, bands) << row.name;
            const int maxSample = image.bytesPerSample == 2 ? 65535 : 255;
            const int tolerance = maxSample / 256;
            EXPECT_EQ(sampleAt(image, 1, 1, 0), 0) << row.name << ' ' << bands;
            EXPECT_NEAR(sampleAt(image, 6, 1, bands - 1), maxSample, tolerance) << row.name << ' ' << bands;
        }
    }
}

TEST_F(ImageFilesTest, LinearLightIsConvertedToSRGB) {
    for (const int bands : {1, 2, 3, 4}) {
        const std::vector<double> half(static_cast<std::size_t>(bands), 0.5);
        const auto light = VImage::black(4, 4).cast(VIPS_FORMAT_FLOAT).new_from_image(half);
        const auto image = decoded(libraryFile(bands < 3 ? asGray(light) : asColor(light), ".tif"));
        ASSERT_EQ(image.channels, bands);
        EXPECT_NEAR(sampleAt(image, 1, 1, 0), 188, 1) << bands;
    }
}

TEST_F(ImageFilesTest, OnlyTheSixFormatsAreRead) {
    const auto source = photograph({8, 8});
    const auto picture = vipsImage(source);
    for (const auto* suffix : {".webp", ".ppm"})
        EXPECT_EQ(decode(libraryFile(picture, suffix), {}).error(), ConversionError::unsupportedFormat)
            << suffix;
    for (const auto& file :
         {std::string(), std::string("plain text"), std::string("<svg xmlns='x'/>"), std::string("%PDF-1.4"),
          std::string("\0\0\0\x18"
                      "ftypavif\0\0\0\0avifmif1",
                      24)}) {
        EXPECT_EQ(decode(file, {}).error(), ConversionError::unsupportedFormat) << file;
        EXPECT_EQ(getImageInfo(file), std::nullopt) << file;
    }
    EXPECT_THROW(VImage::new_from_file("/usr/share/none.svg"), vips::VError);
}

TEST_F(ImageFilesTest, AnEmptyImageIsInvalid) {
    EXPECT_EQ(convert(Image{}, ImageFormat::png, 1).error(), ConversionError::invalidImage);
}

TEST_F(ImageFilesTest, DecodingFailsOnceStopped) {
    const auto picture = photograph({60, 40});
    std::vector<std::string> files;
    for (const auto format : allCases<ImageFormat>)
        files.emplace_back(convert(picture, format, 1).value().view());
    for (const auto& file : files)
        EXPECT_TRUE(decode(file, stop.get_token()));
    stop.request_stop();
    for (const auto& file : files)
        EXPECT_EQ(decode(file, stop.get_token()).error(), ConversionError::invalidImage);
}

TEST_F(ImageFilesTest, EveryFormatCanBeReadAndWrittenHere) {
    for (const auto format : allCases<ImageFormat>) {
        EXPECT_TRUE(canDecode(format)) << rawValue(format);
        EXPECT_TRUE(canEncode(format)) << rawValue(format) << ' ' << factsOf(format).encoderPackage;
    }
}

} // namespace
} // namespace korvane
