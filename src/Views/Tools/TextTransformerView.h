/// The state of the text transformer's screen. A result is made on the press of a button, and stays until the
/// next; figures about the texts always tell of the texts as they are.
#pragma once

#include "Models/Enumeration.h"
#include "Utilities/TextTransformer.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

/// What the screen offers for a text.
enum class TransformTab { caseTransform, lineOperations, statistics };

struct TransformTabFacts {
    TransformTab value;
    std::string_view rawValue;
    std::string_view inputTitle;
    std::string_view inputIcon;
    std::string_view inputPlaceholder;
    std::string_view outputPlaceholder; ///< empty where there is no output
};

template <>
inline constexpr auto facts<TransformTab> = std::to_array<TransformTabFacts>({
    {TransformTab::caseTransform, "Case Transform", "Input Text", "arrow.down.doc",
     "Enter text to transform...", "Transformed text will appear here..."},
    {TransformTab::lineOperations, "Line Operations", "Input Lines", "arrow.down.doc",
     "Enter text (one item per line)...", "Result will appear here..."},
    {TransformTab::statistics, "Statistics", "Input Text", "", "Enter text to analyze...", ""},
});

struct TextTransformerView {
    std::string inputText{};
    std::string outputText{};
    TransformTab selectedTab = TransformTab::caseTransform;
    CaseTransform selectedCaseTransform = CaseTransform::uppercase;
    LineOperation selectedLineOperation = LineOperation::sortAZ;

    /// The statistics of the texts. They are kept, as a screen asks for them with every key that is pressed.
    TextTransformer::RunningStats inputStats{};
    TextTransformer::RunningStats outputStats{};

    /// What any change of the input entails, wherever it came from.
    void setInputText(std::string text);

    void setSelectedTab(TransformTab tab) { selectedTab = tab; }

    /// A press of one of the buttons: selects, and computes the output even if it was selected before.
    void selectCaseTransform(CaseTransform transform);
    void selectLineOperation(LineOperation operation);

    void applyTransform();
    void applyLineOperation();

    bool hasInput() const { return !inputText.empty(); }

    bool hasOutput() const { return !outputText.empty(); }

    /// Whether the selected tab makes an output of the input.
    bool showsOutput() const { return selectedTab != TransformTab::statistics; }

    bool showsFooter() const { return hasInput() && showsOutput(); }

    /// The line below the editors. With the case transforms it is such as "5 characters • 1 words • 1 lines";
    /// with the line operations such as "Input: 3 lines", with those of the output behind a bullet once there
    /// is an output. The statistics have none.
    std::string footer() const;

    bool operator==(const TextTransformerView&) const = default;

private:
    void setOutputText(std::string text);
    std::string caseFooter() const;
    std::string linesFooter() const;
};

} // namespace korvane
