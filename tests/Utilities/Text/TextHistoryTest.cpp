#include "Utilities/Text/TextHistory.h"

#include "support/RopePrinter.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

constexpr std::size_t overhead = TextHistory::stepOverhead;

/// A text area without a screen.
struct Editor {
    TextVersion now{};
    TextHistory history{};

    void edit(TextEditKind kind, std::size_t from, std::size_t to, const Rope& inserted) {
        const auto caret = from + inserted.size();
        const TextVersion after{now.text.replacing(from, to, inserted), {caret, caret}};
        history.record(kind, now, after, {.offset = from, .removed = to - from, .inserted = inserted.size()});
        now = after;
    }

    /// Replaces what is selected, as all input does.
    void insert(TextEditKind kind, const Rope& inserted) {
        edit(kind, now.selection.from(), now.selection.to(), inserted);
    }

    void select(std::size_t anchor, std::size_t caret) { now.selection = {anchor, caret}; }

    /// Each character is a key: < deletes backwards, > forwards, { and } move the caret by one, ^ pastes "PA
    /// STE", | ends the step, and all others are typed.
    void press(std::string_view keys) {
        for (const char key : keys) {
            const auto caret = now.selection.caret;
            switch (key) {
            case '<':
                edit(TextEditKind::deletingBackward, caret - 1, caret, {});
                break;
            case '>':
                edit(TextEditKind::deletingForward, caret, caret + 1, {});
                break;
            case '{':
                select(caret - 1, caret - 1);
                break;
            case '}':
                select(caret + 1, caret + 1);
                break;
            case '^':
                insert(TextEditKind::other, "PA STE");
                break;
            case '|':
                history.endStep();
                break;
            default:
                insert(TextEditKind::typing, std::string_view(&key, 1));
            }
        }
    }

    bool undo() { return restore(history.undo()); }

    bool redo() { return restore(history.redo()); }

    bool restore(const std::optional<TextVersion>& version) {
        if (version)
            now = *version;
        return version.has_value();
    }
};

struct StepsRow {
    std::string_view name;
    std::string_view keys;
    std::vector<std::string_view> texts; ///< the last one first, then as undone
};

const StepsRow stepsRows[] = {
    {"a run of letters is a step", "abc", {"abc", ""}},
    {"a space after a word begins a step", "one two", {"one two", "one", ""}},
    {"more spaces belong to the first", "a  \tb", {"a  \tb", "a", ""}},
    {"a text may begin with spaces", "  a b", {"  a b", "  a", ""}},
    {"each newline begins a step", "a\n\nb", {"a\n\nb", "a\n", "a", ""}},
    {"white space after a newline does not", "a\n  b", {"a\n  b", "a", ""}},
    {"a space after punctuation begins a step", "a, b", {"a, b", "a,", ""}},
    {"a caret move ends a step", "ab{c", {"acb", "ab", ""}},
    {"a caret moved away and back ends it when told", "ab{}|c", {"abc", "ab", ""}},
    {"deleting backwards is a step", "abc<<", {"a", "abc", ""}},
    {"deleting forwards is a step", "abc{{>>", {"a", "abc", ""}},
    {"deleting in the other direction begins a step", "abcd{{<>", {"ad", "acd", "abcd", ""}},
    {"deleting does not stop at words", "a b<<<", {"", "a b", "a", ""}},
    {"typing after deleting begins a step", "ab<c", {"ac", "a", "ab", ""}},
    {"a paste is a step", "a^b", {"aPA STEb", "aPA STE", "a", ""}},
    {"each paste is a step", "^^", {"PA STEPA STE", "PA STE", ""}},
    {"a space after a paste begins a step", "^ a", {"PA STE a", "PA STE", ""}},
};

