/// The state of the Lorem Ipsum screen: what to generate, and the text that the last button press generated.
#pragma once

#include "Utilities/LoremIpsumGenerator.h"
#include "Views/Components/StatPill.h"
#include "Views/Services.h"

#include <string>
#include <string_view>

namespace korvane {

struct LoremIpsumView {
    static constexpr int minCount = 1;
    static constexpr int maxCount = 100;

    GenerationType generationType = GenerationType::paragraphs;
    int count = 3;
    bool startWithLorem = true;
    std::string generatedText{};
    bool copied = false; ///< reset `CopyButton::feedbackDuration` after copying

    void generate();

    void clear() { generatedText.clear(); }

    /// Copies the text and sets `copied`.
    void copy(const Context<LoremIpsumView>& context);

    void setGenerationType(GenerationType type) { generationType = type; }

    /// Sets the nearest allowed count.
    void setCount(int newCount);

    void setStartWithLorem(bool on) { startWithLorem = on; }

    bool hasText() const { return !generatedText.empty(); }

    std::string countLabel() const;

    // Counts of the text.
    StatPill words() const;
    StatPill sentences() const;
    StatPill paragraphs() const;
    StatPill characters() const;

    bool operator==(const LoremIpsumView&) const = default;
};

} // namespace korvane
