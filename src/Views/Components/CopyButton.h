/// The button that copies a text to the clipboard and confirms it briefly.
#pragma once

#include "Models/PaletteColor.h"
#include "Views/Services.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct CopyButton {
    /// How long the feedback stays after a press.
    static constexpr std::chrono::milliseconds feedbackDuration{1500};

    Rope text{};
    std::string label{};
    bool showLabel = true;
    std::string_view idleIcon = "doc.on.doc"; ///< a glyph name that outlives the button
    bool isSecret = false;                    ///< copied by `Clipboard::setSecret`
    bool copied = false;

    std::string_view icon() const { return copied ? "checkmark" : idleIcon; }

    std::string_view title() const { return copied ? std::string_view("Copied!") : std::string_view(label); }

    /// The colour of glyph and title; none is the secondary colour.
    std::optional<PaletteColor> color() const {
        return copied ? std::optional(PaletteColor::green) : std::nullopt;
    }

    /// Copies `text`, even if it is empty, and shows the feedback. Every press schedules its own reset; the
    /// first one due ends the feedback, even if others are pending.
    void copyToClipboard(const Context<CopyButton>& context);

    bool operator==(const CopyButton&) const = default;
};

} // namespace korvane
