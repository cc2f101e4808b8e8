#include "Views/Tools/ColorPickerView.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace korvane {
namespace {

ColorPickerView showing(int red, int green, int blue) {
    ColorPickerView view;
    view.setSelectedColor(Color::fromChannels(red, green, blue));
    return view;
}

ColorPickerView applied(std::string text) {
    ColorPickerView view;
    view.setHexInput(std::move(text));
    view.applyHex();
    return view;
}

std::vector<std::string> notations(const ColorPickerView& view) {
    std::vector<std::string> texts;
    for (const auto& format : colorFormats)
        texts.push_back((view.*format.value)());
    return texts;
}

TEST(ColorPickerView, StartsWithCyanAndIndependentSliders) {
    const ColorPickerView view;
    EXPECT_EQ(view.hexValue(), "#32ADE6");
    EXPECT_EQ(view.hexInput, "");
    EXPECT_EQ(view.rgbR, 0);
    EXPECT_EQ(view.rgbG, 200);
    EXPECT_EQ(view.rgbB, 255);
    EXPECT_EQ(view.hslH, 190);
    EXPECT_EQ(view.hslS, 100);
    EXPECT_EQ(view.hslL, 50);
    EXPECT_EQ(view.alpha, 1);
    EXPECT_EQ(view.opacityText(), "Opacity: 100%");
}

TEST(ColorPickerView, NotationsHaveTheirLabelsAndColorsInOrder) {
    struct Row {
        std::string_view label;
        PaletteColor color;
        bool isCode;
    };

    constexpr Row rows[] = {
        {"HEX", PaletteColor::purple, false},  {"RGB", PaletteColor::green, false},
        {"RGBA", PaletteColor::green, false},  {"HSL", PaletteColor::orange, false},
        {"SwiftUI", PaletteColor::blue, true}, {"UIKit", PaletteColor::cyan, true},
        {"CSS Var", PaletteColor::pink, true},
    };
    ASSERT_EQ(colorFormats.size(), std::size(rows));
    for (std::size_t i = 0; i < colorFormats.size(); ++i) {
        EXPECT_EQ(colorFormats[i].label, rows[i].label);
        EXPECT_EQ(colorFormats[i].color, rows[i].color);
        EXPECT_EQ(colorFormats[i].isCode, rows[i].isCode);
    }
}

TEST(ColorPickerView, WritesAColorInSevenNotations) {
    auto view = showing(255, 128, 0);
    view.alpha = 0.6;
    EXPECT_EQ(notations(view),
              (std::vector<std::string>{"#FF8000", "rgb(255, 128, 0)", "rgba(255, 128, 0, 0.60)",
                                        "hsl(30, 100%, 50%)", "Color(red: 1.000, green: 0.502, blue: 0.000)",
                                        "UIColor(red: 1.000, green: 0.502, blue: 0.000, alpha: 0.60)",
                                        "--color-custom: #FF8000;"}));
}

TEST(ColorPickerView, WritesTheBasicColorsOfCSS) {
    struct Row {
        std::string_view name;
        std::string_view hex;
        std::string_view rgb;
        std::string_view hsl;
        std::string_view swiftUI;
    };

    constexpr Row rows[] = {
        {"black", "#000000", "0, 0, 0", "0, 0%, 0%", "red: 0.000, green: 0.000, blue: 0.000"},
        {"silver", "#C0C0C0", "192, 192, 192", "0, 0%, 75%", "red: 0.753, green: 0.753, blue: 0.753"},
        {"gray", "#808080", "128, 128, 128", "0, 0%, 50%", "red: 0.502, green: 0.502, blue: 0.502"},
        {"white", "#FFFFFF", "255, 255, 255", "0, 0%, 100%", "red: 1.000, green: 1.000, blue: 1.000"},
        {"maroon", "#800000", "128, 0, 0", "0, 100%, 25%", "red: 0.502, green: 0.000, blue: 0.000"},
        {"red", "#FF0000", "255, 0, 0", "0, 100%, 50%", "red: 1.000, green: 0.000, blue: 0.000"},
        {"purple", "#800080", "128, 0, 128", "300, 100%, 25%", "red: 0.502, green: 0.000, blue: 0.502"},
        {"fuchsia", "#FF00FF", "255, 0, 255", "300, 100%, 50%", "red: 1.000, green: 0.000, blue: 1.000"},
        {"green", "#008000", "0, 128, 0", "120, 100%, 25%", "red: 0.000, green: 0.502, blue: 0.000"},
        {"lime", "#00FF00", "0, 255, 0", "120, 100%, 50%", "red: 0.000, green: 1.000, blue: 0.000"},
        {"olive", "#808000", "128, 128, 0", "60, 100%, 25%", "red: 0.502, green: 0.502, blue: 0.000"},
        {"yellow", "#FFFF00", "255, 255, 0", "60, 100%, 50%", "red: 1.000, green: 1.000, blue: 0.000"},
        {"navy", "#000080", "0, 0, 128", "240, 100%, 25%", "red: 0.000, green: 0.000, blue: 0.502"},
        {"blue", "#0000FF", "0, 0, 255", "240, 100%, 50%", "red: 0.000, green: 0.000, blue: 1.000"},
        {"teal", "#008080", "0, 128, 128", "180, 100%, 25%", "red: 0.000, green: 0.502, blue: 0.502"},
        {"aqua", "#00FFFF", "0, 255, 255", "180, 100%, 50%", "red: 0.000, green: 1.000, blue: 1.000"},
        {"orange", "#FFA500", "255, 165, 0", "38, 100%, 50%", "red: 1.000, green: 0.647, blue: 0.000"},
    };
    for (const auto& row : rows) {
        const auto view = applied(std::string(row.hex));
        EXPECT_EQ(notations(view), (std::vector<std::string>{
                                       std::string(row.hex), fmt::format("rgb({})", row.rgb),
                                       fmt::format("rgba({}, 1.00)", row.rgb),
                                       fmt::format("hsl({})", row.hsl), fmt::format("Color({})", row.swiftUI),
                                       fmt::format("UIColor({}, alpha: 1.00)", row.swiftUI),
                                       fmt::format("--color-custom: {};", row.hex)}))
            << row.name;
    }
}

/// A fraction of integers, for exact calculations.
struct Fraction {
    int numerator = 0;
    int denominator = 1;

