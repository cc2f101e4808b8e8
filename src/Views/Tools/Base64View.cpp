#include "Views/Tools/Base64View.h"

#include "Utilities/Base64.h"
#include "Utilities/Text/Text.h"

#include <fmt/format.h>

namespace korvane {

void Base64View::setInputText(std::string text) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    errorMessage.reset();
}

void Base64View::convert() {
    errorMessage.reset();
    if (inputText.empty()) {
        errorMessage = "Input is empty";
        return;
    }
    if (mode == Mode::encode)
        encode();
    else
        decode();
}

void Base64View::encode() {
    if (isValidUTF8(inputText))
        outputText = Base64::encode(inputText);
    else
        errorMessage = "Could not encode text";
}

void Base64View::decode() {
    auto bytes = Base64::decode(trimmingWhitespacesAndNewlines(inputText));
    if (bytes && isValidUTF8(*bytes)) {
        outputText = std::move(*bytes);
    } else {
        errorMessage = "Invalid Base64 input";
        outputText.clear();
    }
}

std::optional<StatusBadge> Base64View::status() const {
    if (!errorMessage)
        return std::nullopt;
    return StatusBadge{Status::error, *errorMessage};
}

std::string Base64View::statistics() const {
    auto text = fmt::format("Input: {} characters", characterCount(inputText));
    if (hasOutput())
        text += fmt::format("\u2002•\u2002Output: {} characters", characterCount(outputText));
    return text;
}

} // namespace korvane