TEST(TextHistory, GroupsKeysIntoSteps) {
    for (const auto& row : stepsRows) {
        Editor editor;
        editor.press(row.keys);
        std::vector<std::string> texts{editor.now.text.string()};
        while (editor.undo())
            texts.push_back(editor.now.text.string());
        EXPECT_EQ(texts, std::vector<std::string>(row.texts.begin(), row.texts.end())) << row.name;
        // Redoing goes the same way back.
        for (auto text = texts.rbegin() + 1; text != texts.rend(); ++text) {
            EXPECT_TRUE(editor.redo()) << row.name;
            EXPECT_EQ(editor.now.text, *text) << row.name;
        }
        EXPECT_FALSE(editor.redo()) << row.name;
    }
}

TEST(TextHistory, KnowsSpacesAndNewlinesOfUnicode) {
    Editor editor;
    for (const auto* const typed : {"a", "\u00A0", "é", "\u3000", "😀", "\u2028", "b"})
        editor.insert(TextEditKind::typing, typed);
    std::vector<std::string> texts;
    while (editor.undo())
        texts.push_back(editor.now.text.string());
    EXPECT_EQ(texts, (std::vector<std::string>{"a\u00A0é\u3000😀", "a\u00A0é", "a", ""}));
}

TEST(TextHistory, AnInputMethodTypesSeveralCharacters) {
    Editor editor;
    editor.insert(TextEditKind::typing, "漢字 ");
    editor.insert(TextEditKind::typing, " かな");
    EXPECT_TRUE(editor.undo());
    EXPECT_EQ(editor.now.text, "");
}

TEST(TextHistory, TypingOverASelectionBeginsAStep) {
    Editor editor;
    editor.press("abc");
    editor.select(3, 1);
    editor.press("xy");
    EXPECT_EQ(editor.now.text, "axy");
    EXPECT_TRUE(editor.undo());
    EXPECT_EQ(editor.now.text, "abc");
    EXPECT_EQ(editor.now.selection, (TextSelection{3, 1}));
    EXPECT_TRUE(editor.redo());
    EXPECT_EQ(editor.now.selection, (TextSelection{3, 3}));
}

TEST(TextHistory, ASelectionReplacedAtTheEndOfARunBeginsAStep) {
    Editor editor;
    editor.press("abc");
    const TextVersion after{"abd", {3, 3}};
    editor.history.record(TextEditKind::typing, editor.now, after,
                          {.offset = 2, .removed = 1, .inserted = 1});
    EXPECT_EQ(editor.history.undo()->text, "abc");
}

TEST(TextHistory, ATextSetInBetweenEndsTheStep) {
    Editor editor;
    editor.press("abc");
    editor.now.text = "xyz";
    editor.press("d");
    EXPECT_TRUE(editor.undo());
    EXPECT_EQ(editor.now.text, "xyz");
}

TEST(TextHistory, AnEditRemovesWhatCouldBeRedone) {
    Editor editor;
    editor.press("one two");
    EXPECT_TRUE(editor.undo());
    EXPECT_TRUE(editor.history.canRedo());
    editor.press("s");
    EXPECT_FALSE(editor.history.canRedo());
    EXPECT_FALSE(editor.redo());
    EXPECT_EQ(editor.history.heldBytes(), 2 * overhead); // an edit after undoing begins a step
}

TEST(TextHistory, AnEditOfNothingIsNone) {
    Editor editor;
    editor.press("one two");
    editor.undo();
    editor.insert(TextEditKind::other, {});
    EXPECT_TRUE(editor.history.canRedo());
    EXPECT_EQ(editor.history.heldBytes(), 2 * overhead + 4);
}

