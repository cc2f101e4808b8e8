#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/BusyBadge.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Output.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/StatusLine.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/JWTDecoderView.h"

namespace korvane {

namespace {

constexpr int tokenHeight = 100;

/// A decoded part of the token.
QWidget* part(Store& store, std::string title, Rope JWTDecoderView::* text, std::string placeholder) {
    return section(store, std::move(title), "",
                   output(store, text, std::move(placeholder), &JWTDecoderView::isBusy,
                          {.lineNumbers = false, .isSmall = true}));
}

QWidget* body(Store& store) {
    auto* content = screen(
        store, toolHeader(Tool::jwtDecoder),
        {
            row({
                actionButton(store, "Decode", "lock.open", PaletteColor::purple, &JWTDecoderView::decode),
                stretch(),
                pasteButton(store, &JWTDecoderView::setInputToken),
                clearButton(store, &JWTDecoderView::setInputToken),
            }),
            statusLine(store, &JWTDecoderView::status, &JWTDecoderView::details),
            busyBadge(store, &JWTDecoderView::decoding, &JWTDecoderView::cancel),
            section(store, "JWT Token", "",
                    withHeight(tokenHeight,
                               codeEditor(store, &JWTDecoderView::inputToken, &JWTDecoderView::setInputToken,
                                          "Paste your JWT token here (eyJhbG...)", {.lineNumbers = false}))),
            columns({
                sharing(3, part(store, "Header", &JWTDecoderView::header, "Decode to see header")),
                sharing(4, part(store, "Payload", &JWTDecoderView::payload, "Decode to see payload")),
                sharing(2, part(store, "Signature", &JWTDecoderView::signature, "Decode to see signature")),
            }),
        });
    return cancellable(store, &JWTDecoderView::isBusy, &JWTDecoderView::cancel, content);
}

} // namespace

QWidget* jwtDecoderScreen(Services& services) {
    return makeScreen<JWTDecoderView>(services, body);
}

} // namespace korvane
