#include "Views/Tools/ColorPickerView.h"

#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

namespace korvane {

namespace {

/// A channel from 0 to 1 as a whole number from 0 to 255.
int wholeChannel(double channel) {
    return static_cast<int>(channel * Color::maxChannel);
}

/// The value of two hexadecimal digits in either letter case.
std::optional<int> hexadecimalPair(std::string_view digits) {
    unsigned value = 0;
    const auto* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return static_cast<int>(value);
}

/// The colour of exactly six hexadecimal digits.
std::optional<Color> colorFromDigits(std::string_view digits) {
    if (digits.size() != 6)
        return std::nullopt;
    const auto red = hexadecimalPair(digits.substr(0, 2));
    const auto green = hexadecimalPair(digits.substr(2, 2));
    const auto blue = hexadecimalPair(digits.substr(4, 2));
    if (!red || !green || !blue)
        return std::nullopt;
    return Color::fromChannels(*red, *green, *blue);
}

} // namespace

void ColorPickerView::setSelectedColor(Color color) {
    if (color == selectedColor)
        return;
    selectedColor = color;
    updateSlidersFromColor();
}

void ColorPickerView::setHexInput(std::string text) {
    hexInput = std::move(text);
}

void ColorPickerView::applyHex() {
    std::string digits(trimmingWhitespaces(hexInput));
    std::erase(digits, '#');
    if (const auto color = colorFromDigits(digits))
        setSelectedColor(*color);
}

void ColorPickerView::applyRGB() {
    setSelectedColor(Color::fromChannels(rgbR, rgbG, rgbB));
}

void ColorPickerView::updateSlidersFromColor() {
    const auto color = selectedColor.sRGB();
    if (!color)
        return;
    rgbR = color->red * Color::maxChannel;
    rgbG = color->green * Color::maxChannel;
    rgbB = color->blue * Color::maxChannel;
    hexInput = hexValue();
}

std::string ColorPickerView::hexValue() const {
    const auto color = selectedColor.sRGB();
    if (!color)
        return "#000000";
    return fmt::format("#{:02X}{:02X}{:02X}", wholeChannel(color->red), wholeChannel(color->green),
                       wholeChannel(color->blue));
}

std::string ColorPickerView::rgbValue() const {
    const auto color = selectedColor.sRGB();
    if (!color)
        return "rgb(0, 0, 0)";
    return fmt::format("rgb({}, {}, {})", wholeChannel(color->red), wholeChannel(color->green),
                       wholeChannel(color->blue));
}

std::string ColorPickerView::rgbaValue() const {
    const auto color = selectedColor.sRGB();
    if (!color)
        return "rgba(0, 0, 0, 1)";
    return fmt::format("rgba({}, {}, {}, {:.2f})", wholeChannel(color->red), wholeChannel(color->green),
                       wholeChannel(color->blue), alpha);
}

std::string ColorPickerView::hslValue() const {
    const auto color = selectedColor.sRGB();
    if (!color)
        return "hsl(0, 0%, 0%)";
    const auto [hue, saturation, lightness] = rgbToHsl(*color);
    return fmt::format("hsl({}, {}%, {}%)", static_cast<int>(hue), static_cast<int>(saturation),
                       static_cast<int>(lightness));
}

std::string ColorPickerView::swiftUICode() const {
    const auto color = selectedColor.sRGB();
    if (!color)
        return "Color.black";
    return fmt::format("Color(red: {:.3f}, green: {:.3f}, blue: {:.3f})", color->red, color->green,
                       color->blue);
}

std::string ColorPickerView::uiKitCode() const {
    const auto color = selectedColor.sRGB();
    if (!color)
        return "UIColor.black";
    return fmt::format("UIColor(red: {:.3f}, green: {:.3f}, blue: {:.3f}, alpha: {:.2f})", color->red,
                       color->green, color->blue, alpha);
}

std::string ColorPickerView::cssVariable() const {
    return fmt::format("--color-custom: {};", hexValue());
}

std::string ColorPickerView::opacityText() const {
    return fmt::format("Opacity: {}%", static_cast<int>(alpha * 100));
}

ColorPickerView::HSL ColorPickerView::rgbToHsl(const Color& color) {
    const auto& [red, green, blue] = color;
    const auto max = std::max({red, green, blue});
    const auto min = std::min({red, green, blue});
    const auto lightness = (max + min) / 2;
    if (max == min)
        return {.lightness = lightness * 100};
    const auto difference = max - min;
    const auto saturation = lightness > 0.5 ? difference / (2 - max - min) : difference / (max + min);
    double sixths = 0; // of the colour circle, from red
    if (max == red)
        sixths = std::fmod((green - blue) / difference, 6);
    else if (max == green)
        sixths = (blue - red) / difference + 2;
    else
        sixths = (red - green) / difference + 4;
    const auto hue = sixths * 60;
    return {.hue = hue < 0 ? hue + 360 : hue, .saturation = saturation * 100, .lightness = lightness * 100};
}

} // namespace korvane
