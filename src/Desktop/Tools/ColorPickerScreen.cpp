#include "Desktop/Kit/ColorWell.h"
#include "Desktop/Kit/Divider.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/ValueRow.h"
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

QWidget* preview(View<ColorPickerView>& view) {
    return stack(
        Qt::Horizontal, {.spacing = Size::gapSection},
        {
            colorSwatch(view, {.label = "Preview",
                               .color = view.reading<Color>(&ColorPickerView::selectedColor),
                               .opacity = view.reading<double>(&ColorPickerView::alpha)}),
            withWidth(
                wellColumnWidth,
                stack(
                    Qt::Vertical, {.spacing = Size::optionGap},
                    {
                        stretch(),
                        row({view.label("Select Color", TextStyle::body), stretch(),
                             colorWell(view, {.label = "Select Color",
                                              .color = view.reading<Color>(&ColorPickerView::selectedColor),
                                              .setColor =
                                                  view.setting<Color>(&ColorPickerView::setSelectedColor)})}),
                        new Divider,
                        stack(Qt::Vertical, {.spacing = Size::gapList},
                              {
                                  view.label(&ColorPickerView::opacityText, TextStyle::body, Role::secondary),
                                  view.slider("Opacity", &ColorPickerView::alpha, &ColorPickerView::setAlpha,
                                              {.color = PaletteColor::indigo}),
                              }),
                        stretch(),
                    })),
        });
}

QWidget* formatRow(View<ColorPickerView>& view, const ColorFormat& format) {
    return valueRow(view, {.label = tag(format.label, format.color, true),
                           .name = std::string(format.label),
                           .value = view.reading<std::string>(format.value),
                           .style = format.isCode ? TextStyle::codeSmall : TextStyle::body,
                           .height = formatHeight,
                           .gap = Size::optionGap});
}

QWidget* formats(View<ColorPickerView>& view) {
    std::vector<QWidget*> rows;
    for (const auto& format : colorFormats)
        rows.push_back(formatRow(view, format));
    return dividedRows(rows);
}

/// A channel from 0 to 255, with the whole number that it stands at.
QWidget* colorSlider(View<ColorPickerView>& view, const std::string& label, double ColorPickerView::* channel,
                     PaletteColor color) {
    const auto set = [channel](ColorPickerView& state, double value) { state.*channel = value; };
    const auto wholeValue = [channel](const ColorPickerView& state) {
        return std::to_string(static_cast<int>(state.*channel));
    };
    return withHeight(channelHeight,
                      row({view.label(label, TextStyle::body, Role::secondary, {.width = channelLabelWidth}),
                           view.slider(label, channel, set,
                                       {.maximum = Color::maximumChannel, .stepsOfOne = 1, .color = color}),
                           view.label(wholeValue, TextStyle::body, Role::secondary,
                                      {.width = channelValueWidth, .alignment = Qt::AlignRight})}));
}

QWidget* manualInput(View<ColorPickerView>& view) {
    return card(
        {.orientation = Qt::Horizontal, .spacing = Size::gapSection},
        {
            withWidth(hexColumnWidth,
                      stack(Qt::Vertical, {},
                            {
                                view.label("HEX", TextStyle::subheadline, Role::secondary),
                                row({view.textField("HEX Input", &ColorPickerView::hexInput,
                                                    &ColorPickerView::setHexInput,
                                                    {.placeholder = "#RRGGBB",
                                                     .style = TextStyle::codeSmall,
                                                     .height = hexHeight,
                                                     .submit = view.performing(&ColorPickerView::applyHex),
                                                     .isDetail = true}),
                                     view.quietButton("Apply", "", &ColorPickerView::applyHex)}),
                                stretch(),
                            })),
            new Divider(Qt::Vertical),
            stack(Qt::Vertical, {.spacing = Size::gapList},
                  {
                      view.label("RGB", TextStyle::subheadline, Role::secondary),
                      stack(Qt::Horizontal, {.spacing = Size::gapGroup},
                            {
                                stack(Qt::Vertical, {.spacing = 0},
                                      {
                                          colorSlider(view, "R", &ColorPickerView::rgbR, PaletteColor::red),
                                          colorSlider(view, "G", &ColorPickerView::rgbG, PaletteColor::green),
                                          colorSlider(view, "B", &ColorPickerView::rgbB, PaletteColor::blue),
                                      }),
                                view.quietButton("Apply RGB", "", &ColorPickerView::applyRGB),
                            }),
                  }),
        });
}

QWidget* body(View<ColorPickerView>& view) {
    return screen(view.header(Tool::colorPicker), {
                                                      preview(view),
                                                      view.section("Color Formats", "", formats(view)),
                                                      view.section("Manual Input", "", manualInput(view)),
                                                      stretch(),
                                                  });
}

} // namespace

QWidget* colorPickerScreen(Services& services) {
    return makeScreen<ColorPickerView>(services, body);
}

} // namespace korvane
