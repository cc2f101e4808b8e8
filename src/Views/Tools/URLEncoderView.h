/// The state of the URL Encoder screen. On a button press, it percent-encodes text for a query, decodes it,
/// or splits a URL into its components; large texts in the background.
#pragma once

#include "Models/Enumeration.h"
#include "Models/PaletteColor.h"
#include "Utilities/Text/Rope.h"
#include "Utilities/URLComponents.h"
#include "Views/Components/AwaitedWork.h"
#include "Views/Components/StatusBadge.h"

#include <array>
#include <memory>
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

    explicit URLComponentsView(const URLComponentsBreakdown& components);

    std::vector<ComponentRow> rows{};      ///< for each component that is present, in the order of a URL
    std::vector<ComponentRow> queryRows{}; ///< for each item of the query
};

/// Rows that copies of a state share; null if there are none.
using SharedComponentRows = std::shared_ptr<const std::vector<ComponentRow>>;

struct URLEncoderView {
    enum class Mode { encode, decode, analyze };

    static constexpr std::string_view emptyPrompt = "Enter a valid URL to see its components";

    Rope inputText{};
    Rope outputText{};
    Mode mode = Mode::encode;
    std::optional<std::string> errorMessage{};
    std::string errorDetails{}; ///< what is wrong where; empty if that is not known
    std::shared_ptr<const URLComponentsView> urlComponents{}; ///< null before a URL is analyzed
    AwaitedWork processing{};

    /// Also drops the message and the components, and cancels running work, which belong to the previous
    /// input.
    void setInputText(Rope text);

    void setMode(Mode newMode) { mode = newMode; }

    /// Processes the input by `mode`. A failure sets a message and keeps the output.
    void performAction(const Context<URLEncoderView>& context);

    void cancel() { processing.cancel(); }

    /// The badge for `errorMessage`.
    std::optional<StatusBadge> status() const;

    bool isBusy() const { return processing.isBusy(); }

    bool isAnalyzing() const { return mode == Mode::analyze; }

    bool hasComponents() const { return urlComponents != nullptr; }

    SharedComponentRows componentRows() const;
    SharedComponentRows queryRows() const;

    bool hasQueryItems() const { return urlComponents && !urlComponents->queryRows.empty(); }

    bool operator==(const URLEncoderView&) const = default;

private:
    struct Result;
    using Operation = Result (*)(std::string_view text);

    static Operation operation(Mode mode);
    static Result encoded(std::string_view text);
    static Result decoded(std::string_view text);
    static Result analyzed(std::string_view text);
    void clearResults();
    void show(Result result);
};

struct URLEncoderModeFacts {
    URLEncoderView::Mode value;
    std::string_view rawValue;
    std::string_view icon;
    std::string_view inputTitle;
    std::string_view inputPlaceholder;
    std::string_view outputTitle;
    std::string_view verb; ///< for running work
};

template <>
inline constexpr auto facts<URLEncoderView::Mode> = std::to_array<URLEncoderModeFacts>({
    {URLEncoderView::Mode::encode, "Encode", "link.badge.plus", "Plain Text", "Enter text to encode...",
     "Encoded URL", "Encoding"},
    {URLEncoderView::Mode::decode, "Decode", "link", "Encoded URL", "Enter encoded URL...", "Decoded Text",
     "Decoding"},
    {URLEncoderView::Mode::analyze, "Analyze URL", "magnifyingglass", "URL Input",
     "Enter a URL to analyze...", "URL Components", "Analyzing"},
});

} // namespace korvane
