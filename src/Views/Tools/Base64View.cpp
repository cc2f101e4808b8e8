#include "Views/Tools/Base64View.h"

#include "Utilities/Base64.h"
#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <utility>

namespace korvane {

struct Base64View::Result {
    std::optional<Rope> output{}; ///< none: the output stays
    std::optional<std::string> errorMessage{};
};

void Base64View::setInputText(Rope text, const Context<Base64View>& context) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    errorMessage.reset();
    conversion.cancel();
    LiveStats::update(context, *this, &Base64View::inputStats, inputText);
}

void Base64View::convert(const Context<Base64View>& context) {
    errorMessage.reset();
    if (inputText.empty()) {
        errorMessage = "Input is empty";
        return;
    }
    runAwaited(
        context, *this, &Base64View::conversion, {.verb = factsOf(mode).verb, .bytes = inputText.size()},
        [convert = mode == Mode::encode ? encode : decode, text = inputText](const std::stop_token&) {
            return convert(FlatText(text));
        },
        [context](Base64View& view, Result result) { view.show(std::move(result), context); });
}

Base64View::Result Base64View::encode(std::string_view text) {
    if (!isValidUTF8(text))
        return {.errorMessage = "Could not encode text"};
    return {.output = Base64::encode(text)};
}

Base64View::Result Base64View::decode(std::string_view text) {
    auto bytes = Base64::decode(trimmingWhitespacesAndNewlines(text));
    if (!bytes || !isValidUTF8(*bytes))
        return {.output = Rope(), .errorMessage = "Invalid Base64 input"};
    return {.output = *std::move(bytes)};
}

void Base64View::show(Result result, const Context<Base64View>& context) {
    errorMessage = std::move(result.errorMessage);
    if (!result.output)
        return;
    outputText = *std::move(result.output);
    LiveStats::update(context, *this, &Base64View::outputStats, outputText);
}

std::optional<StatusBadge> Base64View::status() const {
    if (!errorMessage)
        return std::nullopt;
    return StatusBadge{Status::error, *errorMessage};
}

std::string Base64View::statistics() const {
    auto text = fmt::format("Input: {} characters", inputStats.text(&TextStats::characters));
    if (hasOutput())
        text += fmt::format("\u2002•\u2002Output: {} characters", outputStats.text(&TextStats::characters));
    return text;
}

} // namespace korvane
