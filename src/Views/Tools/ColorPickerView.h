/// The state of the Color Picker screen: one colour in seven notations, which the user picks, types or mixes.
/// Whole numbers are truncated, not rounded: half of 255 is 127.
#pragma once

#include "Models/Color.h"
#include "Models/PaletteColor.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

struct ColorPickerView {
    /// A colour by hue (in degrees), saturation and lightness (in percent).
    struct HSL {
        double hue = 0;
        double saturation = 0;
        double lightness = 0;

        bool operator==(const HSL&) const = default;
    };

    Color selectedColor = Color::fromChannels(50, 173, 230);
    std::string hexInput{};
    /// The values of the sliders, from 0 to 255. They follow each change of the colour, but start with
    /// others, and change the colour only by `applyRGB`.
    double rgbR = 0;
    double rgbG = 200;
    double rgbB = 255;
    /// Nothing reads these yet.
    double hslH = 190;
    double hslS = 100;
    double hslL = 50;
    double alpha = 1; ///< the opacity, from 0 to 1, of the colour shown and in the notations that have one

    /// Also updates field and sliders. Does nothing if the colour is the same.
    void setSelectedColor(Color color);

    void setHexInput(std::string text);

    void setAlpha(double opacity) { alpha = opacity; }

    /// Sets the colour to the six hexadecimal digits in `hexInput`, ignoring white space around them and
    /// every "#". Does nothing if it holds anything else.
    void applyHex();

    /// Sets the colour to that of the sliders.
    void applyRGB();

    /// The notations; each has a fixed text for a colour that is not in sRGB.
    std::string hexValue() const;
    std::string rgbValue() const;
    std::string rgbaValue() const;
    std::string hslValue() const;
    std::string swiftUICode() const;
    std::string uiKitCode() const;
    std::string cssVariable() const;

    /// The opacity in percent, such as "Opacity: 60%".
    std::string opacityText() const;

    /// The hue, saturation and lightness of a colour in sRGB. Gray has hue 0 and saturation 0.
    static HSL rgbToHsl(const Color& color);

    bool operator==(const ColorPickerView&) const = default;

private:
    void updateSlidersFromColor();
};

/// One notation of the colour, with its badge.
struct ColorFormat {
    std::string_view label;
    std::string (ColorPickerView::*value)() const;
    PaletteColor color;
    bool isCode; ///< whether the value is program code
};

inline constexpr auto colorFormats = std::to_array<ColorFormat>({
    {"HEX", &ColorPickerView::hexValue, PaletteColor::purple, false},
    {"RGB", &ColorPickerView::rgbValue, PaletteColor::green, false},
    {"RGBA", &ColorPickerView::rgbaValue, PaletteColor::green, false},
    {"HSL", &ColorPickerView::hslValue, PaletteColor::orange, false},
    {"SwiftUI", &ColorPickerView::swiftUICode, PaletteColor::blue, true},
    {"UIKit", &ColorPickerView::uiKitCode, PaletteColor::cyan, true},
    {"CSS Var", &ColorPickerView::cssVariable, PaletteColor::pink, true},
});

} // namespace korvane
