#include "support/Gallery.h"

#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/StatPill.h"
#include "Desktop/Kit/StrengthMeter.h"
#include "Views/Tools/Base64View.h"

#include <QAbstractButton>

#include <functional>

namespace korvane {

namespace {

/// As if the pointer were over the button, or held it down.
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

QWidget* badge(View<Base64View>& view, Status status, std::string message) {
    return view.statusBadge([badge = StatusBadge{status, std::move(message)}](const Base64View&) {
        return std::optional(badge);
    });
}

const auto no = [](const Base64View&) { return false; };
const auto yes = [](const Base64View&) { return true; };
const auto nothing = [](Base64View&, auto) {};

QWidget* buttons(View<Base64View>& view) {
    return stack(
        Qt::Vertical, {.spacing = Theme::Size::gapSection},
        {
            states([&] {
                return view.actionButton("Encode", "lock", PaletteColor::orange, &Base64View::convert);
            }),
            states(
                [&] { return view.actionButton("No icon", "", PaletteColor::yellow, &Base64View::convert); }),
            states([&] { return view.copyButton(&Base64View::inputText); }),
            states([&] { return view.copyButton(&Base64View::inputText, {.look = {.showLabel = false}}); }),
            states(
                [&] { return view.quietButton("Plain", "trash", &Base64View::convert, {.isPlain = true}); }),
            states([&] {
                return view.pushToggle("Tree View", "list.bullet.indent", PaletteColor::cyan, no, nothing);
            }),
            states([&] {
                return view.pushToggle("Tree View", "list.bullet.indent", PaletteColor::cyan, yes, nothing);
            }),
        });
}

QWidget* options(View<Base64View>& view) {
    const auto half = [](const Base64View&) { return 0.5; };
    const auto five = [](const Base64View&) { return 5; };
    return stack(
        Qt::Vertical, {.spacing = Theme::Size::gapSection},
        {
            states([&] { return view.toggle("Switch", no, nothing, {.look = ToggleLook::leadSwitch}); }),
            states([&] { return view.toggle("Switch", yes, nothing, {.look = ToggleLook::leadSwitch}); }),
            states([&] { return view.toggle("Checkbox", no, nothing, {.look = ToggleLook::checkbox}); }),
            states([&] { return view.toggle("Checkbox", yes, nothing, {.look = ToggleLook::checkbox}); }),
            columns({view.toggle("A row with a switch", yes, nothing),
                     view.toggle("Another", no, nothing, {.isSecondary = true})}),
            states([&] { return view.slider("Slider", half, nothing, {.color = PaletteColor::red}); }),
            states([&] { return view.stepper("Stepper", five, nothing, {}); }),
            states([&] {
                return view.labelledStepper("Stepper", five, nothing, "Count: 5", 100,
                                            {.minimum = 5, .width = 57});
            }),
            columns({view.textField("Field", &Base64View::inputText, nothing, {.placeholder = "Type..."}),
                     view.textField("Between", &Base64View::inputText, nothing,
                                    {.placeholder = "Pattern",
                                     .style = Theme::TextStyle::code,
                                     .leading = [] { return "/"; },
                                     .trailing = [] { return "/"; }})}),
        });
}

QWidget* contents(View<Base64View>& view) {
    const std::string digest = "d41d8cd98f00b204e9800998ecf8427e";
    return stack(
        Qt::Vertical, {.spacing = Theme::Size::gapSection},
        {
            view.segmentedPicker("Mode", &Base64View::mode, &Base64View::setMode, 144),
            view.segmentedPicker("Modes", &Base64View::mode, &Base64View::setMode, 0, SegmentLook::withIcons),
            row({badge(view, Status::success, "Valid JSON"), badge(view, Status::error, "Input is empty"),
                 badge(view, Status::warning, "Large input"), badge(view, Status::info, "Nothing to do")}),
            row({view.statCard("Words", "1,204", "text.word.spacing", PaletteColor::blue),
                 view.statCard("Lines", "38", "text.alignleft", PaletteColor::green)}),
            row({statPill(view, StatPill{"Words", 111, PaletteColor::green}),
                 statPill(view, StatPill{"Characters", 833, PaletteColor::orange}),
                 strengthMeter(view, PasswordStrength::veryWeak),
                 strengthMeter(view, PasswordStrength::weak)}),
            row({strengthMeter(view, PasswordStrength::fair), strengthMeter(view, PasswordStrength::strong),
                 strengthMeter(view, PasswordStrength::veryStrong)}),
            card({.tint = PaletteColor::pink},
                 {view.selectableText("Hero", digest + digest + digest,
                                      {.style = Theme::TextStyle::hero, .alignment = Qt::AlignHCenter})}),
            card({.orientation = Qt::Horizontal},
                 {tag("HEX", PaletteColor::purple), tag("MD5", PaletteColor::red, true),
                  view.selectableText("Digest", digest, {.style = Theme::TextStyle::codeSmall}),
                  view.copyButton(digest)}),
            grid(3, Theme::Size::gapControl,
                 {view.label("One", Theme::TextStyle::bodyStrong, PaletteColor::green),
                  view.label("Two", Theme::TextStyle::caption, Theme::Role::secondary),
                  view.label("Three", Theme::TextStyle::codeValue)}),
            view.errorMessage([](const Base64View&) { return std::optional<std::string>("Went wrong"); }),
            wrappingRow({view.label("Wrapping:", Theme::TextStyle::body),
                         view.stepper("Count", [](const Base64View&) { return 3; }, nothing, {}), stretch(),
                         view.copyButton(digest)}),
            card({}, {view.emptyPrompt("magnifyingglass", "Nothing here yet")}),
            columns(
                {view.section("Code editor", "arrow.down.doc",
                              view.codeEditor(&Base64View::inputText, &Base64View::setInputText, "Type...")),
                 view.section("Simple editor", {},
                              view.codeEditor(&Base64View::inputText, &Base64View::setInputText, "Type...",
                                              {.lineNumbers = false}))}),
        });
}

QWidget* body(View<Base64View>& view) {
    return screen(view.header(Tool::base64), {buttons(view), options(view), contents(view)});
}

} // namespace

std::unique_ptr<QWidget> gallery(Services& services) {
    return std::unique_ptr<QWidget>(makeScreen<Base64View>(services, body));
}

} // namespace korvane
