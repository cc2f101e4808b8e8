#include "Utilities/ImageConverter.h"

#include "support/Pictures.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

namespace korvane {
namespace {

using namespace ImageConverter;
using namespace support;

/// A picture of `size` in which each pixel is the one of `source` that `origin` names.
Image rearranged(const Image& source, ImageSize size, const std::function<ImageSize(int x, int y)>& origin) {
    return picture(size, source.channels, source.bytesPerSample, [&](int x, int y, int channel) {
        const auto [sourceX, sourceY] = origin(x, y);
        return sampleAt(source, sourceX, sourceY, channel);
    });
}

Image naivelyRotated(const Image& source, Rotation rotation) {
    const int w = source.width;
    const int h = source.height;
    switch (rotation) {
    case Rotation::none:
        return source;
    case Rotation::degrees90: // the upper right corner moves to the upper left
        return rearranged(source, {h, w}, [&](int x, int y) { return ImageSize{w - 1 - y, x}; });
    case Rotation::degrees180:
        return rearranged(source, {w, h}, [&](int x, int y) { return ImageSize{w - 1 - x, h - 1 - y}; });
    case Rotation::degrees270:
        return rearranged(source, {h, w}, [&](int x, int y) { return ImageSize{y, h - 1 - x}; });
    }
    return source;
}

Image naivelyFlipped(const Image& source, FlipDirection direction) {
    const int w = source.width;
    const int h = source.height;
    const bool sideways = direction == FlipDirection::horizontal || direction == FlipDirection::both;
    const bool upsideDown = direction == FlipDirection::vertical || direction == FlipDirection::both;
    return rearranged(source, {w, h}, [&](int x, int y) {
        return ImageSize{sideways ? w - 1 - x : x, upsideDown ? h - 1 - y : y};
    });
}

Image anyPicture() {
    const ImageSize size{*rc::gen::inRange(1, 40), *rc::gen::inRange(1, 40)};
    return distinctPicture(size, *rc::gen::inRange(1, 5), *rc::gen::inRange(1, 3));
}

TEST(Transforms, RotateCounterclockwise) {
    const auto source = picture({2, 1}, 1, 1, [](int x, int, int) { return x == 0 ? 10 : 20; }); // 10 20
    const auto turned = rotate(source, Rotation::degrees90).value();
    EXPECT_EQ(turned.width, 1);
    EXPECT_EQ(turned.height, 2);
    EXPECT_EQ(sampleAt(turned, 0, 0, 0), 20) << "the right side is now at the top";
    EXPECT_EQ(sampleAt(turned, 0, 1, 0), 10);
}

TEST(Transforms, EveryRotationFlipAndPairMovesEveryPixelToItsPlace) {
    for (const int channels : {1, 2, 3, 4}) {
        for (const int bytes : {1, 2}) {
            const auto source = distinctPicture({5, 3}, channels, bytes);
            for (const auto rotation : allCases<Rotation>) {
                for (const auto direction : allCases<FlipDirection>) {
                    const auto turned = rotate(source, rotation).value();
                    const auto result = flip(turned, direction).value();
                    EXPECT_TRUE(
                        haveSamePixels(result, naivelyFlipped(naivelyRotated(source, rotation), direction)))
                        << label(rotation) << ' ' << rawValue(direction) << ' ' << channels << ' ' << bytes;
                }
            }
        }
    }
}

TEST(Transforms, GiveTheExpectedSizes) {
    const auto source = distinctPicture({400, 200});
    const auto size = [](const Image& image) { return ImageSize{image.width, image.height}; };
    EXPECT_EQ(size(rotate(source, Rotation::degrees90).value()), (ImageSize{200, 400}));
    EXPECT_EQ(size(rotate(source, Rotation::degrees180).value()), (ImageSize{400, 200}));
    EXPECT_EQ(size(rotate(source, Rotation::degrees270).value()), (ImageSize{200, 400}));

    struct Row {
        ImageSize to;
        bool maintainAspectRatio;
        ImageSize expected;
    };

    const Row rows[] = {
        {{100, 100}, true, {100, 50}}, {{100, 100}, false, {100, 100}}, {{800, 100}, true, {200, 100}},
        {{1, 1}, true, {1, 1}},        {{1, 1}, false, {1, 1}},         {{400, 200}, true, {400, 200}},
        {{33, 500}, true, {33, 17}},   {{3, 500}, false, {3, 500}},     {{1000, 1000}, true, {1000, 500}},
        {{0, 0}, false, {1, 1}},       {{-5, 7}, false, {1, 7}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(size(resize(source, row.to, row.maintainAspectRatio).value()), row.expected)
            << row.to.width << " x " << row.to.height;
}

TEST(Transforms, ResizingRejectsOversizedResults) {
    const auto source = distinctPicture({4, 2});
    for (const ImageSize size : {ImageSize{300'000, 300'000}, ImageSize{2'147'483'647, 2'147'483'647}}) {
        EXPECT_EQ(resize(source, size, true).error(), ConversionError::resizeFailed);
        EXPECT_EQ(resize(source, size, false).error(), ConversionError::resizeFailed);
    }
}

TEST(Transforms, ResizingKeepsAPlainColour) {
    for (const auto& color : {std::vector{200}, {200, 90}, {10, 128, 250}, {10, 128, 250, 60}}) {
        const auto source = plainPicture({31, 17}, color);
        for (const ImageSize size : {ImageSize{7, 5}, ImageSize{64, 80}, ImageSize{1, 1}, ImageSize{31, 1}})
            EXPECT_LE(largestDifference(resize(source, size, false).value(), plainPicture(size, color)), 1);
    }
}

TEST(Transforms, ResizingIgnoresTheColourOfTransparentPixels) {
    // Transparent red beside opaque blue: between them the blue fades out and stays blue.
    const auto source = picture({8, 8}, 4, 1, [](int x, int, int channel) {
        const bool isLeft = x < 4;
        return channel == 0              ? (isLeft ? 255 : 0)
               : channel == 2            ? (isLeft ? 0 : 255)
               : channel == 3 && !isLeft ? 255
                                         : 0;
    });
    const auto small = resize(source, {3, 3}, false).value();
    const auto middle = pixelAt(small, 1, 1);
    EXPECT_LE(middle[0], 2);
    EXPECT_GE(middle[2], 253);
    EXPECT_NEAR(middle[3], 128, 30);
}

TEST(Transforms, ResizingIsSharpAndSmooth) {
    // A good filter turns a fine checkerboard into even gray; skipping pixels would leave black or white.
    const auto board = picture({64, 64}, 1, 1, [](int x, int y, int) { return (x + y) % 2 * 255; });
    const auto gray = resize(board, {16, 16}, false).value();
    EXPECT_LE(largestDifference(gray, plainPicture({16, 16}, {127})), 12);
    // An edge stays sharp.
    const auto edge = picture({64, 8}, 1, 1, [](int x, int, int) { return x < 32 ? 0 : 255; });
    const auto small = resize(edge, {16, 2}, false).value();
    EXPECT_LE(sampleAt(small, 6, 0, 0), 20);
    EXPECT_GE(sampleAt(small, 9, 0, 0), 235);
}

TEST(Transforms, RotatingSwapsTheResolutions) {
    auto source = distinctPicture({4, 2});
    source.horizontalDPI = 300;
    source.verticalDPI = 150;
    const auto turned = rotate(source, Rotation::degrees90).value();
    EXPECT_NEAR(turned.horizontalDPI, 150, 0.01);
    EXPECT_NEAR(turned.verticalDPI, 300, 0.01);
    const auto mirrored = flip(source, FlipDirection::both).value();
    EXPECT_NEAR(mirrored.horizontalDPI, 300, 0.01);
}

TEST(Transforms, APreviewFitsItsSizeInRGBA) {
    for (const int channels : {1, 2, 3, 4}) {
        for (const int bytes : {1, 2}) {
            const auto source = distinctPicture({300, 100}, channels, bytes);
            const auto small = preview(source, 60).value();
            EXPECT_EQ(small.width, 60);
            EXPECT_EQ(small.height, 20);
            EXPECT_EQ(small.channels, 4);
            EXPECT_EQ(small.bytesPerSample, 1);
        }
    }
    const auto tiny = preview(plainPicture({2, 3}, {9, 8, 7}), 60).value();
    EXPECT_EQ(tiny.height, 3) << "a small picture is not enlarged";
    EXPECT_EQ(pixelAt(tiny, 1, 2), (std::vector{9, 8, 7, 255}));
}

RC_GTEST_PROP(Transforms, FlippingTwiceIsTheIdentity, ()) {
    const auto source = anyPicture();
    for (const auto direction : allCases<FlipDirection>)
        RC_ASSERT(haveSamePixels(flip(flip(source, direction).value(), direction).value(), source));
}

RC_GTEST_PROP(Transforms, FourQuarterTurnsAreTheIdentity, ()) {
    const auto source = anyPicture();
    auto turned = source;
    for (int quarter = 0; quarter < 4; ++quarter)
        turned = rotate(turned, Rotation::degrees90).value();
    RC_ASSERT(haveSamePixels(turned, source));
    RC_ASSERT(haveSamePixels(
        rotate(rotate(source, Rotation::degrees270).value(), Rotation::degrees90).value(), source));
}

RC_GTEST_PROP(Transforms, ResizingGivesTheRequestedSize, ()) {
    const auto source = anyPicture();
    const ImageSize size{*rc::gen::inRange(1, 90), *rc::gen::inRange(1, 90)};
    const auto result = resize(source, size, false).value();
    RC_ASSERT(result.width == size.width);
    RC_ASSERT(result.height == size.height);
    RC_ASSERT(result.channels == source.channels);
    RC_ASSERT(result.bytesPerSample == source.bytesPerSample);
    const auto fitting = resize(source, size, true).value();
    RC_ASSERT(fitting.width <= size.width);
    RC_ASSERT(fitting.height <= size.height);
    RC_ASSERT(std::max(fitting.width - size.width, fitting.height - size.height) == 0);
}

} // namespace
} // namespace korvane
