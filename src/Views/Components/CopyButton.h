/// The button that puts a text on the clipboard and says so for a moment.
#pragma once

#include "Models/PaletteColor.h"
#include "Views/Services.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct CopyButton {
    /// How long after a press the feedback goes away.
    static constexpr std::chrono::milliseconds feedbackDuration{1500};

    std::string text{};
    std::string label{};
    bool showLabel = true;
    std::string_view idleIcon = "doc.on.doc"; ///< the name of a glyph, which outlives the button
    bool isSecret = false; ///< the text is not one for programs that remember the clipboard
    bool copied = false;

    std::string_view icon() const { return copied ? "checkmark" : idleIcon; }

    std::string_view title() const { return copied ? std::string_view("Copied!") : std::string_view(label); }

    /// The colour of glyph and title; none is the secondary colour.
    std::optional<PaletteColor> color() const {
        return copied ? std::optional(PaletteColor::green) : std::nullopt;
    }

    /// Puts `text` on the clipboard, even an empty one, and shows so. Every press schedules its own reset,
    /// and the first that is due ends the feedback even if others are still to come.
    void copyToClipboard(const Context<CopyButton>& context);

    bool operator==(const CopyButton&) const = default;
};

} // namespace korvane
