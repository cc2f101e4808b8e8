#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/SegmentedPicker.h"
#include "Desktop/Controls/TextField.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/NumberBase/ValueCard.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/NumberBaseView.h"

namespace korvane {

namespace {

using Base = NumberBaseView::Base;
using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

constexpr int captionWidth = 60;
constexpr int basePickerWidth = 400;
constexpr int inputHeight = 40;
constexpr int inputGap = 10;

QWidget* resultCard(Store& store, Base base) {
    const auto ofCard = [base](auto member) {
        return [base, member](const NumberBaseView& state) {
            return std::invoke(member, state.resultCard(base));
        };
    };
    return valueCard(store, {.title = std::string(label(base)),
                             .icon = std::string(icon(base)),
                             .color = factsOf(base).color,
                             .caption = BaseResultCard{.base = base}.caption(),
                             .note = ofCard(&BaseResultCard::note),
                             .value = ofCard(&BaseResultCard::value),
                             .isOutlined = [base](const NumberBaseView& state) {
                                 return state.resultCard(base).isSource;
                             }});
}

void setText(NumberBaseView& state, const Rope& text) {
    state.setInputText(text.string());
}

QWidget* body(Store& store) {
    return screen(
        store, toolHeader(Tool::numberBase),
        {
            section(
                store, &NumberBaseView::inputTitle, "",
                stack(Qt::Vertical, {.spacing = inputGap},
                      {
                          wrappingRow({
                              textLabel(store, "Input Base:", TextStyle::caption, Role::secondary,
                                        {.width = captionWidth}),
                              segmentedPicker(store, "Source Base", &NumberBaseView::sourceBase,
                                              &NumberBaseView::setSourceBase, basePickerWidth),
                              stretch(),
                              row({
                                  pushToggle(store, "Group Digits", "", PaletteColor::green,
                                             &NumberBaseView::showGrouped, &NumberBaseView::setShowGrouped),
                                  pasteButton(store, setText),
                                  clearButton(store, setText),
                              }),
                          }),
                          textField(store, "Input", &NumberBaseView::inputText, &NumberBaseView::setInputText,
                                    {.placeholder = &NumberBaseView::placeholder,
                                     .style = TextStyle::codeValue,
                                     .height = inputHeight,
                                     .leading = &NumberBaseView::inputPrefix}),
                          errorMessage(store, &NumberBaseView::errorMessage),
                          caption(store, "Prefixes: 0b (binary), 0o (octal), 0x (hex)"),
                      })),
            section(store, "Conversions", "arrow.triangle.branch",
                    either(store, &NumberBaseView::hasResults,
                           stack(Qt::Vertical, {},
                                 {
                                     grid(2,
                                          {.columnGap = Size::gapSection,
                                           .rowGap = Size::gapSection,
                                           .hasEvenRows = true},
                                          {resultCard(store, Base::binary), resultCard(store, Base::octal),
                                           resultCard(store, Base::decimal),
                                           resultCard(store, Base::hexadecimal)}),
                                     stretch(),
                                 }),
                           growing(card({}, {emptyPrompt(store, "number.square",
                                                         "Enter a number above to see conversions")})))),
        });
}

} // namespace

QWidget* numberBaseScreen(Services& services) {
    return makeScreen<NumberBaseView>(services, body);
}

} // namespace korvane
