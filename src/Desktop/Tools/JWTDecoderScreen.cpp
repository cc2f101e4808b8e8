#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/StatusLine.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/JWTDecoderView.h"

namespace korvane {

namespace {

constexpr int tokenHeight = 100;

/// A part of the token as it was decoded.
QWidget* part(View<JWTDecoderView>& view, std::string title, std::string JWTDecoderView::* text,
              std::string placeholder) {
    return view.section(std::move(title), {},
                        view.output(text, std::move(placeholder), {.lineNumbers = false, .isSmall = true}));
}

QWidget* body(View<JWTDecoderView>& view) {
    return screen(
        view.header(Tool::jwtDecoder),
        {
            row({
                view.actionButton("Decode", "lock.open", PaletteColor::purple, &JWTDecoderView::decode),
                stretch(),
                view.pasteButton(&JWTDecoderView::setInputToken),
                view.clearButton(&JWTDecoderView::setInputToken),
            }),
            statusLine(view, view.reading<std::optional<StatusBadge>>(&JWTDecoderView::status),
                       view.reading<std::string>(&JWTDecoderView::details)),
            view.section(
                "JWT Token", {},
                withHeight(tokenHeight,
                           view.codeEditor(&JWTDecoderView::inputToken, &JWTDecoderView::setInputToken,
                                           "Paste your JWT token here (eyJhbG...)", {.lineNumbers = false}))),
            columns({
                sharing(3, part(view, "Header", &JWTDecoderView::header, "Decode to see header")),
                sharing(4, part(view, "Payload", &JWTDecoderView::payload, "Decode to see payload")),
                sharing(2, part(view, "Signature", &JWTDecoderView::signature, "Decode to see signature")),
            }),
        });
}

} // namespace

QWidget* jwtDecoderScreen(Services& services) {
    return makeScreen<JWTDecoderView>(services, body);
}

} // namespace korvane
