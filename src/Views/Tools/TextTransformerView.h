/// The state of the Text Transformer screen. The output changes only on a button press; the statistics always
/// describe the current texts.
#pragma once

#include "Models/Enumeration.h"
#include "Utilities/TextTransformer.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

/// The tabs of the screen.
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

    /// The statistics of the texts, stored because the screen reads them on every key press.
    TextTransformer::RunningStats inputStats{};
    TextTransformer::RunningStats outputStats{};

    /// Also updates the statistics of the input.
    void setInputText(std::string text);

    void setSelectedTab(TransformTab tab) { selectedTab = tab; }

    /// A button press: selects, and computes the output even if the selection is the same.
    void selectCaseTransform(CaseTransform transform);
    void selectLineOperation(LineOperation operation);

    void applyTransform();
    void applyLineOperation();

    bool hasInput() const { return !inputText.empty(); }

    bool hasOutput() const { return !outputText.empty(); }

    /// Whether the selected tab has an output.
    bool showsOutput() const { return selectedTab != TransformTab::statistics; }

    bool showsFooter() const { return hasInput() && showsOutput(); }

    /// The line below the editors. Case transforms: such as "5 characters • 1 words • 1 lines". Line
    /// operations: such as "Input: 3 lines", followed by a bullet and the lines of the output if there is
    /// one. Statistics: empty.
    std::string footer() const;

    bool operator==(const TextTransformerView&) const = default;

private:
    void setOutputText(std::string text);
    std::string caseFooter() const;
    std::string linesFooter() const;
};

} // namespace korvane