TEST(TextHistory, CountsTheBytesThatOnlyItHolds) {
    Editor editor;
    editor.insert(TextEditKind::other, std::string(1'000, 'a'));
    EXPECT_EQ(editor.history.heldBytes(), overhead); // the text itself has the pasted bytes
    editor.edit(TextEditKind::other, 0, 600, {});
    EXPECT_EQ(editor.history.heldBytes(), 2 * overhead + 600);
    editor.select(400, 400);
    editor.press("<<<");
    EXPECT_EQ(editor.history.heldBytes(), 3 * overhead + 603);
}

TEST(TextHistory, CountsTheBytesOfJoinedEditsInBothDirections) {
    Editor editor;
    editor.press("abc<<");
    EXPECT_EQ(editor.history.heldBytes(), 2 * overhead + 2);
    editor.undo();
    EXPECT_EQ(editor.history.heldBytes(), 2 * overhead);
    editor.undo();
    EXPECT_EQ(editor.history.heldBytes(), 2 * overhead + 3);
    editor.redo();
    editor.redo();
    EXPECT_EQ(editor.history.heldBytes(), 2 * overhead + 2);
    editor.history.clear();
    EXPECT_EQ(editor.history.heldBytes(), 0U);
    EXPECT_FALSE(editor.history.canUndo() || editor.history.canRedo());
}

/// How many steps can be undone.
int undoSteps(Editor& editor) {
    int steps = 0;
    while (editor.undo())
        ++steps;
    return steps;
}

TEST(TextHistory, DropsTheOldestStepsAboveTheMaximum) {
    Editor editor;
    editor.history = TextHistory(4 * overhead + 100);
    for (int count = 0; count < 20; ++count) {
        editor.press("^");
        EXPECT_LE(editor.history.heldBytes(), 4 * overhead + 100);
    }
    const auto whole = editor.now.text;
    EXPECT_EQ(undoSteps(editor), 4);
    EXPECT_EQ(editor.now.text, whole.substr(0, whole.size() - 4 * 6));
}

TEST(TextHistory, TheLastStepCanBeUndoneWhateverItsSize) {
    Editor editor;
    editor.history = TextHistory(4 * overhead + 100);
    editor.press("^^");
    editor.insert(TextEditKind::other, std::string(100 * overhead, 'a'));
    editor.edit(TextEditKind::other, 0, editor.now.text.size(), {});
    const auto last = editor.history.undo();
    ASSERT_TRUE(last);
    EXPECT_EQ(last->text.size(), 100 * overhead + 12);
    EXPECT_FALSE(editor.history.canUndo());
    EXPECT_EQ(editor.history.redo()->text, "");
}

TEST(TextHistory, TheLastStepCanBeRedoneWhateverItsSize) {
    Editor editor;
    editor.history = TextHistory(4 * overhead);
    editor.insert(TextEditKind::other, std::string(100 * overhead, 'a'));
    EXPECT_TRUE(editor.undo());
    EXPECT_TRUE(editor.redo());
    EXPECT_EQ(editor.now.text.size(), 100 * overhead);
}

TEST(TextHistory, DropsTheFarthestStepsToRedoAboveTheMaximum) {
    Editor editor;
    editor.history = TextHistory(10 * overhead);
    for (int count = 0; count < 3; ++count)
        editor.insert(TextEditKind::other, std::string(6 * overhead, 'a'));
    EXPECT_EQ(undoSteps(editor), 3);
    EXPECT_LE(editor.history.heldBytes(), 10 * overhead);
    EXPECT_TRUE(editor.redo());
    EXPECT_EQ(editor.now.text.size(), 6 * overhead);
    EXPECT_FALSE(editor.redo());
}

TEST(TextHistory, LargeStepsToRedoDoNotDisplaceThoseToUndo) {
    Editor editor;
    editor.history = TextHistory(14 * overhead);
    editor.press("^^^^");
    editor.insert(TextEditKind::other, std::string(6 * overhead, 'a'));
    editor.insert(TextEditKind::other, std::string(6 * overhead, 'a'));
    EXPECT_TRUE(editor.undo());
    EXPECT_TRUE(editor.undo());
    EXPECT_LE(editor.history.heldBytes(), 14 * overhead);
    EXPECT_EQ(undoSteps(editor), 4);
}

} // namespace
} // namespace korvane
