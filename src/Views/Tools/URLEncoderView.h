/// The state of the URL Encoder screen. On a button press, it percent-encodes text for a query, decodes it,
/// or splits a URL into its components.
#pragma once

#include "Models/Enumeration.h"
#include "Models/PaletteColor.h"
#include "Utilities/URLComponents.h"
#include "Views/Components/StatusBadge.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A row in the list of a URL's components.
struct ComponentRow {
    std::string label{};
    std::optional<std::string> value{}; ///< none for a parameter without a `=`, unlike an empty one
    PaletteColor color{};

    bool operator==(const ComponentRow&) const = default;
};

/// The list of a URL's components.
struct URLComponentsView {
    static constexpr std::string_view queryHeading = "Query Parameters";

    URLComponentsBreakdown components{};

    /// A row for each component that is present, in the order of a URL.
    std::vector<ComponentRow> rows() const;

    /// A row for each item of the query.
    std::vector<ComponentRow> queryRows() const;

    bool operator==(const URLComponentsView&) const = default;
};

struct URLEncoderView {
    enum class Mode { encode, decode, analyze };

    static constexpr std::string_view emptyPrompt = "Enter a valid URL to see its components";

    std::string inputText{};
    std::string outputText{};
    Mode mode = Mode::encode;
    std::optional<std::string> errorMessage{};
    std::string errorDetails{}; ///< what is wrong where; empty if that is not known
    std::optional<URLComponentsBreakdown> urlComponents{};

    /// Also drops the message and the components, which belong to the previous input.
    void setInputText(std::string text);

    void setMode(Mode newMode) { mode = newMode; }

    /// Processes the input by `mode`. A failure sets a message and keeps the output.
    void performAction();

    /// The badge for `errorMessage`.
    std::optional<StatusBadge> status() const;

    bool isAnalyzing() const { return mode == Mode::analyze; }

    bool hasComponents() const { return urlComponents.has_value(); }

    std::vector<ComponentRow> componentRows() const;
    std::vector<ComponentRow> queryRows() const;

    bool hasQueryItems() const;

    bool operator==(const URLEncoderView&) const = default;

private:
    void clearResults();
    void showOutput(std::optional<std::string> output, std::string_view failure);
    void analyzeURL();
};

struct URLEncoderModeFacts {
    URLEncoderView::Mode value;
    std::string_view rawValue;
    std::string_view icon;
    std::string_view inputTitle;
    std::string_view inputPlaceholder;
    std::string_view outputTitle;
};

template <>
inline constexpr auto facts<URLEncoderView::Mode> = std::to_array<URLEncoderModeFacts>({
    {URLEncoderView::Mode::encode, "Encode", "link.badge.plus", "Plain Text", "Enter text to encode...",
     "Encoded URL"},
    {URLEncoderView::Mode::decode, "Decode", "link", "Encoded URL", "Enter encoded URL...", "Decoded Text"},
    {URLEncoderView::Mode::analyze, "Analyze URL", "magnifyingglass", "URL Input",
     "Enter a URL to analyze...", "URL Components"},
});

} // namespace korvane
