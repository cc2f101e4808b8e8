#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/Slider.h"
#include "Desktop/Controls/TextField.h"
#include "Desktop/Controls/ValueRow.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Divider.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Color/ColorWell.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/ColorPickerView.h"

namespace korvane {

namespace {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

constexpr int wellColumnWidth = 240;
constexpr int hexColumnWidth = 208;
constexpr int hexHeight = 28;
constexpr int formatHeight = 36;
constexpr int channelHeight = 24;
constexpr int channelLabelWidth = 20;
constexpr int channelValueWidth = 35;

QWidget* preview(Store& store) {
    return stack(
        Qt::Horizontal, {.spacing = Size::gapSection},
        {
            colorSwatch(store, "Preview", &ColorPickerView::selectedColor, &ColorPickerView::alpha),
            withWidth(wellColumnWidth,
                      stack(Qt::Vertical, {.spacing = Size::optionGap},
                            {
                                stretch(),
                                row({textLabel(store, "Select Color", TextStyle::body), stretch(),
                                     colorWell(store, "Select Color", &ColorPickerView::selectedColor,
                                               &ColorPickerView::setSelectedColor)}),
                                new Divider,
                                stack(Qt::Vertical, {.spacing = Size::gapList},
                                      {
                                          textLabel(store, &ColorPickerView::opacityText, TextStyle::body,
                                                    Role::secondary),
                                          slider(store, "Opacity", &ColorPickerView::alpha,
                                                 &ColorPickerView::setAlpha, {.color = PaletteColor::indigo}),
                                      }),
                                stretch(),
                            })),
        });
}

QWidget* formatRow(Store& store, const ColorFormat& format) {
    return valueRow(store, {.label = tag(format.label, format.color, true),
                            .name = std::string(format.label),
                            .value = format.value,
                            .style = format.isCode ? TextStyle::codeSmall : TextStyle::body,
                            .height = formatHeight,
                            .gap = Size::optionGap});
}

QWidget* formats(Store& store) {
    std::vector<QWidget*> rows;
    for (const auto& format : colorFormats)
        rows.push_back(formatRow(store, format));
    return dividedRows(rows);
}

/// A channel from 0 to 255, with its value as a whole number.
QWidget* colorSlider(Store& store, const std::string& label, double ColorPickerView::* channel,
                     PaletteColor color) {
    const auto set = [channel](ColorPickerView& state, double value) { state.*channel = value; };
    const auto wholeValue = [channel](const ColorPickerView& state) {
        return std::to_string(static_cast<int>(state.*channel));
    };
    return withHeight(
        channelHeight,
        row({textLabel(store, label, TextStyle::body, Role::secondary, {.width = channelLabelWidth}),
             slider(store, label, channel, set,
                    {.maximum = Color::maxChannel, .stepsOfOne = 1, .color = color}),
             textLabel(store, wholeValue, TextStyle::body, Role::secondary,
                       {.width = channelValueWidth, .alignment = Qt::AlignRight})}));
}

QWidget* manualInput(Store& store) {
    return card(
        {.orientation = Qt::Horizontal, .spacing = Size::gapSection},
        {
            withWidth(hexColumnWidth,
                      stack(Qt::Vertical, {},
                            {
                                textLabel(store, "HEX", TextStyle::subheadline, Role::secondary),
                                row({textField(store, "HEX Input", &ColorPickerView::hexInput,
                                               &ColorPickerView::setHexInput,
                                               {.placeholder = "#RRGGBB",
                                                .style = TextStyle::codeSmall,
                                                .height = hexHeight,
                                                .submit = &ColorPickerView::applyHex,
                                                .isDetail = true}),
                                     quietButton(store, "Apply", "", &ColorPickerView::applyHex)}),
                                stretch(),
                            })),
            new Divider(Qt::Vertical),
            stack(
                Qt::Vertical, {.spacing = Size::gapList},
                {
                    textLabel(store, "RGB", TextStyle::subheadline, Role::secondary),
                    stack(Qt::Horizontal, {.spacing = Size::gapGroup},
                          {
                              stack(Qt::Vertical, {.spacing = 0},
                                    {
                                        colorSlider(store, "R", &ColorPickerView::rgbR, PaletteColor::red),
                                        colorSlider(store, "G", &ColorPickerView::rgbG, PaletteColor::green),
                                        colorSlider(store, "B", &ColorPickerView::rgbB, PaletteColor::blue),
                                    }),
                              quietButton(store, "Apply RGB", "", &ColorPickerView::applyRGB),
                          }),
                }),
        });
}

QWidget* body(Store& store) {
    return screen(store, toolHeader(Tool::colorPicker),
                  {
                      preview(store),
                      section(store, "Color Formats", "", formats(store)),
                      section(store, "Manual Input", "", manualInput(store)),
                      stretch(),
                  });
}

} // namespace

QWidget* colorPickerScreen(Services& services) {
    return makeScreen<ColorPickerView>(services, body);
}

} // namespace korvane
