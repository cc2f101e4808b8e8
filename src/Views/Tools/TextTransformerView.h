/// The state of the Text Transformer screen. The output changes only on a button press; the statistics always
/// describe the current texts.
#pragma once

#include "Models/Enumeration.h"
#include "Utilities/TextTransformer.h"
#include "Views/Components/AwaitedWork.h"
#include "Views/Components/LiveStats.h"

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
    Rope inputText{};
    Rope outputText{};
    TransformTab selectedTab = TransformTab::caseTransform;
    CaseTransform selectedCaseTransform = CaseTransform::uppercase;
    LineOperation selectedLineOperation = LineOperation::sortAZ;

    LiveStats inputStats{};
    LiveStats outputStats{};
    AwaitedWork transforming{};

    /// Also cancels running work, which belongs to the previous input.
    void setInputText(Rope text, const Context<TextTransformerView>& context);

    void setSelectedTab(TransformTab tab) { selectedTab = tab; }

    /// A button press: selects, and computes the output even if the selection is the same.
    void selectCaseTransform(CaseTransform transform, const Context<TextTransformerView>& context);
    void selectLineOperation(LineOperation operation, const Context<TextTransformerView>& context);

    void applyTransform(const Context<TextTransformerView>& context);
    void applyLineOperation(const Context<TextTransformerView>& context);

    void cancel() { transforming.cancel(); }

    bool isBusy() const { return transforming.isBusy(); }

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
    template <typename Operation>
    void setOutput(const Context<TextTransformerView>& context, Operation operation);
    std::string caseFooter() const;
    std::string linesFooter() const;
};

} // namespace korvane
