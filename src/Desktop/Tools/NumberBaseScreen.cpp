#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/ValueRow.h"
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

QWidget* resultCard(View<NumberBaseView>& view, Base base) {
    const auto ofCard = [&view, base](auto member) {
        return view.reading<std::string>([base, member](const NumberBaseView& state) {
            return std::invoke(member, state.resultCard(base));
        });
    };
    return valueCard(view, {.title = std::string(label(base)),
                            .icon = std::string(icon(base)),
                            .color = factsOf(base).color,
                            .caption = BaseResultCard{.base = base}.caption(),
                            .note = ofCard(&BaseResultCard::note),
                            .value = ofCard(&BaseResultCard::value),
                            .isOutlined = view.reading<bool>([base](const NumberBaseView& state) {
                                return state.resultCard(base).isSource;
                            })});
}

QWidget* body(View<NumberBaseView>& view) {
    return screen(
        view.header(Tool::numberBase),
        {
            view.section(
                &NumberBaseView::inputTitle, "",
                stack(Qt::Vertical, {.spacing = inputGap},
                      {
                          wrappingRow({
                              view.label("Input Base:", TextStyle::caption, Role::secondary,
                                         {.width = captionWidth}),
                              view.segmentedPicker("Source Base", &NumberBaseView::sourceBase,
                                                   &NumberBaseView::setSourceBase, basePickerWidth),
                              stretch(),
                              row({
                                  view.pushToggle("Group Digits", "", PaletteColor::green,
                                                  &NumberBaseView::showGrouped,
                                                  &NumberBaseView::setShowGrouped),
                                  view.pasteButton(&NumberBaseView::setInputText),
                                  view.clearButton(&NumberBaseView::setInputText),
                              }),
                          }),
                          view.textField(
                              "Input", &NumberBaseView::inputText, &NumberBaseView::setInputText,
                              {.changingPlaceholder = view.reading<std::string>(&NumberBaseView::placeholder),
                               .style = TextStyle::codeValue,
                               .height = inputHeight,
                               .leading = view.reading<std::string>(&NumberBaseView::inputPrefix)}),
                          view.errorMessage(&NumberBaseView::errorMessage),
                          view.caption("Prefixes: 0b (binary), 0o (octal), 0x (hex)"),
                      })),
            view.section(
                "Conversions", "arrow.triangle.branch",
                view.either(
                    &NumberBaseView::hasResults,
                    stack(Qt::Vertical, {},
                          {
                              grid(2, Size::gapSection,
                                   {resultCard(view, Base::binary), resultCard(view, Base::octal),
                                    resultCard(view, Base::decimal), resultCard(view, Base::hexadecimal)}),
                              stretch(),
                          }),
                    growing(card({}, {view.emptyPrompt("number.square",
                                                       "Enter a number above to see conversions")})))),
        });
}

} // namespace

QWidget* numberBaseScreen(Services& services) {
    return makeScreen<NumberBaseView>(services, body);
}

} // namespace korvane
