/// A line of a comparison as the screen shows it: its number, prefix, content and colour.
#pragma once

#include "Models/PaletteColor.h"
#include "Utilities/Diff/DiffEngine.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// Refers to a line, which must outlive it.
struct DiffLineView {
    const DiffEngine::DiffLine& line;
    bool showLineNumber = true;
    bool showPrefix = false;

    /// The number in decimal; empty for a filler, and where numbers are not shown.
    std::string number() const {
        return showLineNumber && line.lineNumber ? std::to_string(*line.lineNumber) : std::string();
    }

    /// The character of the line's type; empty where prefixes are not shown.
    std::string_view prefix() const { return showPrefix ? factsOf(line.type).prefix : std::string_view(); }

    /// The accessible description of the line, such as "added 12 content".
    std::string description() const {
        if (!line.lineNumber)
            return "no line";
        const auto kind = isUnchanged() ? std::string() : std::string(rawValue(line.type)) + " ";
        return kind + std::to_string(*line.lineNumber) + " " + std::string(line.content);
    }

    std::optional<PaletteColor> color() const { return factsOf(line.type).color; }

    bool isUnchanged() const { return line.type == DiffEngine::DiffLineType::unchanged; }
};

} // namespace korvane
