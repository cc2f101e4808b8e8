/// How one line of a comparison is shown: what stands before it, and in which colour.
#pragma once

#include "Models/Enumeration.h"
#include "Models/PaletteColor.h"
#include "Utilities/Diff/DiffEngine.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct DiffLineTypeFacts {
    DiffEngine::DiffLineType value;
    std::string_view rawValue;
    std::string_view prefix;
    std::optional<PaletteColor> color; ///< of prefix and background; none for plain text without a background
};

template <>
inline constexpr auto facts<DiffEngine::DiffLineType> = std::to_array<DiffLineTypeFacts>({
    {DiffEngine::DiffLineType::unchanged, "unchanged", " ", std::nullopt},
    {DiffEngine::DiffLineType::added, "added", "+", PaletteColor::green},
    {DiffEngine::DiffLineType::removed, "removed", "-", PaletteColor::red},
    {DiffEngine::DiffLineType::modified, "modified", "~", PaletteColor::orange},
});

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

    /// The whole line in words, such as "added 12 content", for those who do not see the colour.
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
