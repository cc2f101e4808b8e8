#include "support/TextAreaProperties.h"

#include "Desktop/Text/TextArea.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace korvane::support {

namespace {

constexpr std::size_t maxTextSize = 20'000; // so that a step stays quick
constexpr int maxUndoSteps = 10'000;

constexpr std::array keys{
    Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Home,   Qt::Key_End,
    Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_A,
    Qt::Key_C,      Qt::Key_V,        Qt::Key_X,      Qt::Key_Y,         Qt::Key_Z,      Qt::Key_K,
    Qt::Key_Insert, Qt::Key_Tab,      Qt::Key_Escape,
};

/// As bytes, among them ill-formed sequences.
const std::array<std::string_view, 24> texts{"a",        " ",
                                             "\t",       "word word ",
                                             "\n",       "\r\n",
                                             "\r",       "\v",
                                             "\u2028",   "e\u0301",
                                             "\u0301",   "שלום ",
                                             "\u202E",   "👩‍👧",
                                             "👍🏽",     "漢字",
                                             "\xF0\x9F", "\x9F\x91",
                                             "\xC0\xFF", "\xED\xA0\x80",
                                             "\uFEFF",   "0123456789012345678901234567890123456789",
                                             "ﬁ.Ÿ",      "\u200B\u2066x\u2069"};

class Player {
public:
    Player() {
        m_area.setStyle(
            {.font = QFont(QStringLiteral("monospace")), .lineHeight = 21, .inset = {8, 8, 8, 8}});
        m_area.resize(220, 160);
        m_area.onEdit = [this](const Rope& text) { m_reported = text; };
        m_area.show();
    }

    void step(unsigned char action, unsigned char argument) {
        switch (action % 12) {
        case 0:
        case 1:
        case 2:
            press(keys[argument % keys.size()], action);
            break;
        case 3:
            type(texts[argument % texts.size()]);
            break;
        case 4:
            paste(argument);
            break;
        case 5:
            click(action, argument);
            break;
        case 6:
            compose(argument);
            break;
        case 7:
            m_area.resize(60 + argument, 40 + argument);
            break;
        case 8:
            m_area.verticalScrollBar()->setValue(m_area.verticalScrollBar()->maximum() * argument / 255);
            break;
        case 9:
            mark(argument);
            break;
        case 10:
            if (argument % 8 == 0)
                m_area.setLineNumbers(argument % 16 == 0);
            else
                drop(argument);
            break;
        default:
            readByAssistiveTechnology(argument);
        }
    }

    std::string broken() {
        m_area.grab();
        const auto& text = m_area.text();
        for (const auto offset : {m_area.selection().anchor, m_area.selection().caret}) {
            if (offset > text.size())
                return "the selection is outside of the text";
            if (text.summaryBefore(offset).bytes != offset)
                return "the selection is inside of a character";
        }
        if (m_reported && *m_reported != text)
            return "an edit was not reported";
        return m_area.selectedText() == text.string(m_area.selection().from(), m_area.selection().to())
                   ? ""
                   : "the selected text is not of the text";
    }

    std::string brokenHistory() {
        const auto last = m_area.text();
        for (int steps = 0; m_area.canUndo(); ++steps) {
            if (steps == maxUndoSteps)
                return "undo does not end";
            m_area.undo();
        }
        if (!m_area.text().empty())
            return "undo does not restore the first text";
        while (m_area.canRedo())
            m_area.redo();
        return !m_hasUndone && m_area.text() != last ? "redo does not restore the last text" : "";
    }

private:
    void press(Qt::Key key, unsigned char action) {
        static constexpr std::array<Qt::KeyboardModifiers, 4> modifiers{
            Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::ShiftModifier | Qt::ControlModifier};
        const auto modifier = modifiers[action / 12 % modifiers.size()];
        m_hasUndone = m_hasUndone || (key == Qt::Key_Z && modifier.testFlag(Qt::ControlModifier));
        QKeyEvent event(QEvent::KeyPress, key, modifier);
        QApplication::sendEvent(&m_area, &event);
    }

    void type(std::string_view text) {
        if (m_area.text().size() > maxTextSize)
            return;
        for (const QChar unit : QString::fromUtf8(text)) { // surrogates come one by one, too
            QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, unit);
            QApplication::sendEvent(&m_area, &event);
        }
    }

