#include "support/Gallery.h"

#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/Screen.h"
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
    static_cast<QAbstractButton*>(control)->setDown(true);
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

QWidget* body(View<Base64View>& view) {
    const auto no = [](const Base64View&) { return false; };
    const auto yes = [](const Base64View&) { return true; };
    const auto nothing = [](Base64View&, bool) {};
    return screen(
        view.header(Tool::base64),
        {
            states([&] {
                return view.actionButton("Encode", "lock", PaletteColor::orange, &Base64View::convert);
            }),
            states(
                [&] { return view.actionButton("No icon", "", PaletteColor::yellow, &Base64View::convert); }),
            states([&] { return view.copyButton(&Base64View::inputText); }),
            states([&] { return view.copyButton(&Base64View::inputText, {.showLabel = false}); }),
            states([&] {
                return view.pushToggle("Tree View", "list.bullet.indent", PaletteColor::cyan, no, nothing);
            }),
            states([&] {
                return view.pushToggle("Tree View", "list.bullet.indent", PaletteColor::cyan, yes, nothing);
            }),
            view.segmentedPicker("Mode", &Base64View::mode, &Base64View::setMode, 144),
            row({badge(view, Status::success, "Valid JSON"), badge(view, Status::error, "Input is empty"),
                 badge(view, Status::warning, "Large input"), badge(view, Status::info, "Nothing to do")}),
            row({view.statCard("Words", "1,204", "text.word.spacing", PaletteColor::blue),
                 view.statCard("Lines", "38", "text.alignleft", PaletteColor::green)}),
            columns(
                {view.section("Code editor", "arrow.down.doc",
                              view.codeEditor(&Base64View::inputText, &Base64View::setInputText, "Type...")),
                 view.section("Simple editor", {},
                              view.codeEditor(&Base64View::inputText, &Base64View::setInputText, "Type...",
                                              {.lineNumbers = false}))}),
        });
}

} // namespace

std::unique_ptr<QWidget> gallery(Services& services) {
    return std::unique_ptr<QWidget>(makeScreen<Base64View>(services, body));
}

} // namespace korvane
