/// Undo and redo of an edited text.
#pragma once

#include "Utilities/Text/Rope.h"
#include "Utilities/Text/TextSelection.h"

#include <cstddef>
#include <deque>
#include <optional>

namespace korvane {

enum class TextEditKind {
    typing,
    deletingBackward,
    deletingForward,
    other, ///< pasting, cutting, dropping, setting the text
};

/// A text and what is selected in it.
struct TextVersion {
    Rope text{};
    TextSelection selection{};
    bool operator==(const TextVersion&) const = default;
};

/// What an edit replaces: `removed` bytes at `offset`, by `inserted` bytes.
struct TextChange {
    std::size_t offset = 0;
    std::size_t removed = 0;
    std::size_t inserted = 0;
};

/// The steps in which edits of a text are undone. An edit joins the last step if it is of the same kind and
/// begins with the text and the selection that this step ended with. Except that each of these begins a step:
///
/// - an edit of the kind `other`,
/// - typing that replaces a selection,
/// - typing a newline,
/// - typing white space after another character than white space or a newline, so that each word is a step.
class TextHistory {
public:
    /// The default maximum of `heldBytes`: thousands of steps of typing, and little beside the largest texts.
    static constexpr std::size_t defaultMaxHeldBytes = std::size_t{64} << 20;

    /// About what a step holds besides the bytes that it changes: the nodes and the small leaves that its
    /// versions do not share.
    static constexpr std::size_t stepOverhead = 4096;

    explicit TextHistory(std::size_t maxHeldBytes = defaultMaxHeldBytes) : m_maxHeldBytes(maxHeldBytes) {}

    /// Adds the edit by which `change` made `after` from `before`. Nothing can be redone any more. An edit
    /// that replaces nothing by nothing is no edit.
    void record(TextEditKind kind, const TextVersion& before, const TextVersion& after,
                const TextChange& change);

    /// Makes the next edit begin a step. For a caret that was moved and may be back where it was.
    void endStep() { m_isStepOpen = false; }

    bool canUndo() const { return !m_undo.empty(); }

    bool canRedo() const { return !m_redo.empty(); }

    /// The version before the last step, or none if there is none. This step is then the next to redo.
    std::optional<TextVersion> undo();

    /// The version after the step that was undone last, or none if there is none.
    std::optional<TextVersion> redo();

    void clear();

    /// About how many bytes only the history keeps in memory: those that the steps to undo removed and the
    /// steps to redo inserted, with the overhead of each. Above the maximum, the farthest step is dropped of
    /// those to undo or those to redo, whichever hold more; the nearest in each direction always stays.
    std::size_t heldBytes() const { return m_heldToUndo + m_heldToRedo; }

private:
    struct Step {
        TextEditKind kind = TextEditKind::other;
        TextVersion before{};
        TextVersion after{};
        std::size_t removed = 0;
        std::size_t inserted = 0;
        bool beginsWithNewline = false; ///< of the text that the step has inserted
        bool beginsWithSpace = false;   ///< white space or a newline
        bool endsWithSpace = false;
    };

    static std::size_t heldToUndo(const Step& step) { return stepOverhead + step.removed; }

    static std::size_t heldToRedo(const Step& step) { return stepOverhead + step.inserted; }

    bool joinsLastStep(const Step& edit) const;
    void dropExcess();

    std::size_t m_maxHeldBytes;
    std::size_t m_heldToUndo = 0;
    std::size_t m_heldToRedo = 0;
    bool m_isStepOpen = false; ///< an edit can join the last step
    std::deque<Step> m_undo{}; ///< the nearest last
    std::deque<Step> m_redo{}; ///< the nearest last
};

} // namespace korvane