    void paste(unsigned char argument) {
        auto data = std::make_unique<QMimeData>();
        QByteArray bytes;
        const auto count = m_area.text().size() > maxTextSize ? 0 : 1 + argument / texts.size();
        for (std::size_t index = 0; index < count; ++index)
            bytes += QByteArray::fromStdString(std::string(texts[(argument + index) % texts.size()]));
        data->setData(QStringLiteral("text/plain;charset=utf-8"), bytes);
        QApplication::clipboard()->setMimeData(data.release());
        m_area.paste();
    }

    void click(unsigned char action, unsigned char argument) {
        const QPointF place = QPoint(argument % 16 * 15 - 10, argument / 16 * 12 - 10);
        const auto modifiers = action / 12 % 2 == 0 ? Qt::NoModifier : Qt::ShiftModifier;
        const auto send = [&](QEvent::Type type, QPointF where, Qt::MouseButtons held) {
            QMouseEvent event(type, where, m_area.viewport()->mapToGlobal(where), Qt::LeftButton, held,
                              modifiers);
            QApplication::sendEvent(m_area.viewport(), &event);
        };
        const bool isDouble = action / 24 % 2 == 1;
        send(isDouble ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, place, Qt::LeftButton);
        if (m_area.selection().isEmpty()) // a drag of selected text would wait for the drop
            send(QEvent::MouseMove, place + QPointF(5, 5), Qt::LeftButton);
        send(QEvent::MouseButtonRelease, place, Qt::NoButton);
    }

    void compose(unsigned char argument) {
        const auto text = QString::fromUtf8(texts[argument % texts.size()]);
        const bool commits = argument >= 128;
        QInputMethodEvent event(commits ? QString() : text, {});
        if (commits && m_area.text().size() <= maxTextSize)
            event.setCommitString(text, -(argument % 3), argument % 5);
        QApplication::sendEvent(&m_area, &event);
    }

    void mark(unsigned char argument) {
        std::vector<TextMark> marks;
        for (std::size_t from = argument % 7; from < m_area.text().size(); from += 1 + argument % 11)
            marks.push_back({from, from + argument % 13, static_cast<TextMarkKind>(argument % 11)});
        m_area.setMarks(argument % 2 == 0 ? TextMarkLayer::content : TextMarkLayer::search,
                        TextMarks(std::move(marks)));
    }

    void drop(unsigned char argument) {
        if (m_area.text().size() > maxTextSize)
            return;
        QMimeData data;
        data.setText(QString::fromUtf8(texts[argument % texts.size()]));
        const QPointF place = QPoint(argument % 16 * 15, argument / 16 * 12);
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_area.viewport(), &event);
    }

    void readByAssistiveTechnology(unsigned char argument) {
        auto* interface = QAccessible::queryAccessibleInterface(&m_area);
        auto* text = interface ? interface->textInterface() : nullptr;
        if (!text)
            return;
        const int offset = argument - 5;
        int start = 0;
        int end = 0;
        for (const auto boundary : {QAccessible::CharBoundary, QAccessible::WordBoundary,
                                    QAccessible::LineBoundary, QAccessible::ParagraphBoundary}) {
            text->textAtOffset(offset, boundary, &start, &end);
            text->textBeforeOffset(offset, boundary, &start, &end);
            text->textAfterOffset(offset, boundary, &start, &end);
        }
        text->text(0, text->characterCount());
        text->characterRect(offset);
        text->offsetAtPoint({argument, argument});
        if (argument % 4 == 0)
            text->setSelection(0, offset, offset + argument % 9);
        if (argument % 4 == 1)
            text->setCursorPosition(offset);
        if (auto* editable = interface->editableTextInterface(); editable && argument % 4 == 2)
            editable->deleteText(offset, offset + argument % 5);
    }

    TextArea m_area{};
    std::optional<Rope> m_reported{};
    bool m_hasUndone = false;
};

} // namespace

std::string brokenTextAreaProperty(std::string_view program) {
    Player player;
    for (std::size_t step = 0; 2 * step + 1 < program.size(); ++step) {
        player.step(static_cast<unsigned char>(program[2 * step]),
                    static_cast<unsigned char>(program[2 * step + 1]));
        if (auto broken = player.broken(); !broken.empty())
            return "after step " + std::to_string(step) + " " + broken;
    }
    return player.brokenHistory();
}

} // namespace korvane::support
