#include "Desktop/Text/TextAreaSubject.h"
#include "Utilities/Text/Text.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScrollBar>

#include <tuple>

namespace korvane {
namespace {

using namespace std::string_view_literals;

struct TextRow {
    std::string_view name;
    std::string_view text;
};

constexpr TextRow texts[] = {
    {"nothing", ""sv},
    {"one line", "Hello"sv},
    {"line feeds at both ends", "\n\na\n\n"sv},
    {"CR LF", "a\r\nb\r\n"sv},
    {"lone carriage returns, also at the end", "\ra\r\rb\r"sv},
    {"line feed before carriage return", "\n\r\n\r"sv},
    {"vertical tab and form feed", "a\vb\f\v"sv},
    {"next line, line and paragraph separator", "\u0085a\u2028b\u2029\u2029"sv},
    {"null characters", "\0a\0\0"sv},
    {"no-break spaces", "\u00A0a\u00A0\u202Fb\u00A0"sv},
    {"noncharacters", "a\uFDD0b\uFDD1\uFDD0\uFFFE\uFFFF"sv},
    {"object replacement", "\uFFFCa\uFFFC"sv},
    {"byte-order marks", "\uFEFFa\uFEFF\n\uFEFF"sv},
    {"replacement character", "\uFFFD"sv},
    {"control characters", "\x01\x02\x1b\x7f\t\b"sv},
    {"soft hyphens and zero-width spaces", "a\u00ADb\u200Bc\u2060"sv},
    {"beyond the basic multilingual plane",
     "👍👍🏽 👨‍👩‍👧‍👦 𝔘𝔫𝔦𝔠𝔬𝔡𝔢 \U0010FFFF"sv},
    {"more marks than fit into a piece",
     "e\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301"sv},
    {"both directions", "abc שלום def مرحبا\u202E x\u202C"sv},
    {"a line of many pieces", "0123456789abcdefghijklmnopqrstuvwxyz0123456789abcdefghijklmnopqrstuvwxyz"sv},
    {"long lines between breaks", "0123456789abcdefghij\r\n0123456789abcdefghij\r0123456789\u2028"sv},
};

constexpr std::string_view invalidTexts[] = {"\xff"sv, "a\xc3"sv, "\xed\xa0\x80z"sv, "\xe6\xbc\n\r\n"sv,
                                             "\xef\xbb\xbf\x80"sv};

TEST_F(TextAreaTest, ReturnsTheTextThatWasSet) {
    for (const int maxPiece : {2, 8, 160, defaultMaxPieceLength}) {
        for (const bool readOnly : {false, true}) {
            Subject subject(maxPiece);
            subject.area.setReadOnly(readOnly);
            for (const auto& row : texts) {
                subject.area.setText(row.text);
                EXPECT_EQ(subject.area.text(), row.text) << row.name;
                subject.area.selectAll();
                EXPECT_EQ(subject.area.selectedText(), row.text) << row.name;
            }
            EXPECT_EQ(subject.edits, 0);
        }
    }
}

TEST_F(TextAreaTest, PastesAndCopiesExactly) {
    for (const auto& row : texts) {
        Subject subject;
        subject.paste(row.text);
        EXPECT_EQ(subject.area.text(), row.text) << row.name;
        EXPECT_EQ(subject.reported, row.text) << row.name;
        EXPECT_EQ(subject.edits, row.text.empty() ? 0 : 1) << row.name;
        if (!row.text.empty()) {
            EXPECT_EQ(subject.copied(), row.text) << row.name;
        }
        subject.area.undo();
        EXPECT_EQ(subject.area.text(), "") << row.name;
        subject.area.redo();
        EXPECT_EQ(subject.area.text(), row.text) << row.name;
    }
}

TEST_F(TextAreaTest, KeepsBytesThatAreNotUTF8) {
    for (const auto text : invalidTexts) {
        Subject subject;
        subject.area.setText(text);
        EXPECT_EQ(subject.area.text(), text);
        const auto shown = subject.copied();
        EXPECT_TRUE(isValidUTF8(shown));
        EXPECT_NE(shown.find("\uFFFD"), std::string::npos);
        subject.press(Qt::Key_End, Qt::ControlModifier);
        subject.type(QStringLiteral("x"));
        EXPECT_EQ(subject.area.text(), std::string(text) + "x");
        EXPECT_EQ(subject.reported, std::string(text) + "x");
    }
}

TEST_F(TextAreaTest, ReplacesLoneSurrogates) {
    Subject subject;
    auto* data = new QMimeData;
    data->setText(QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b") + QChar(0xDC4D));
    QApplication::clipboard()->setMimeData(data);
    subject.area.paste();
    EXPECT_EQ(subject.area.text(), "a\uFFFDb\uFFFD");
}

TEST_F(TextAreaTest, JoinsTheHalvesOfASurrogatePairThatAreTypedOneAfterTheOther) {
    Subject subject;
    for (const auto half : QStringLiteral("👍x"))
        subject.type(half);
    EXPECT_EQ(subject.area.text(), "👍x");
    EXPECT_EQ(subject.edits, 2);
}

TEST_F(TextAreaTest, ReportsEachEditOnce) {
    Subject subject;
    const auto expectOneEdit = [&](std::string_view text) {
        EXPECT_EQ(subject.edits, 1);
        EXPECT_EQ(subject.reported, text);
        EXPECT_EQ(subject.area.text(), text);
        subject.edits = 0;
    };
    subject.type(QStringLiteral("a"));
    expectOneEdit("a");
    subject.press(Qt::Key_Return);
    expectOneEdit("a\n");
    subject.press(Qt::Key_Return, Qt::ShiftModifier);
    expectOneEdit("a\n\n");
    subject.press(Qt::Key_Backspace);
    expectOneEdit("a\n");
    subject.paste("x\r\ny");
    expectOneEdit("a\nx\r\ny");
    subject.area.undo();
    expectOneEdit("a\n");
    subject.area.redo();
    expectOneEdit("a\nx\r\ny");
    subject.area.selectAll();
    subject.area.cut();
    expectOneEdit("");
    subject.press(Qt::Key_Backspace);
    subject.press(Qt::Key_Delete);
    subject.press(Qt::Key_Left);
    EXPECT_EQ(subject.edits, 0);
}

TEST_F(TextAreaTest, InsertsInputMethodTextExactly) {
    Subject subject;
    QInputMethodEvent composing(QStringLiteral("か"), {});
    QApplication::sendEvent(&subject.area, &composing);
    EXPECT_EQ(subject.area.text(), "");
    EXPECT_EQ(subject.edits, 0);
    QInputMethodEvent committing;
    committing.setCommitString(QStringLiteral("漢"));
    QApplication::sendEvent(&subject.area, &committing);
    EXPECT_EQ(subject.area.text(), "漢");
    EXPECT_EQ(subject.edits, 1);
    QInputMethodEvent breaking;
    breaking.setCommitString(QStringLiteral("\r\n\u2028x"));
    QApplication::sendEvent(&subject.area, &breaking);
    EXPECT_EQ(subject.area.text(), "漢\r\n\u2028x");
    EXPECT_EQ(subject.edits, 2);
}

TEST_F(TextAreaTest, AnEditMayBeAnsweredBySettingAnotherText) {
    Subject subject;
    subject.area.onEdit = [&](const Rope&) {
        ++subject.edits;
        subject.area.setText("another text");
    };
    subject.type(QStringLiteral("x"));
    subject.area.undo();
    EXPECT_EQ(subject.edits, 2);
    EXPECT_EQ(subject.area.text(), "another text");
}

TEST_F(TextAreaTest, SettingATextEndsAComposition) {
    Subject subject;
    subject.area.setText("some text");
    QInputMethodEvent composing(QStringLiteral("か"), {});
    QApplication::sendEvent(&subject.area, &composing);
    subject.area.setText("");
    subject.picture();
    QInputMethodEvent committing;
    committing.setCommitString(QStringLiteral("漢"));
    QApplication::sendEvent(&subject.area, &committing);
    EXPECT_EQ(subject.area.text(), "漢");
}

TEST_F(TextAreaTest, TypingAfterALineBreakKeepsItsKind) {
    Subject subject;
    for (const auto* lineBreak : {"\r\n", "\r", "\u2028", "\v", "\uFDD0"}) {
        const std::string text = lineBreak;
        subject.area.setText(text);
        subject.press(Qt::Key_Return);
        subject.type(QStringLiteral("a"));
        subject.press(Qt::Key_Return);
        EXPECT_EQ(subject.area.text(), text + "\na\n");
    }
}

TEST_F(TextAreaTest, ReturnReplacesASelectionInOneEditAndKeepsSurroundingBreaks) {
    Subject subject;
    subject.area.setText("a\r\r\nb\vc");
    for (const auto& [from, to, text] : {std::tuple{0U, 2U, "\n\r\nb\vc"}, std::tuple{3U, 5U, "\n\r\n\nc"}}) {
        subject.edits = 0;
        subject.select(from, to);
        subject.press(Qt::Key_Return);
        EXPECT_EQ(subject.area.text(), text);
        EXPECT_EQ(subject.edits, 1);
    }
}

TEST_F(TextAreaTest, SettingTextCanBeUndone) {
    Subject subject;
    subject.type(QStringLiteral("typed"));
    subject.edits = 0;
    subject.area.setText("set\r\n0123456789abcdefghij");
    EXPECT_EQ(subject.edits, 0);
    EXPECT_EQ(subject.area.selection(), (TextSelection{25, 25}));
    subject.area.undo();
    EXPECT_EQ(subject.area.text(), "typed");
    EXPECT_EQ(subject.edits, 1);
    subject.area.redo();
    EXPECT_EQ(subject.area.text(), "set\r\n0123456789abcdefghij");
}

TEST_F(TextAreaTest, SettingTheSameTextChangesNothing) {
    Subject subject;
    subject.paste("one\r\ntwo");
    subject.select(1, 3);
    subject.area.undo();
    subject.area.setText("");
    EXPECT_TRUE(subject.area.canRedo());
    subject.area.redo();
    subject.select(1, 3);
    subject.area.setText("one\r\ntwo");
    EXPECT_EQ(subject.area.selectedText(), "ne");
}

TEST_F(TextAreaTest, ReadOnlyTextIsShownFromItsStartAndCannotBeChanged) {
    Subject subject;
    subject.area.setReadOnly(true);
    std::string text;
    for (int line = 0; line < 100; ++line)
        text += "line\n";
    subject.area.setText(text);
    EXPECT_EQ(subject.area.verticalScrollBar()->value(), 0);
    EXPECT_FALSE(subject.area.canUndo());
    subject.type(QStringLiteral("x"));
    subject.press(Qt::Key_Delete);
    subject.press(Qt::Key_Return, Qt::ShiftModifier);
    subject.paste("pasted");
    QMimeData data;
    data.setText(QStringLiteral("dropped"));
    // Qt gives a drop to whichever widget accepted something last, so a refused one ends here.
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.accept();
    QApplication::sendEvent(subject.area.viewport(), &enter);
    EXPECT_FALSE(enter.isAccepted());
    EXPECT_EQ(subject.area.text(), text);
    EXPECT_EQ(subject.edits, 0);
    subject.press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(subject.area.selectedText(), "l");
    EXPECT_EQ(subject.copied(), text);
}

TEST_F(TextAreaTest, AcceptsPlainTextOnly) {
    Subject subject;
    const auto paste = [&](QMimeData* data) {
        QApplication::clipboard()->setMimeData(data);
        subject.area.paste();
    };
    auto* image = new QMimeData;
    image->setImageData(QImage(2, 2, QImage::Format_RGB32));
    paste(image);
    auto* html = new QMimeData;
    html->setHtml(QStringLiteral("<b>bold</b>"));
    paste(html);
    EXPECT_EQ(subject.area.text(), "");
    auto* both = new QMimeData;
    both->setHtml(QStringLiteral("<b>bold</b>"));
    both->setText(QStringLiteral("<plain>"));
    paste(both);
    EXPECT_EQ(subject.area.text(), "<plain>");
}

TEST_F(TextAreaTest, InsertsDroppedTextAtTheDropPosition) {
    Subject subject;
    subject.area.setText("one\ntwo");
    QMimeData data;
    data.setText(QStringLiteral("\r\n"));
    const QPointF startOfSecondRow(8, lineHeight + 1);
    QDragEnterEvent enter(startOfSecondRow.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(subject.area.viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(startOfSecondRow, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(subject.area.viewport(), &drop);
    EXPECT_EQ(subject.area.text(), "one\n\r\ntwo");
    EXPECT_EQ(subject.edits, 1);
}

TEST_F(TextAreaTest, TheCaretDoesNotStopAtSeams) {
    Subject subject;
    const std::string text = "0123456789abcdefghijklmnopqrstuvwxyz";
    subject.area.setText(text);
    subject.press(Qt::Key_Home, Qt::ControlModifier);
    for (std::size_t step = 0; step < text.size(); ++step) {
        subject.press(Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_EQ(subject.area.selectedText(), text.substr(0, step + 1));
    }
    for (std::size_t step = text.size(); step > 0; --step) {
        subject.press(Qt::Key_Left, Qt::ShiftModifier);
        EXPECT_EQ(subject.area.selectedText(), text.substr(0, step - 1));
    }
}

TEST_F(TextAreaTest, DeletesCharactersAcrossSeams) {
    const std::string text = "0123456789abcdefghijklmnopqrstuvwxyz";
    Subject subject;
    subject.area.setText(text);
    for (auto rest = text; !rest.empty();) {
        subject.press(Qt::Key_Backspace);
        rest.pop_back();
        EXPECT_EQ(subject.area.text(), rest);
    }
    subject.area.setText(text);
    subject.press(Qt::Key_Home, Qt::ControlModifier);
    for (auto rest = text; !rest.empty();) {
        subject.press(Qt::Key_Delete);
        rest.erase(0, 1);
        EXPECT_EQ(subject.area.text(), rest);
    }
    EXPECT_EQ(subject.edits, 2 * static_cast<int>(text.size()));
}

TEST_F(TextAreaTest, TabMovesTheFocus) {
    QWidget window;
    auto* first = new TextArea(&window);
    auto* second = new TextArea(&window);
    window.show();
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), second);
    EXPECT_EQ(first->text(), "");
}

} // namespace
} // namespace korvane
