/// The state of the Text Diff screen: two texts, and their last comparison, which is made only on request.
#pragma once

#include "Models/Enumeration.h"
#include "Utilities/Diff/DiffEngine.h"
#include "Utilities/Text/Rope.h"
#include "Views/Components/AwaitedWork.h"
#include "Views/Components/StatBadge.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct TextDiffView {
    enum class ViewMode { sideBySide, unified };

    Rope leftText{};
    Rope rightText{};
    std::optional<DiffEngine::DiffResult> diffResult{}; ///< replaces the editors while present
    ViewMode viewMode = ViewMode::sideBySide;
    bool showStats = true;
    AwaitedWork comparison{}; ///< of the current texts

    /// A change of a text cancels a running comparison, whose result would belong to the previous texts.
    void setLeftText(Rope text);
    void setRightText(Rope text);

    void setViewMode(ViewMode mode) { viewMode = mode; }

    /// Compares the texts, unless both are empty or a comparison is running: small ones at once, others in
    /// the background. An earlier result stays until then.
    void compare(const Context<TextDiffView>& context);

    void cancel() { comparison.cancel(); }

    /// Swaps the texts and keeps the result.
    void swap();

    void clearAll();

    /// The result, or null.
    const DiffEngine::DiffResult* shownResult() const { return diffResult ? &*diffResult : nullptr; }

    bool hasResult() const { return diffResult.has_value(); }

    bool isSideBySide() const { return viewMode == ViewMode::sideBySide; }

    bool isBusy() const { return comparison.isBusy(); }

    bool showsCounts() const { return showStats && hasResult(); }

    StatBadge added() const { return {"Added", stats().added, PaletteColor::green}; }

    StatBadge removed() const { return {"Removed", stats().removed, PaletteColor::red}; }

    StatBadge unchanged() const { return {"Unchanged", stats().unchanged}; }

    /// The share of unchanged rows, such as "66% similar", truncated to a whole number; empty without rows.
    std::string similarity() const;

    bool operator==(const TextDiffView&) const = default;

private:
    DiffEngine::DiffStats stats() const { return diffResult ? diffResult->stats : DiffEngine::DiffStats(); }
};

struct DiffViewModeFacts {
    TextDiffView::ViewMode value;
    std::string_view rawValue;
};

template <>
inline constexpr auto facts<TextDiffView::ViewMode> = std::to_array<DiffViewModeFacts>({
    {TextDiffView::ViewMode::sideBySide, "Side by Side"},
    {TextDiffView::ViewMode::unified, "Unified"},
});

} // namespace korvane