    bool isInteger() const { return numerator % denominator == 0; }

    int truncated() const { return numerator / denominator; }

    double value() const { return static_cast<double>(numerator) / denominator; }
};

/// Expects `number` to equal the fraction within the precision of doubles, and to truncate to the same
/// integer. Where the fraction is an integer, a double may lie just below it and truncate to the integer
/// before.
void expectTruncated(double number, Fraction exact, std::string_view name) {
    EXPECT_NEAR(number, exact.value(), 1e-9) << name;
    const auto shown = static_cast<int>(number);
    EXPECT_TRUE(shown == exact.truncated() || (exact.isInteger() && shown == exact.truncated() - 1))
        << name << number;
}

Fraction exactHue(int red, int green, int blue, int range) {
    if (range == 0)
        return {};
    if (red >= green && red >= blue)
        return {60 * (green - blue) + (green < blue ? 360 * range : 0), range};
    if (green >= blue)
        return {60 * (blue - red) + 120 * range, range};
    return {60 * (red - green) + 240 * range, range};
}

std::string thousandths(int channel) {
    const auto rounded = (2000 * channel + 255) / 510; // never a tie, as 255 is odd
    return fmt::format("{}.{:03}", rounded / 1000, rounded % 1000);
}

TEST(ColorPickerView, AgreesWithIntegerArithmetic) {
    std::mt19937 random(7);
    std::uniform_int_distribution channel(0, 255);
    std::uniform_int_distribution percent(0, 100);
    for (int i = 0; i < 200; ++i) {
        const int red = channel(random);
        const int green = channel(random);
        const int blue = channel(random);
        const int opacity = percent(random);
        auto view = showing(red, green, blue);
        view.alpha = opacity / 100.0;

        const auto hex = fmt::format("{:06X}", red * 0x10000 + green * 0x100 + blue);
        const auto channels = fmt::format("{}, {}, {}", red, green, blue);
        const auto parts = fmt::format("red: {}, green: {}, blue: {}", thousandths(red), thousandths(green),
                                       thousandths(blue));
        const auto alpha = fmt::format("{}.{:02}", opacity / 100, opacity % 100);
        EXPECT_EQ(view.hexValue(), "#" + hex);
        EXPECT_EQ(view.rgbValue(), "rgb(" + channels + ")");
        EXPECT_EQ(view.rgbaValue(), "rgba(" + channels + ", " + alpha + ")");
        EXPECT_EQ(view.swiftUICode(), "Color(" + parts + ")");
        EXPECT_EQ(view.uiKitCode(), "UIColor(" + parts + ", alpha: " + alpha + ")");
        EXPECT_EQ(view.cssVariable(), "--color-custom: #" + hex + ";");

        const int maxChannel = std::max({red, green, blue});
        const int minChannel = std::min({red, green, blue});
        const int range = maxChannel - minChannel;
        const int sum = maxChannel + minChannel;
        const auto [hue, saturation, lightness] = ColorPickerView::rgbToHsl(view.selectedColor);
        expectTruncated(hue, exactHue(red, green, blue, range), hex);
        expectTruncated(lightness, {100 * sum, 510}, hex);
        if (range > 0)
            expectTruncated(saturation, {100 * range, sum > 255 ? 510 - sum : sum}, hex);
        EXPECT_EQ(view.hslValue(), fmt::format("hsl({}, {}%, {}%)", std::floor(hue), std::floor(saturation),
                                               std::floor(lightness)));
    }
}

RC_GTEST_PROP(ColorPickerView, HSLIsInRangeForEveryColor, ()) {
    const auto channel = rc::gen::map(rc::gen::inRange<std::int64_t>(0, (std::int64_t{1} << 53) + 1),
                                      [](std::int64_t n) { return std::ldexp(static_cast<double>(n), -53); });
    const Color color{*channel, *channel, *channel};
    const auto [hue, saturation, lightness] = ColorPickerView::rgbToHsl(color);
    RC_ASSERT(hue >= 0);
    RC_ASSERT(hue <= 360);
    RC_ASSERT(saturation >= 0);
    RC_ASSERT(saturation <= 100 + 1e-9);
    RC_ASSERT(lightness >= 0);
    RC_ASSERT(lightness <= 100);
}

TEST(ColorPickerView, TruncatesInsteadOfRounding) {
    ColorPickerView view;
    view.setSelectedColor({.red = 0.5, .green = 0.999, .blue = 0.003});
    EXPECT_EQ(view.hexValue(), "#7FFE00");
    EXPECT_EQ(view.rgbValue(), "rgb(127, 254, 0)");
    view.alpha = 0.999;
    EXPECT_EQ(view.opacityText(), "Opacity: 99%");
    view.alpha = 0.5;
    EXPECT_EQ(view.opacityText(), "Opacity: 50%");
}

TEST(ColorPickerView, OpacityAppearsInTwoNotationsOnly) {
    auto view = showing(10, 20, 30);
    const auto opaque = notations(view);
    view.alpha = 0.5;
    const auto half = notations(view);
    EXPECT_TRUE(half[2].ends_with("0.50)"));
    EXPECT_TRUE(half[5].ends_with("0.50)"));
    for (const std::size_t index : {0U, 1U, 3U, 4U, 6U})
        EXPECT_EQ(half[index], opaque[index]);
}

TEST(ColorPickerView, HasFixedTextsForColorsOutsideSRGB) {
    constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<std::string> fallbacks = {
        "#000000",     "rgb(0, 0, 0)",  "rgba(0, 0, 0, 1)",        "hsl(0, 0%, 0%)",
        "Color.black", "UIColor.black", "--color-custom: #000000;"};
    for (const auto& color : {Color{nan, 0, 0}, Color{0, 1.01, 0}, Color{0, 0, -0.01}}) {
        auto view = showing(1, 2, 3);
        view.alpha = 0.5;
        view.setSelectedColor(color);
        EXPECT_EQ(notations(view), fallbacks);
        EXPECT_EQ(view.rgbR, 1) << "the sliders stay where they are";
        EXPECT_EQ(view.hexInput, "#010203");
    }
}

TEST(ColorPickerView, AppliesSixHexadecimalDigits) {
    for (const auto* text : {" #ff8000 ", "ff8000", "#FF8000", "FF#80#00", "##Ff8000", "\tff8000\u00a0"}) {
        const auto view = applied(text);
        EXPECT_EQ(view.hexValue(), "#FF8000") << text;
        EXPECT_EQ(view.hexInput, "#FF8000") << text;
        EXPECT_EQ(view.rgbR, 255) << text;
        EXPECT_EQ(view.rgbG, 128) << text;
        EXPECT_EQ(view.rgbB, 0) << text;
    }
}

TEST(ColorPickerView, IgnoresTextThatIsNotSixHexadecimalDigits) {
    for (const auto* text :
         {"", "#", "F80", "#F80", "FF8000AA", "GG0000", "00GG00", "0000GG", "FF 800", "F F800", "+F8000",
          "-F8000", "0xFF80", "FF8000\n", "\u0661\u0661\u0661", "FF80\u00e9",
          "\uff26\uff26\uff18\uff10\uff10\uff10", "\xff\xff\xff\xff\xff\xff"}) {
        ColorPickerView untouched;
        untouched.setHexInput(text);
        EXPECT_EQ(applied(text), untouched) << text;
    }
}

TEST(ColorPickerView, SlidersChangeTheColorOnlyWhenApplied) {
    ColorPickerView view;
    view.rgbR = 127.9;
    view.rgbG = 0;
    view.rgbB = 255;
    EXPECT_EQ(view.hexValue(), "#32ADE6");
    view.applyRGB();
    EXPECT_EQ(view.hexValue(), "#7F00FF");
    EXPECT_EQ(view.hexInput, "#7F00FF");
    EXPECT_NEAR(view.rgbR, 127.9, 1e-9) << "not rounded";
}

TEST(ColorPickerView, ChangingTheColorUpdatesOnlyTheFieldAndTheRGBSliders) {
    ColorPickerView view;
    view.alpha = 0.25;
    auto expected = view;
    view.setSelectedColor(Color::fromChannels(1, 2, 3));
    expected.selectedColor = Color::fromChannels(1, 2, 3);
    expected.rgbR = 1;
    expected.rgbG = 2;
    expected.rgbB = 3;
    expected.hexInput = "#010203";
    EXPECT_EQ(view, expected);
}

TEST(ColorPickerView, ApplyingTheSameColorChangesNothing) {
    auto view = showing(255, 128, 0);
    view.rgbR = 7;
    view.setHexInput("ff8000");
    const auto before = view;
    view.applyHex();
    EXPECT_EQ(view, before);
}

RC_GTEST_PROP(ColorPickerView, RoundTripsEveryHexadecimalColor, ()) {
    const auto number = *rc::gen::inRange(0, 0x1000000);
    const auto view = applied(fmt::format("{:06x}", number));
    RC_ASSERT(view.hexValue() == fmt::format("#{:06X}", number));
}

} // namespace
} // namespace korvane
