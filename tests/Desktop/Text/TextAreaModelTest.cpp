#include "Desktop/Text/TextAreaSubject.h"
#include "Utilities/Text/Text.h"

#include <QScrollBar>
#include <rapidcheck/gtest.h>

#include <algorithm>

namespace korvane {
namespace {

using TextAreaModelTest = TextAreaTest;

using Pieces = std::vector<std::string>;

/// Texts of characters that text controls often handle wrongly.
std::string anyText(std::size_t maxPieces) {
    const auto pieces =
        *rc::gen::resize(static_cast<int>(maxPieces),
                         rc::gen::container<Pieces>(rc::gen::elementOf(Pieces{"a",
                                                                              "b ",
                                                                              "\t",
                                                                              "ü",
                                                                              "e\u0301",
                                                                              "👍",
                                                                              "👩‍👧",
                                                                              "漢",
                                                                              "ש",
                                                                              "\n",
                                                                              "\n",
                                                                              "\r",
                                                                              "\r\n",
                                                                              "\v",
                                                                              "\f",
                                                                              "\u0085",
                                                                              "\u2028",
                                                                              "\u2029",
                                                                              "\uFDD0",
                                                                              "\uFDD1",
                                                                              "\uFFFC",
                                                                              "\u00A0",
                                                                              "\uFEFF",
                                                                              std::string(1, '\0'),
                                                                              "a long line to be cut",
                                                                              "😀😀😀😀😀😀"})));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    return text;
}

/// A text area and a plain string as its model. The caret and the anchor of the selection are byte offsets in
/// the model.
class ModelComparison {
public:
    void step() {
        constexpr int operations = 10;
        const int operation = *rc::gen::inRange(0, operations);
        placeCaret();
        const auto from = std::min(m_anchor, m_caret);
        const auto selected = std::max(m_anchor, m_caret) - from;
        RC_ASSERT(m_subject.area.selectedText() == m_model.substr(from, selected));
        const int editsBefore = m_subject.edits;
        const auto before = m_model;
        switch (operation) {
        case 0:
        case 1: {
            const std::string text = *rc::gen::elementOf(Pieces{"x", "ü", "👍", " "});
            m_subject.type(QString::fromStdString(text));
            m_model.replace(from, selected, text);
            break;
        }
        case 2:
            m_subject.press(Qt::Key_Return);
            m_model.replace(from, selected, "\n");
            break;
        case 3:
        case 4: {
            const auto text = anyText(12);
            m_subject.paste(text);
            if (!text.empty())
                m_model.replace(from, selected, text);
            break;
        }
        case 5:
            m_subject.press(Qt::Key_Backspace);
            if (selected > 0)
                m_model.erase(from, selected);
            else
                eraseFromModel(from - (m_model.size() - m_subject.area.text().size()), from);
            break;
        case 6:
            m_subject.press(Qt::Key_Delete);
            if (selected > 0)
                m_model.erase(from, selected);
            else
                eraseFromModel(from, from + m_model.size() - m_subject.area.text().size());
            break;
        case 7:
            m_model = anyText(30);
            m_subject.area.setText(m_model);
            RC_ASSERT(m_subject.edits == editsBefore);
            check();
            return;
        default:
            moveInHistory();
            return;
        }
        check();
        RC_ASSERT(m_subject.edits == editsBefore + (m_model == before ? 0 : 1));
        RC_ASSERT(m_subject.edits == editsBefore || m_subject.reported == m_model);
    }

    /// Undoing everything restores the empty text, redoing everything the last one.
    void finish() {
        m_subject.area.setText("the end");
        while (m_subject.area.canUndo())
            m_subject.area.undo();
        m_model = "";
        check();
        while (m_subject.area.canRedo())
            m_subject.area.redo();
        m_model = "the end";
        check();
    }

private:
    /// Puts the caret somewhere, with a selection or without.
    void placeCaret() {
        const auto anyPlace = [this] { return *rc::gen::inRange<std::size_t>(0, m_model.size() + 1); };
        const auto anchor = anyPlace();
        m_subject.select(anchor, *rc::gen::arbitrary<bool>() ? anchor : anyPlace());
        m_anchor = m_subject.area.selection().anchor;
        m_caret = m_subject.area.selection().caret;
    }

    /// Erases what a deletion without a selection has removed: at most one user-perceived character, and
    /// nothing only at an end of the text.
    void eraseFromModel(std::size_t from, std::size_t to) {
        RC_ASSERT(from <= to && to <= m_model.size());
        RC_ASSERT(from < to || m_caret == 0u || m_caret == m_model.size());
        const std::string_view model = m_model;
        RC_ASSERT(characterCount(model.substr(0, to)) <= characterCount(model.substr(0, from)) + 1);
        m_model.erase(from, to - from);
    }

    /// Undoes one step, and redoes everything or not.
    void moveInHistory() {
        const bool atTheEnd = !m_subject.area.canRedo();
        const auto before = m_model;
        m_subject.area.undo();
        m_model = m_subject.area.text().string();
        check();
        if (*rc::gen::arbitrary<bool>())
            return;
        while (m_subject.area.canRedo())
            m_subject.area.redo();
        if (atTheEnd)
            m_model = before;
        else
            m_model = m_subject.area.text().string();
        check();
    }

    void check() {
        auto& area = m_subject.area;
        RC_ASSERT(area.text() == m_model);
        area.setLineNumbers(true);
        area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
        const auto numbers = area.visibleNumbers();
        // None where the last line begins above the view. (The macro would print both sides of a bare ||.)
        if (!numbers.empty())
            RC_ASSERT(numbers.back().number == lineCount(m_model));
    }

    Subject m_subject{8, 300};
    std::string m_model{};
    std::size_t m_anchor = 0;
    std::size_t m_caret = 0;
};

RC_GTEST_FIXTURE_PROP(TextAreaModelTest, HoldsTheSameTextAsAPlainString, ()) {
    ModelComparison comparison;
    const int steps = *rc::gen::inRange(1, 40);
    for (int step = 0; step < steps; ++step)
        comparison.step();
    comparison.finish();
}

} // namespace
} // namespace korvane
