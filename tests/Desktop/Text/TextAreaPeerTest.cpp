/// The text area and Qt's plain-text editor get the same keys and clicks; text, caret and selection must
/// agree after each. What differs on purpose is not played:
///
/// - line breaks but LF and ill-formed UTF-8, which Qt's editor changes,
/// - single steps of the history, which are words here and whole runs there; undoing everything is played,
/// - page keys, which scroll by other amounts,
/// - Control with Up or Down, which Qt's editor does not know,
/// - lines that begin with a right-to-left script, which are on the left here and on the right there,
/// - the end of a row that is wrapped without a space, from where Qt's editor goes on to the next row.

#include "Desktop/Binding/Strings.h"
#include "Desktop/Text/TextAreaSubject.h"
#include "Utilities/Text/Lines.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextLayout>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

struct KeyPress {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

const std::vector<KeyPress> keys{
    {Qt::Key_Left, Qt::NoModifier},
    {Qt::Key_Right, Qt::NoModifier},
    {Qt::Key_Left, Qt::ControlModifier},
    {Qt::Key_Right, Qt::ControlModifier},
    {Qt::Key_Up, Qt::NoModifier},
    {Qt::Key_Down, Qt::NoModifier},
    {Qt::Key_Home, Qt::NoModifier},
    {Qt::Key_End, Qt::NoModifier},
    {Qt::Key_Home, Qt::ControlModifier},
    {Qt::Key_End, Qt::ControlModifier},
    {Qt::Key_Left, Qt::ShiftModifier},
    {Qt::Key_Right, Qt::ShiftModifier},
    {Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier},
    {Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier},
    {Qt::Key_Up, Qt::ShiftModifier},
    {Qt::Key_Down, Qt::ShiftModifier},
    {Qt::Key_Home, Qt::ShiftModifier},
    {Qt::Key_End, Qt::ShiftModifier},
    {Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier},
    {Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier},
    {Qt::Key_A, Qt::ControlModifier},
    {Qt::Key_Backspace, Qt::NoModifier},
    {Qt::Key_Delete, Qt::NoModifier},
    {Qt::Key_Backspace, Qt::ControlModifier},
    {Qt::Key_Delete, Qt::ControlModifier},
    {Qt::Key_K, Qt::ControlModifier},
    {Qt::Key_Return, Qt::NoModifier},
};

bool hasRightToLeftLine(const std::string& text) {
    return std::ranges::any_of(linesOf(text), [](auto line) { return qString(line).isRightToLeft(); });
}

struct Peers {
    Peers() {
        QApplication::setDoubleClickInterval(0);
        const QFont font(QStringLiteral("monospace"));
        editor.setFrameStyle(QFrame::NoFrame);
        editor.document()->setDocumentMargin(0);
        editor.setFont(font);
        editor.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        editor.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        editor.setTabChangesFocus(true);
        area.setStyle({.font = font, .lineHeight = QFontMetrics(font).lineSpacing()});
        for (QWidget* widget : std::initializer_list<QWidget*>{&area, &editor}) {
            widget->resize(200, 400);
            widget->show();
        }
    }

    void press(const KeyPress& key) {
        QTest::keyClick(&area, key.key, key.modifiers);
        QTest::keyClick(&editor, key.key, key.modifiers);
    }

    void type(const std::string& text) {
        for (QWidget* widget : std::initializer_list<QWidget*>{&area, &editor}) {
            QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, qString(text));
            QApplication::sendEvent(widget, &event);
        }
    }

    void paste(const std::string& text) {
        QApplication::clipboard()->setText(qString(text));
        area.paste();
        editor.paste();
    }

    /// Clicks before a character, where each of the two shows it: their rows may differ in height.
    void click(std::size_t offset, bool isDouble) {
        auto cursor = editor.textCursor();
        cursor.setPosition(static_cast<int>(area.text().utf16Offset(offset)));
        const auto places = {std::pair(area.viewport(), area.caretRect(offset).center()),
                             std::pair(editor.viewport(), editor.cursorRect(cursor).center())};
        for (const auto& [viewport, place] : places) {
            QTest::mouseClick(viewport, Qt::LeftButton, {}, place);
            if (isDouble)
                QTest::mouseDClick(viewport, Qt::LeftButton, {}, place);
        }
        QApplication::processEvents(); // so that the next click is not a third one
    }

    std::string areaState() const {
        const auto unit = [this](std::size_t offset) {
            return std::to_string(area.text().utf16Offset(offset));
        };
        return area.text().string() + " | " + unit(area.selection().anchor) + " " +
               unit(area.selection().caret);
    }

    std::string editorState() const {
        const auto cursor = editor.textCursor();
        return utf8String(editor.toPlainText()) + " | " + std::to_string(cursor.anchor()) + " " +
               std::to_string(cursor.position());
    }

    /// Whether the caret of Qt's editor is at the start of a row that continues a line.
    bool isBehindRow() const {
        const auto place = editor.textCursor().positionInBlock();
        const auto row = editor.textCursor().block().layout()->lineForTextPosition(place);
        return row.lineNumber() > 0 && row.textStart() == place;
    }

    ~Peers() { QApplication::setDoubleClickInterval(interval); }

    Peers(const Peers&) = delete;
    Peers& operator=(const Peers&) = delete;

    const int interval = QApplication::doubleClickInterval();
    TextArea area{};
    QPlainTextEdit editor{};
};

RC_GTEST_PROP(TextAreaPeerTest, DoesWhatTheEditorOfQtDoes, ()) {
    Peers peers;
    const auto steps = *rc::gen::inRange(1, 60);
    for (int step = 0; step < steps; ++step) {
        std::string played;
        bool isEnd = false;
        switch (*rc::gen::inRange(0, 8)) {
        case 0: {
            const auto text =
                *rc::gen::elementOf(Texts{"a", "Z", " ", ".", "é", "漢", "👍", "e\u0301", "שלום", "("});
            played = "type(" + text + ")";
            peers.type(text);
            break;
        }
        case 1: {
            const auto text = *rc::gen::elementOf(Texts{"two words ", "a.b_c(d)\n", "\n\n", "  indented\n",
                                                        "some words that are wrapped into rows",
                                                        "אבג abc דהו\n", "👩‍👧👍🏽\n", "x"});
            played = "paste(" + text + ")";
            peers.paste(text);
            break;
        }
        case 2: {
            const auto& text = peers.area.text();
            const auto offset = text.byteOffset(*rc::gen::inRange<std::size_t>(0, text.utf16Size() + 1));
            const bool isDouble = *rc::gen::arbitrary<bool>();
            played = "click(" + std::to_string(offset) + (isDouble ? ", double)" : ")");
            peers.click(offset, isDouble);
            break;
        }
        default: {
            const auto index = *rc::gen::inRange<std::size_t>(0, keys.size());
            const QKeySequence sequence(QKeyCombination(keys[index].modifiers, keys[index].key));
            played = utf8String(sequence.toString());
            peers.press(keys[index]);
            isEnd = keys[index].key == Qt::Key_End;
        }
        }
        if (hasRightToLeftLine(peers.area.text().string()) || (isEnd && peers.isBehindRow()))
            return;
        RC_LOG(played);
        RC_ASSERT(peers.areaState() == peers.editorState());
    }
    while (peers.area.canUndo())
        peers.area.undo();
    RC_ASSERT(peers.area.text() == "");
}

} // namespace
} // namespace korvane
