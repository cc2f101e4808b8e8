/// The state of the bar that searches the text of a pane. Hits are found as the user types; in a large text
/// in the background.
#pragma once

#include "Utilities/Text/Rope.h"
#include "Utilities/Text/TextMarks.h"
#include "Utilities/Text/TextSearch.h"
#include "Utilities/Text/TextSelection.h"
#include "Views/Background.h"
#include "Views/Services.h"

#include <cstddef>
#include <expected>
#include <memory>
#include <optional>
#include <string>

namespace korvane {

struct FindView {
    /// A longer selection is not taken as what to search for, nor is one with a line break.
    static constexpr std::size_t maxSuggestedSize = 200;

    bool isOpen = false;
    Rope text{};
    TextQuery query{};
    std::shared_ptr<const TextHits> hits{}; ///< of `query` in `text`; null while there is no query
    std::optional<std::string> errorMessage{};
    std::optional<std::size_t> current{}; ///< index of a hit
    std::size_t origin = 0;               ///< the byte of the text from where the current hit is looked for
    std::optional<BackgroundTask> searching{};
    TextMarks hitMarks{};
    TextMarks currentMarks{};
    TextPlace shownPlace{};

    /// Searches `shown`. What is selected there becomes the query, if it is short.
    void open(Rope shown, TextSelection selection, const Context<FindView>& context);

    /// Selects the current hit, if there is one.
    void close();

    void setQuery(std::string value, const Context<FindView>& context);
    void setPattern(bool isPattern, const Context<FindView>& context);
    void setCaseSensitive(bool isSensitive, const Context<FindView>& context);

    /// Searches another text. Does nothing while the bar is closed.
    void setText(Rope value, const Context<FindView>& context);

    /// Goes to the next or the previous hit; after the last one to the first.
    void next();
    void previous();

    std::size_t count() const { return hits ? hits->ranges.size() : 0; }

    bool hasHits() const { return count() > 0; }

    bool isWithoutHits() const { return !query.text.empty() && !searching && !hasHits(); }

    /// Such as "2 of 7", "No results", or "…" while a search runs; empty without a query.
    std::string countText() const;

    /// The same for a narrow pane: "2/7".
    std::string shortCountText() const;

    /// What assistive technology is told of the current hit, such as "2 of 7, line 3, column 14".
    std::string announcement() const;

    bool operator==(const FindView&) const = default;

private:
    struct Result;

    void search(const Context<FindView>& context);
    void showResult(Result result);
    void go(std::size_t hit);
};

} // namespace korvane
