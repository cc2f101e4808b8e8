#include "Views/Tools/LoremIpsumView.h"

#include "Utilities/Text/Text.h"
#include "Views/Components/CopyButton.h"

#include <fmt/format.h>

#include <algorithm>

namespace korvane {

void LoremIpsumView::generate() {
    switch (generationType) {
    case GenerationType::words:
        generatedText = LoremIpsumGenerator::generateWords(count, startWithLorem);
        break;
    case GenerationType::sentences:
        generatedText = LoremIpsumGenerator::generateSentences(count, startWithLorem);
        break;
    case GenerationType::paragraphs:
        generatedText = LoremIpsumGenerator::generateParagraphs(count, startWithLorem);
        break;
    }
}

void LoremIpsumView::copy(const Context<LoremIpsumView>& context) {
    context.services.clipboard.setText(generatedText);
    copied = true;
    context.services.timers.after(CopyButton::feedbackDuration, [update = context.update] {
        update([](LoremIpsumView& view) { view.copied = false; });
    });
}

void LoremIpsumView::setCount(int newCount) {
    count = std::clamp(newCount, minCount, maxCount);
}

std::string LoremIpsumView::countLabel() const {
    return fmt::format("Count: {}", count);
}

StatPill LoremIpsumView::words() const {
    return {"Words", LoremIpsumGenerator::wordCount(generatedText), PaletteColor::green};
}

StatPill LoremIpsumView::sentences() const {
    return {"Sentences", LoremIpsumGenerator::sentenceCount(generatedText), PaletteColor::blue};
}

StatPill LoremIpsumView::paragraphs() const {
    return {"Paragraphs", LoremIpsumGenerator::paragraphCount(generatedText), PaletteColor::purple};
}

StatPill LoremIpsumView::characters() const {
    return {"Characters", static_cast<int>(characterCount(generatedText)), PaletteColor::orange};
}

} // namespace korvane
