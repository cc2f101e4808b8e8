#include "Views/Tools/URLEncoderView.h"

#include "Utilities/PercentEncoding.h"

#include <utility>

namespace korvane {

std::vector<ComponentRow> URLComponentsView::rows() const {
    std::vector<ComponentRow> rows;
    const auto add = [&rows](std::string label, const std::optional<std::string>& value, PaletteColor color) {
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
    return rows;
}

std::vector<ComponentRow> URLComponentsView::queryRows() const {
    std::vector<ComponentRow> rows;
    for (const auto& item : components.queryItems.value_or(std::vector<URLQueryItem>()))
        rows.push_back({item.name, item.value, PaletteColor::cyan});
    return rows;
}

void URLEncoderView::setInputText(std::string text) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    clearResults();
}

void URLEncoderView::clearResults() {
    errorMessage.reset();
    errorDetails.clear();
    urlComponents.reset();
}

void URLEncoderView::performAction() {
    clearResults();
    if (inputText.empty()) {
        errorMessage = "Input is empty";
        return;
    }
    switch (mode) {
    case Mode::encode:
        showOutput(PercentEncoding::encode(inputText), "Could not encode text");
        break;
    case Mode::decode:
        showOutput(PercentEncoding::decode(inputText), "Could not decode URL");
        break;
    case Mode::analyze:
        analyzeURL();
        break;
    }
}

void URLEncoderView::showOutput(std::optional<std::string> output, std::string_view failure) {
    if (output)
        outputText = std::move(*output);
    else
        errorMessage = failure;
}

void URLEncoderView::analyzeURL() {
    if (auto components = URLComponents::parse(inputText)) {
        urlComponents = std::move(*components);
    } else {
        errorMessage = "Invalid URL format";
        errorDetails = std::move(components.error().message);
    }
}

std::optional<StatusBadge> URLEncoderView::status() const {
    if (!errorMessage)
        return std::nullopt;
    return StatusBadge{Status::error, *errorMessage};
}

std::vector<ComponentRow> URLEncoderView::componentRows() const {
    return urlComponents ? URLComponentsView{*urlComponents}.rows() : std::vector<ComponentRow>();
}

std::vector<ComponentRow> URLEncoderView::queryRows() const {
    return urlComponents ? URLComponentsView{*urlComponents}.queryRows() : std::vector<ComponentRow>();
}

bool URLEncoderView::hasQueryItems() const {
    return urlComponents && urlComponents->queryItems && !urlComponents->queryItems->empty();
}

} // namespace korvane
