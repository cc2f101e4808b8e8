#include "Desktop/Kit/DateTimePicker.h"
#include "Desktop/Kit/Divider.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/ValueRow.h"
#include "Desktop/Tools/Screens.h"
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

/// A line with some air above and below.
QWidget* divider(int above, int below) {
    return stack(Qt::Vertical, {.padding = {0, above, 0, below}}, {new Divider});
}

/// A large figure above what it counts.
template <typename Reader>
QWidget* figure(View<TimestampView>& view, Reader text, PaletteColor color, std::string caption) {
    return stack(Qt::Vertical, {.spacing = 0},
                 {view.label(text, TextStyle::hero, color), view.caption(std::move(caption))});
}

template <typename Reader>
QWidget* copyButton(View<TimestampView>& view, std::string label, Reader text) {
    return withWidth(copyColumnWidth,
                     view.copyButton(text, {.label = std::move(label), .icon = "doc.on.clipboard"}));
}

QWidget* currentTime(View<TimestampView>& view) {
    constexpr auto padding = Size::gapGroup;
    return card(
        {.orientation = Qt::Horizontal,
         .padding = {padding, padding, padding, padding},
         .radius = Size::radiusExtraLarge,
         .tint = PaletteColor::yellow},
        {
            stack(Qt::Vertical, {},
                  {
                      view.label("Current Unix Timestamp", TextStyle::headline),
                      stack(Qt::Horizontal, {.spacing = Size::gapGroup},
                            {
                                figure(view, &TimestampView::currentSeconds, PaletteColor::yellow, "seconds"),
                                stack(Qt::Vertical, {.spacing = 0},
                                      {withHeight(figureHeight,
                                                  view.label("•", TextStyle::body, Role::secondary)),
                                       stretch()}),
                                figure(view, &TimestampView::currentMilliseconds, PaletteColor::orange,
                                       "milliseconds"),
                                stretch(),
                            }),
                  }),
            stack(Qt::Vertical, {},
                  {
                      copyButton(view, "Copy Seconds", &TimestampView::currentSeconds),
                      copyButton(view, "Copy Milliseconds", &TimestampView::currentMilliseconds),
                  }),
        });
}

QWidget* fromTimestamp(View<TimestampView>& view) {
    return growing(card(
        {.spacing = Size::optionGap},
        {
            view.textField("Timestamp", &TimestampView::unixTimestamp, &TimestampView::setUnixTimestamp,
                           {.placeholder = "Enter Unix timestamp",
                            .style = TextStyle::code,
                            .fill = Role::controlFill,
                            .submit = view.performing(&TimestampView::convertTimestampToDate)}),
            wrappingRow({
                view.segmentedPicker("Unit", &TimestampView::timestampUnit, &TimestampView::setTimestampUnit,
                                     unitPickerWidth),
                view.actionButton("Convert to Date", "", PaletteColor::yellow,
                                  &TimestampView::convertTimestampToDate),
            }),
            view.when(
                &TimestampView::hasDate,
                stack(Qt::Vertical, {.spacing = Size::optionGap},
                      {
                          divider(Size::gapList, Size::gapList),
                          row({view.caption("Result:"), stretch(),
                               view.copyButton(&TimestampView::dateString, {.look = {.subject = "Result"}})}),
                          view.selectableText("Result", &TimestampView::dateString,
                                              {.ink = PaletteColor::green}),
                      })),
            view.errorMessage(&TimestampView::errorMessage),
            view.when(&TimestampView::isBeyondYear9999,
                      view.announcing(&TimestampView::hint, view.selectableText("Hint", &TimestampView::hint,
                                                                                {.style = TextStyle::caption,
                                                                                 .ink = Role::secondary,
                                                                                 .isTabStop = true}))),
            stretch(),
        }));
}

template <typename Reader>
QWidget* resultRow(View<TimestampView>& view, const std::string& unit, Reader value, PaletteColor color) {
    return valueRow(view, {.label = view.label(unit + ":", TextStyle::subheadline, Role::secondary,
                                               {.asWideAs = widestCaption}),
                           .name = "Date in " + unit,
                           .value = view.reading<std::string>(value),
                           .ink = color,
                           .height = rowHeight,
                           .gap = Size::gapBadge});
}

QWidget* fromDate(View<TimestampView>& view) {
    return card(
        {}, {
                dateTimePicker(view, {.label = "Select Date",
                                      .color = PaletteColor::yellow,
                                      .moment = view.reading<Moment>(&TimestampView::selectedDate),
                                      .setMoment = view.setting<Moment>(&TimestampView::setSelectedDate),
                                      .now = view.reading<Moment>(&TimestampView::currentDate)}),
                divider(Size::gapList, 0),
                stack(Qt::Vertical, {.spacing = 0},
                      {
                          resultRow(view, "Seconds", &TimestampView::selectedSeconds, PaletteColor::yellow),
                          resultRow(view, "Milliseconds", &TimestampView::selectedMilliseconds,
                                    PaletteColor::orange),
                          resultRow(view, "ISO 8601", &TimestampView::selectedISO8601, PaletteColor::cyan),
                      }),
            });
}

QWidget* body(View<TimestampView>& view) {
    return screen(view.header(Tool::timestamp),
                  {
                      currentTime(view),
                      columns({
                          view.section("Timestamp → Date", "", fromTimestamp(view)),
                          view.section("Date → Timestamp", "", fromDate(view)),
                      }),
                      stretch(),
                  });
}

} // namespace

QWidget* timestampScreen(Services& services) {
    return makeScreen<TimestampView>(services, body, &TimestampView::appear);
}

} // namespace korvane
