/// The variants of Windows bitmaps, built byte by byte.

#include "Images/Bitmap.h"

#include "support/Pictures.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

using namespace support;

std::string little(std::uint32_t value, int count = 4) {
    std::string bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

std::string bytesOf(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

std::string file(const std::string& information, const std::string& tables, const std::string& pixels) {
    const auto start = static_cast<std::uint32_t>(14 + information.size() + tables.size());
    return "BM" + little(0) + little(0) + little(start) + information + tables + pixels;
}

struct Measures {
    int width = 2;
    int height = 2;
    std::uint32_t bits = 8;
    std::uint32_t compression = 0;
    std::uint32_t colors = 0;
};

/// The header of Windows 3.
std::string information(const Measures& measures, std::uint32_t size = 40) {
    return little(size) + little(static_cast<std::uint32_t>(measures.width)) +
           little(static_cast<std::uint32_t>(measures.height)) + little(1, 2) + little(measures.bits, 2) +
           little(measures.compression) + little(0) + little(2835) + little(11811) + little(measures.colors) +
           little(0);
}

const std::string redAndBlue = bytesOf({0, 0, 255, 0, 255, 0, 0, 0});
const std::vector<int> red{255, 0, 0};
const std::vector<int> blue{0, 0, 255};

Image readFile(const std::string& bytes) {
    const auto header = Bitmap::readHeader(bytes);
    const auto image = header ? Bitmap::read(*header) : std::nullopt;
    if (!image)
        throw std::runtime_error("the bitmap cannot be read");
    return *image;
}

/// Expects red and blue in the upper row, blue and red in the lower one.
void expectCross(const Image& image, std::string_view name) {
    EXPECT_EQ(pixelAt(image, 0, 0), red) << name;
    EXPECT_EQ(pixelAt(image, 1, 0), blue) << name;
    EXPECT_EQ(pixelAt(image, 0, 1), blue) << name;
    EXPECT_EQ(pixelAt(image, 1, 1), red) << name;
}

TEST(Bitmap, ReadsEveryVariant) {
    const auto masks565 = little(0xF800) + little(0x07E0) + little(0x001F);
    const auto masks32 = little(0x000000FF) + little(0x0000FF00) + little(0x00FF0000);

    struct Row {
        std::string_view name;
        std::string bytes;
    };

    const Row rows[] = {
        {"1 bit",
         file(information({.bits = 1, .colors = 2}), redAndBlue, bytesOf({0x80, 0, 0, 0, 0x40, 0, 0, 0}))},
        {"4 bits",
         file(information({.bits = 4, .colors = 2}), redAndBlue, bytesOf({0x10, 0, 0, 0, 0x01, 0, 0, 0}))},
        {"8 bits", file(information({.colors = 2}), redAndBlue, bytesOf({1, 0, 0, 0, 0, 1, 0, 0}))},
        {"top down",
         file(information({.height = -2, .colors = 2}), redAndBlue, bytesOf({0, 1, 0, 0, 1, 0, 0, 0}))},
        {"OS/2", file(little(12) + little(2, 2) + little(2, 2) + little(1, 2) + little(1, 2),
                      bytesOf({0, 0, 255, 255, 0, 0}), bytesOf({0x80, 0, 0, 0, 0x40, 0, 0, 0}))},
        {"24 bits", file(information({.bits = 24}), "",
                         bytesOf({255, 0, 0, 0, 0, 255, 0, 0, 0, 0, 255, 255, 0, 0, 0, 0}))},
        {"24 bits without the last padding",
         file(information({.bits = 24}), "", bytesOf({255, 0, 0, 0, 0, 255, 0, 0, 0, 0, 255, 255, 0, 0}))},
        {"16 bits", file(information({.bits = 16}), "", bytesOf({0x1F, 0, 0, 0x7C, 0, 0x7C, 0x1F, 0}))},
        {"16 bits with masks", file(information({.bits = 16, .compression = 3}), masks565,
                                    bytesOf({0x1F, 0, 0, 0xF8, 0, 0xF8, 0x1F, 0}))},
        {"32 bits", file(information({.bits = 32}), "",
                         bytesOf({255, 0, 0, 9, 0, 0, 255, 9, 0, 0, 255, 9, 255, 0, 0, 9}))},
        {"32 bits with masks", file(information({.bits = 32, .compression = 3}), masks32,
                                    bytesOf({0, 0, 255, 9, 255, 0, 0, 9, 255, 0, 0, 9, 0, 0, 255, 9}))},
        {"runs of 8 bits", file(information({.compression = 1, .colors = 2}), redAndBlue,
                                bytesOf({1, 1, 1, 0, 0, 0, 1, 0, 1, 1, 0, 1}))},
        {"runs, top down", file(information({.height = -2, .compression = 1, .colors = 2}), redAndBlue,
                                bytesOf({1, 0, 1, 1, 0, 0, 1, 1, 1, 0, 0, 1}))},
        {"OS/2 with a short palette",
         file(little(12) + little(2, 2) + little(2, 2) + little(1, 2) + little(8, 2),
              bytesOf({0, 0, 255, 255, 0, 0}), bytesOf({1, 0, 0, 0, 0, 1, 0, 0}))},
        {"runs without an end marker", file(information({.compression = 1, .colors = 2}), redAndBlue,
                                            bytesOf({1, 1, 1, 0, 0, 0, 1, 0, 1, 1}))},
        {"runs with a skip", file(information({.compression = 1, .colors = 2}), redAndBlue,
                                  bytesOf({1, 1, 0, 2, 0, 1, 1, 1, 0, 1}))},
        {"runs of 4 bits", file(information({.bits = 4, .compression = 2, .colors = 2}), redAndBlue,
                                bytesOf({2, 0x10, 0, 0, 2, 0x01, 0, 1}))},
        {"a longer header", file(information({.colors = 2}, 108) + std::string(68, '\0'), redAndBlue,
                                 bytesOf({1, 0, 0, 0, 0, 1, 0, 0}))},
    };
    for (const auto& row : rows)
        expectCross(readFile(row.bytes), row.name);
}

TEST(Bitmap, ReadsLiteralRuns) {
    const auto image = readFile(file(information({.width = 5, .height = 1, .compression = 1, .colors = 2}),
                                     redAndBlue, bytesOf({0, 3, 1, 0, 1, 0, 2, 0, 0, 1})));
    EXPECT_EQ(pixelAt(image, 0, 0), blue);
    EXPECT_EQ(pixelAt(image, 1, 0), red);
    EXPECT_EQ(pixelAt(image, 2, 0), blue);
    EXPECT_EQ(pixelAt(image, 4, 0), red);
}

TEST(Bitmap, ReadsAlphaAndWideMasks) {
    const auto masks = little(0x3FF00000) + little(0x000FFC00) + little(0x000003FF) + little(0xC0000000);
    const auto image = readFile(file(information({.width = 1, .height = 1, .bits = 32, .compression = 6}),
                                     masks, little(0xC0000000 | 1023U << 20 | 512U << 10)));
    EXPECT_EQ(pixelAt(image, 0, 0), (std::vector{255, 128, 0, 255}));
}

TEST(Bitmap, ReadsItsResolution) {
    const auto header =
        Bitmap::readHeader(file(information({.colors = 2}), redAndBlue, bytesOf({1, 0, 0, 0, 0, 1, 0, 0})));
    ASSERT_TRUE(header);
    EXPECT_NEAR(header->horizontalDPI, 72, 0.02);
    EXPECT_NEAR(header->verticalDPI, 300, 0.02);
}

TEST(Bitmap, RejectsDamagedAndUnsupportedFiles) {
    struct Row {
        std::string_view name;
        std::string bytes;
    };

    const auto pixels = bytesOf({1, 0, 0, 0, 0, 1, 0, 0});
    const auto good = file(information({.colors = 2}), redAndBlue, pixels);
    const Row rows[] = {
        {"no pixels", file(information({.colors = 2}), redAndBlue, "")},
        {"a missing row", file(information({.height = 3, .colors = 2}), redAndBlue, pixels)},
        {"an incomplete palette", file(information({.colors = 200}), "", "")},
        {"no width", file(information({.width = 0, .colors = 2}), redAndBlue, pixels)},
        {"a negative width", file(information({.width = -2, .colors = 2}), redAndBlue, pixels)},
        {"the smallest possible height",
         file(information({.height = -2147483647 - 1, .colors = 2}), redAndBlue, pixels)},
        {"5 bits", file(information({.bits = 5}), redAndBlue, pixels)},
        {"2 bits", file(information({.bits = 2}), redAndBlue, pixels)},
        {"an embedded JPEG", file(information({.bits = 0, .compression = 4}), "", pixels)},
        {"runs of 24 bits", file(information({.bits = 24, .compression = 1}), "", pixels)},
        {"runs beyond the row",
         file(information({.compression = 1, .colors = 2}), redAndBlue, bytesOf({9, 1, 0, 1}))},
        {"truncated runs", file(information({.compression = 1, .colors = 2}), redAndBlue, bytesOf({1, 1}))},
        {"truncated literals",
         file(information({.compression = 1, .colors = 2}), redAndBlue, bytesOf({0, 2 + 1, 1}))},
        {"a skip below the picture",
         file(information({.compression = 1, .colors = 2}), redAndBlue, bytesOf({0, 2, 0, 9, 0, 1}))},
        {"a header of an unknown size", file(information({.colors = 2}, 41), redAndBlue, pixels)},
        {"pixels inside the header", std::string(good).replace(10, 4, little(20))},
        {"pixels inside the palette", std::string(good).replace(10, 4, little(14 + 40 + 4))},
        {"pixels inside a palette of the default size",
         file(information({}), std::string(1024 - 4, '\0'), std::string(100, '\0'))},
        {"pixels inside the masks",
         std::string(file(information({.bits = 16, .compression = 3}), std::string(12, '\x1f'), pixels))
             .replace(10, 4, little(14 + 40 + 8))},
        {"pixels at the start of an OS/2 palette",
         file(little(12) + little(2, 2) + little(2, 2) + little(1, 2) + little(8, 2), "", pixels)},
        {"pixels beyond the end", std::string(good).replace(10, 4, little(999'999))},
    };
    EXPECT_NO_THROW(readFile(good));
    for (const auto& row : rows)
        EXPECT_THROW(readFile(row.bytes), std::runtime_error) << row.name;
}

TEST(Bitmap, WritesGrayColorAndAlphaVariants) {
    const auto gray = Bitmap::write(plainPicture({3, 2}, {7}));
    EXPECT_EQ(gray.size(), 14 + 40 + 1024 + 2 * 4);
    const auto color = Bitmap::write(plainPicture({3, 2}, {1, 2, 3}));
    EXPECT_EQ(color.size(), 14 + 40 + 2 * 12);
    EXPECT_EQ(color.view().substr(54, 6), "\3\2\1\3\2\1");
    EXPECT_EQ(color.view().substr(2, 4), little(static_cast<std::uint32_t>(color.size())));
    const auto alpha = Bitmap::write(plainPicture({3, 2}, {1, 2, 3, 4}));
    EXPECT_EQ(alpha.size(), 14 + 108 + 2 * 12);
    EXPECT_EQ(alpha.view().substr(14 + 108, 4), "\3\2\1\4");
}

} // namespace
} // namespace korvane
