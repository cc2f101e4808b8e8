#include "Desktop/Text/LineEdit.h"
#include "Desktop/Binding/Screen.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Stepper.h"
#include "Desktop/Controls/TextField.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Tools/Image/IntegerField.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSpinBox>
#include <QtTest/QTest>

#include <memory>

namespace korvane {
namespace {

struct Note {
    std::string text{};
    int number = 5;

    void setText(std::string newText) { text = std::move(newText); }

    void setNumber(int newNumber) { number = newNumber; }

    bool operator==(const Note&) const = default;
};

QWidget* lineEditBody(Store& store) {
    return row({textField(store, "Line", &Note::text, &Note::setText),
                integerField(store, "Number", &Note::number, &Note::setNumber, 80),
                stepper(store, "Count", &Note::number, &Note::setNumber, {.minimum = 1, .maximum = 99999})});
}

struct LineEditTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<Screen> frame{std::make_unique<Screen>(fakes.services, Note(), lineEditBody)};
    ScreenDriver screen{*frame};
    QLineEdit& line{screen.field("Line")};

    const Note& state() const { return frame->store().state<Note>(); }

    static void paste(QWidget& control, std::string_view text) {
        QApplication::clipboard()->setText(qString(text));
        QTest::keyClick(&control, Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(LineEditTest, PastedTextIsJoinedIntoOneLine) {
    struct Row {
        std::string_view pasted;
        std::string_view line;
    };

    constexpr Row rows[] = {
        {"1700000000\n", "1700000000"},
        {"1700000000\r\n", "1700000000"},
        {"one\ntwo\r\nthree\n\n", "one two three"},
        {"\n", ""},
        {" kept \n", " kept "},
        {"a\u2028b\u2029", "a b"},
    };
    for (const auto& row : rows) {
        line.selectAll();
        paste(line, row.pasted);
        EXPECT_EQ(utf8String(line.text()), row.line);
        EXPECT_EQ(state().text, row.line);
    }
}

TEST_F(LineEditTest, ATrailingBreakIsDroppedWhenPastedInsideAText) {
    screen.enter("Line", "ad");
    line.setCursorPosition(1);
    paste(line, "b\nc\n");
    EXPECT_EQ(line.text(), "ab cd");
    EXPECT_EQ(line.cursorPosition(), 4);
    line.setSelection(1, 3);
    paste(line, "x\n");
    EXPECT_EQ(line.text(), "axd");
    EXPECT_EQ(line.cursorPosition(), 2);
}

TEST_F(LineEditTest, PastingIsOneUndoStep) {
    screen.enter("Line", "before");
    line.setCursorPosition(6);
    paste(line, " and\nafter\n");
    ASSERT_EQ(line.text(), "before and after");
    line.undo();
    EXPECT_EQ(line.text(), "before");
    EXPECT_EQ(state().text, "before");
    line.redo();
    EXPECT_EQ(line.text(), "before and after");
    line.undo();
    line.undo();
    EXPECT_EQ(state().text, "");
}

TEST_F(LineEditTest, TextDroppedOrSetByAssistiveTechnologyIsJoinedIntoOneLine) {
    QMimeData dropped;
    dropped.setText("dropped\n");
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&line, &enter);
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&line, &drop);
    EXPECT_EQ(state().text, "dropped");
    QAccessible::queryAccessibleInterface(&line)->setText(QAccessible::Value, "set\nby voice\n");
    EXPECT_EQ(state().text, "set by voice");
    EXPECT_EQ(line.text(), "set by voice");
}

TEST_F(LineEditTest, NumberFieldsAcceptPastedTextWithATrailingLineBreak) {
    auto& number = screen.field("Number");
    number.selectAll();
    paste(number, "800\n");
    EXPECT_EQ(state().number, 800);
    EXPECT_EQ(number.text(), "800");
    number.selectAll();
    paste(number, "8\n0\n");
    EXPECT_EQ(state().number, 800) << "two lines are no number";
    EXPECT_EQ(number.text(), "800");
    number.setCursorPosition(1);
    paste(number, "5\n");
    EXPECT_EQ(state().number, 8500);
    auto& count = screen.stepper("Count");
    count.selectAll();
    paste(count, "42\r\n");
    EXPECT_EQ(state().number, 42);
    EXPECT_EQ(count.text(), "42");
}

TEST_F(LineEditTest, KeepsLineBreaksSetByTheProgram) {
    frame->store().perform([](Note& note) { note.text = "two\nlines\n"; });
    EXPECT_EQ(line.text(), "two\nlines\n");
    EXPECT_EQ(state().text, "two\nlines\n");
}

} // namespace
} // namespace korvane
