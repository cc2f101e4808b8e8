#include "Views/Tools/URLEncoderView.h"

#include "Utilities/PercentEncoding.h"

#include <utility>

namespace korvane {

URLComponentsView::URLComponentsView(const URLComponentsBreakdown& components) {
    const auto add = [this](std::string label, const std::optional<std::string>& value, PaletteColor color) {
        if (value)
            rows.push_back({std::move(label), value, color});
    };
    const auto port = components.port ? std::optional(std::to_string(*components.port)) : std::nullopt;
    add("Scheme", components.scheme, PaletteColor::purple);
    add("Host", components.host, PaletteColor::blue);
    add("Port", port, PaletteColor::orange);
    add("Path", components.path, PaletteColor::green);
    add("Query String", components.query, PaletteColor::cyan);
    add("Fragment", components.fragment, PaletteColor::pink);
    if (!components.queryItems)
        return;
    for (const auto& item : *components.queryItems)
        queryRows.push_back({item.name, item.value, PaletteColor::cyan});
}

struct URLEncoderView::Result {
    std::optional<Rope> output{}; ///< none: the output stays
    std::optional<std::string> errorMessage{};
    std::string errorDetails{};
    std::shared_ptr<const URLComponentsView> components{};
};

void URLEncoderView::setInputText(Rope text) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    processing.cancel();
    clearResults();
}

void URLEncoderView::clearResults() {
    errorMessage.reset();
    errorDetails.clear();
    urlComponents.reset();
}

void URLEncoderView::performAction(const Context<URLEncoderView>& context) {
    clearResults();
    if (inputText.empty()) {
        errorMessage = "Input is empty";
        return;
    }
    runAwaited(
        context, *this, &URLEncoderView::processing, {.verb = factsOf(mode).verb, .bytes = inputText.size()},
        [process = operation(mode), text = inputText](const std::stop_token&) {
            return process(FlatText(text));
        },
        &URLEncoderView::show);
}

URLEncoderView::Operation URLEncoderView::operation(Mode mode) {
    switch (mode) {
    case Mode::encode:
        return encoded;
    case Mode::decode:
        return decoded;
    case Mode::analyze:
        break;
    }
    return analyzed;
}

URLEncoderView::Result URLEncoderView::encoded(std::string_view text) {
    auto output = PercentEncoding::encode(text);
    if (!output)
        return {.errorMessage = "Could not encode text"};
    return {.output = *std::move(output)};
}

URLEncoderView::Result URLEncoderView::decoded(std::string_view text) {
    auto output = PercentEncoding::decode(text);
    if (!output)
        return {.errorMessage = "Could not decode URL"};
    return {.output = *std::move(output)};
}

URLEncoderView::Result URLEncoderView::analyzed(std::string_view text) {
    auto components = URLComponents::parse(text);
    if (!components)
        return {.errorMessage = "Invalid URL format", .errorDetails = std::move(components.error().message)};
    return {.components = std::make_shared<const URLComponentsView>(*components)};
}

void URLEncoderView::show(Result result) {
    if (result.output)
        outputText = *std::move(result.output);
    errorMessage = std::move(result.errorMessage);
    errorDetails = std::move(result.errorDetails);
    urlComponents = std::move(result.components);
}

std::optional<StatusBadge> URLEncoderView::status() const {
    if (!errorMessage)
        return std::nullopt;
    return StatusBadge{Status::error, *errorMessage};
}

SharedComponentRows URLEncoderView::componentRows() const {
    return urlComponents ? SharedComponentRows(urlComponents, &urlComponents->rows) : nullptr;
}

SharedComponentRows URLEncoderView::queryRows() const {
    return urlComponents ? SharedComponentRows(urlComponents, &urlComponents->queryRows) : nullptr;
}

} // namespace korvane
