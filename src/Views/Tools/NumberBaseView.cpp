#include "Views/Tools/NumberBaseView.h"

#include <fmt/format.h>

#include <utility>

namespace korvane {

std::string BaseResultCard::caption() const {
    return fmt::format("base {}", rawValue(base));
}

void NumberBaseView::setInputText(std::string text) {
    inputText = std::move(text);
    convert();
}

void NumberBaseView::setSourceBase(Base base) {
    sourceBase = base;
    convert();
}

void NumberBaseView::convert() {
    results.clear();
    errorMessage.reset();
    if (inputText.empty())
        return;
    if (auto converted = NumberBaseConverter::convertToAllBases(inputText, sourceBase))
        results = *std::move(converted);
    else
        errorMessage = converted.error().errorDescription();
}

std::string NumberBaseView::formatResult(Base base) const {
    const auto result = results.find(base);
    if (result == results.end())
        return "-";
    return showGrouped ? NumberBaseConverter::groupDigits(result->second, base) : result->second;
}

BaseResultCard NumberBaseView::resultCard(Base base) const {
    return {.base = base, .value = formatResult(base), .isSource = base == sourceBase};
}

std::string NumberBaseView::inputTitle() const {
    return fmt::format("Input ({})", label(sourceBase));
}

} // namespace korvane
