#include "support/Gallery.h"
#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/SegmentedPicker.h"
#include "Desktop/Controls/Slider.h"
#include "Desktop/Controls/Stepper.h"
#include "Desktop/Controls/TextField.h"
#include "Desktop/Controls/Toggle.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/SelectableText.h"
#include "Desktop/Tools/Lorem/StatPill.h"
#include "Desktop/Tools/Password/StrengthMeter.h"
#include "Desktop/Tools/Transformer/StatCard.h"
#include "Views/Tools/Base64View.h"

#include <QAbstractButton>

#include <functional>

namespace korvane {

namespace {

/// Simulates the pointer over the button, or pressing it.
QWidget* hovered(QWidget* control) {
    control->setAttribute(Qt::WA_UnderMouse);
    return control;
}

QWidget* pressed(QWidget* control) {
    if (auto* button = qobject_cast<QAbstractButton*>(control))
        button->setDown(true);
    return hovered(control);
}

QWidget* disabled(QWidget* control) {
    control->setEnabled(false);
    return control;
}

QWidget* states(const std::function<QWidget*()>& make) {
    return columns({make(), hovered(make()), pressed(make()), disabled(make())});
}

QWidget* badge(Store& store, Status status, std::string message) {
    return statusBadge(store, [badge = StatusBadge{status, std::move(message)}](const Base64View&) {
        return std::optional(badge);
    });
}

const auto no = [](const Base64View&) { return false; };
const auto yes = [](const Base64View&) { return true; };
const auto nothing = [](auto) {};

QWidget* buttons(Store& store) {
    return stack(
        Qt::Vertical, {.spacing = Theme::Size::gapSection},
        {
            states([&] {
                return actionButton(store, "Encode", "lock", PaletteColor::orange, &Base64View::convert);
            }),
            states([&] {
                return actionButton(store, "No icon", "", PaletteColor::yellow, &Base64View::convert);
            }),
            states([&] { return copyButton(store, &Base64View::inputText); }),
            states([&] { return copyButton(store, &Base64View::inputText, {.look = {.showLabel = false}}); }),
            states([&] {
                return quietButton(store, "Plain", "trash", &Base64View::convert, {.isPlain = true});
            }),
            states([&] {
                return pushToggle(store, "Tree View", "list.bullet.indent", PaletteColor::cyan, no, nothing);
            }),
            states([&] {
                return pushToggle(store, "Tree View", "list.bullet.indent", PaletteColor::cyan, yes, nothing);
            }),
        });
}

QWidget* options(Store& store) {
    const auto half = [](const Base64View&) { return 0.5; };
    const auto five = [](const Base64View&) { return 5; };
    const auto inputOf = [](const Base64View& state) { return state.inputText.string(); };
    return stack(
        Qt::Vertical, {.spacing = Theme::Size::gapSection},
        {
            states([&] { return toggle(store, "Switch", no, nothing, {.look = ToggleLook::leadSwitch}); }),
            states([&] { return toggle(store, "Switch", yes, nothing, {.look = ToggleLook::leadSwitch}); }),
            states([&] { return toggle(store, "Checkbox", no, nothing, {.look = ToggleLook::checkbox}); }),
            states([&] { return toggle(store, "Checkbox", yes, nothing, {.look = ToggleLook::checkbox}); }),
            columns({toggle(store, "A row with a switch", yes, nothing),
                     toggle(store, "Another", no, nothing, {.isSecondary = true})}),
            states([&] { return slider(store, "Slider", half, nothing, {.color = PaletteColor::red}); }),
            states([&] { return stepper(store, "Stepper", five, nothing, {}); }),
            states([&] {
                return labelledStepper(store, "Stepper", five, nothing, {"Count: 5", 100},
                                       {.minimum = 5, .width = 57});
            }),
            columns({textField(store, "Field", inputOf, nothing, {.placeholder = "Type..."}),
                     textField(store, "Between", inputOf, nothing,
                               {.placeholder = "Pattern",
                                .style = Theme::TextStyle::code,
                                .leading = "/",
                                .trailing = "/"})}),
        });
}

QWidget* contents(Store& store) {
    const std::string digest = "d41d8cd98f00b204e9800998ecf8427e";
    return stack(
        Qt::Vertical, {.spacing = Theme::Size::gapSection},
        {
            segmentedPicker(store, "Mode", &Base64View::mode, &Base64View::setMode, 144),
            segmentedPicker(store, "Modes", &Base64View::mode, &Base64View::setMode, 0,
                            SegmentLook::withIcons),
            row({badge(store, Status::success, "Valid JSON"), badge(store, Status::error, "Input is empty"),
                 badge(store, Status::warning, "Large input"), badge(store, Status::info, "Nothing to do")}),
            row({statCard(store, "Words", "1,204", "text.word.spacing", PaletteColor::blue),
                 statCard(store, "Lines", "38", "text.alignleft", PaletteColor::green)}),
            row({statPill(store, StatPill{"Words", 111, PaletteColor::green}),
                 statPill(store, StatPill{"Characters", 833, PaletteColor::orange}),
                 strengthMeter(store, PasswordStrength::veryWeak),
                 strengthMeter(store, PasswordStrength::weak)}),
            row({strengthMeter(store, PasswordStrength::fair), strengthMeter(store, PasswordStrength::strong),
                 strengthMeter(store, PasswordStrength::veryStrong)}),
            card({.tint = PaletteColor::pink},
                 {selectableText(store, "Hero", digest + digest + digest,
                                 {.style = Theme::TextStyle::hero, .alignment = Qt::AlignHCenter})}),
            card({.orientation = Qt::Horizontal},
                 {tag("HEX", PaletteColor::purple), tag("MD5", PaletteColor::red, true),
                  selectableText(store, "Digest", digest, {.style = Theme::TextStyle::codeSmall}),
                  copyButton(store, digest)}),
            grid(3, {.hasEvenRows = true},
                 {textLabel(store, "One", Theme::TextStyle::bodyStrong, PaletteColor::green),
                  textLabel(store, "Two", Theme::TextStyle::caption, Theme::Role::secondary),
                  textLabel(store, "Three", Theme::TextStyle::codeValue)}),
            errorMessage(store, [](const Base64View&) { return std::optional<std::string>("Went wrong"); }),
            wrappingRow({textLabel(store, "Wrapping:", Theme::TextStyle::body),
                         stepper(store, "Count", [](const Base64View&) { return 3; }, nothing, {}), stretch(),
                         copyButton(store, digest)}),
            card({}, {emptyPrompt(store, "magnifyingglass", "Nothing here yet")}),
            columns({section(store, "Code editor", "arrow.down.doc",
                             codeEditor(store, &Base64View::inputText, &Base64View::setInputText, "Type...")),
                     section(store, "Simple editor", "",
                             codeEditor(store, &Base64View::inputText, &Base64View::setInputText, "Type...",
                                        {.lineNumbers = false}))}),
        });
}

QWidget* body(Store& store) {
    return screen(store, toolHeader(Tool::base64), {buttons(store), options(store), contents(store)});
}

} // namespace

std::unique_ptr<QWidget> gallery(Services& services) {
    return std::unique_ptr<QWidget>(makeScreen<Base64View>(services, body));
}

} // namespace korvane
