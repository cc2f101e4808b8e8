/// The state of the Lorem Ipsum screen: what to generate, and the text generated last. Nothing is generated
/// but on a button press.
#pragma once

#include "Utilities/LoremIpsumGenerator.h"
#include "Views/Components/StatPill.h"
#include "Views/Services.h"

#include <string>
#include <string_view>

namespace korvane {

struct LoremIpsumView {
    static constexpr int minimumCount = 1;
    static constexpr int maximumCount = 100;

    GenerationType generationType = GenerationType::paragraphs;
    int count = 3;
    bool startWithLorem = true;
    std::string generatedText{};
    bool copied = false; ///< for a moment after the text was copied

    void generate();

    void clear() { generatedText.clear(); }

    /// Puts the text on the clipboard, and says so for as long as every copy button does.
    void copy(const Context<LoremIpsumView>& context);

    void setGenerationType(GenerationType type) { generationType = type; }

    /// The nearest count that is allowed.
    void setCount(int newCount);

    void setStartWithLorem(bool on) { startWithLorem = on; }

    bool hasText() const { return !generatedText.empty(); }

    std::string countLabel() const;

    // What there is of each in the text.
    StatPill words() const;
    StatPill sentences() const;
    StatPill paragraphs() const;
    StatPill characters() const;

    bool operator==(const LoremIpsumView&) const = default;
};

} // namespace korvane
