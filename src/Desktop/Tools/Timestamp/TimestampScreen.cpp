#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/SegmentedPicker.h"
#include "Desktop/Controls/TextField.h"
#include "Desktop/Controls/ValueRow.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Divider.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/SelectableText.h"
#include "Desktop/Tools/Screens.h"
#include "Desktop/Tools/Timestamp/DateTimePicker.h"
#include "Views/Tools/TimestampView.h"

namespace korvane {

namespace {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

constexpr int copyColumnWidth = 148;
constexpr int unitPickerWidth = 180;
constexpr std::string_view widestCaption = "Milliseconds:";
constexpr int rowHeight = 34;
constexpr int figureHeight = 30;

/// A line with space above and below.
QWidget* divider(int above, int below) {
    return stack(Qt::Vertical, {.padding = {0, above, 0, below}}, {new Divider});
}

/// A large number above its unit.
QWidget* figure(Store& store, const Reader<std::string>& text, PaletteColor color, std::string_view unit) {
    return stack(Qt::Vertical, {.spacing = 0},
                 {textLabel(store, text, TextStyle::hero, color), caption(store, unit)});
}

QWidget* wideCopyButton(Store& store, std::string label, const Reader<std::string>& text) {
    return withWidth(copyColumnWidth,
                     copyButton(store, text, {.label = std::move(label), .icon = "doc.on.clipboard"}));
}

QWidget* currentTime(Store& store) {
    constexpr auto padding = Size::gapGroup;
    return card(
        {.orientation = Qt::Horizontal,
         .padding = {padding, padding, padding, padding},
         .radius = Size::radiusExtraLarge,
         .tint = PaletteColor::yellow},
        {
            stack(
                Qt::Vertical, {},
                {
                    textLabel(store, "Current Unix Timestamp", TextStyle::headline),
                    stack(Qt::Horizontal, {.spacing = Size::gapGroup},
                          {
                              figure(store, &TimestampView::currentSeconds, PaletteColor::yellow, "seconds"),
                              stack(Qt::Vertical, {.spacing = 0},
                                    {withHeight(figureHeight,
                                                textLabel(store, "•", TextStyle::body, Role::secondary)),
                                     stretch()}),
                              figure(store, &TimestampView::currentMilliseconds, PaletteColor::orange,
                                     "milliseconds"),
                              stretch(),
                          }),
                }),
            stack(Qt::Vertical, {},
                  {
                      wideCopyButton(store, "Copy Seconds", &TimestampView::currentSeconds),
                      wideCopyButton(store, "Copy Milliseconds", &TimestampView::currentMilliseconds),
                  }),
        });
}

QWidget* fromTimestamp(Store& store) {
    return growing(card(
        {.spacing = Size::optionGap},
        {
            textField(store, "Timestamp", &TimestampView::unixTimestamp, &TimestampView::setUnixTimestamp,
                      {.placeholder = "Enter Unix timestamp",
                       .style = TextStyle::code,
                       .fill = Role::controlFill,
                       .submit = &TimestampView::convertTimestampToDate}),
            wrappingRow({
                segmentedPicker(store, "Unit", &TimestampView::timestampUnit,
                                &TimestampView::setTimestampUnit, unitPickerWidth),
                actionButton(store, "Convert to Date", "", PaletteColor::yellow,
                             &TimestampView::convertTimestampToDate),
            }),
            when(store, &TimestampView::hasDate,
                 stack(Qt::Vertical, {.spacing = Size::optionGap},
                       {
                           divider(Size::gapList, Size::gapList),
                           row({caption(store, "Result:"), stretch(),
                                copyButton(store, &TimestampView::dateString,
                                           {.look = {.subject = "Result"}})}),
                           selectableText(store, "Result", &TimestampView::dateString,
                                          {.ink = PaletteColor::green}),
                       })),
            errorMessage(store, &TimestampView::errorMessage),
            when(store, &TimestampView::isBeyondYear9999,
                 announcing(store, &TimestampView::hint,
                            selectableText(
                                store, "Hint", &TimestampView::hint,
                                {.style = TextStyle::caption, .ink = Role::secondary, .isTabStop = true}))),
            stretch(),
        }));
}

QWidget* resultRow(Store& store, const std::string& unit, const Reader<std::string>& value,
                   PaletteColor color) {
    return valueRow(store, {.label = textLabel(store, unit + ":", TextStyle::subheadline, Role::secondary,
                                               {.asWideAs = widestCaption}),
                            .name = "Date in " + unit,
                            .value = value,
                            .ink = color,
                            .height = rowHeight,
                            .gap = Size::gapBadge});
}

QWidget* fromDate(Store& store) {
    return card(
        {}, {
                dateTimePicker(store, {.label = "Select Date",
                                       .color = PaletteColor::yellow,
                                       .moment = &TimestampView::selectedDate,
                                       .setMoment = &TimestampView::setSelectedDate,
                                       .now = &TimestampView::currentDate}),
                divider(Size::gapList, 0),
                stack(Qt::Vertical, {.spacing = 0},
                      {
                          resultRow(store, "Seconds", &TimestampView::selectedSeconds, PaletteColor::yellow),
                          resultRow(store, "Milliseconds", &TimestampView::selectedMilliseconds,
                                    PaletteColor::orange),
                          resultRow(store, "ISO 8601", &TimestampView::selectedISO8601, PaletteColor::cyan),
                      }),
            });
}

QWidget* body(Store& store) {
    return screen(store, toolHeader(Tool::timestamp),
                  {
                      currentTime(store),
                      columns({
                          section(store, "Timestamp → Date", "", fromTimestamp(store)),
                          section(store, "Date → Timestamp", "", fromDate(store)),
                      }),
                      stretch(),
                  });
}

} // namespace

QWidget* timestampScreen(Services& services) {
    return makeScreen<TimestampView>(services, body, &TimestampView::appear);
}

} // namespace korvane
