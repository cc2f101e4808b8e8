#include "Desktop/Kit/TextArea.h"
#include "Utilities/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QImage>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

namespace korvane {
namespace {

using namespace std::string_view_literals;

constexpr int lineHeight = 21;

/// A shown text area that counts what it reports. Its pieces are short unless told otherwise, so that seams
/// are everywhere.
struct Subject {
    explicit Subject(int longestPiece = 8, int width = 400) : area(nullptr, longestPiece) {
        area.setStyle({.font = QFont(QStringLiteral("monospace")),
                       .lineHeight = lineHeight,
                       .text = Qt::black,
                       .placeholder = Qt::black,
                       .number = Qt::gray,
                       .selection = Qt::green,
                       .inset = {8, 8, 40, 8}});
        area.resize(width, 300);
        area.show();
        area.onEdit = [this](const std::string& text) {
            ++edits;
            reported = text;
        };
    }

    void select(int from, int to) {
        auto cursor = area.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        area.setTextCursor(cursor);
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&area, key, modifiers);
    }

    void type(const QString& text) {
        QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, text);
        QApplication::sendEvent(&area, &event);
    }

    void paste(std::string_view text) {
        QApplication::clipboard()->setText(toolkitString(text));
        area.paste();
    }

    /// The toolkit's conversion swallows a byte-order mark, but only at the start.
    static QString toolkitString(std::string_view text) {
        return QString::fromStdString("x" + std::string(text)).sliced(1);
    }

    std::string copied() {
        area.selectAll();
        area.copy();
        return QApplication::clipboard()->text().toStdString();
    }

    std::vector<std::size_t> numbers() const {
        std::vector<std::size_t> values;
        for (const auto& visible : area.visibleNumbers())
            values.push_back(visible.number);
        return values;
    }

    QImage picture() { return area.grab().toImage(); }

    TextArea area;
    int edits = 0;
    std::string reported{};
};

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
    {"beyond the basic plane",
     "👍👍🏽 👨‍👩‍👧‍👦 𝔘𝔫𝔦𝔠𝔬𝔡𝔢 \U0010FFFF"sv},
    {"marks that fit no piece",
     "e\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301"sv},
    {"both directions", "abc שלום def مرحبا\u202E x\u202C"sv},
    {"a line of many pieces", "0123456789abcdefghijklmnopqrstuvwxyz0123456789abcdefghijklmnopqrstuvwxyz"sv},
    {"long lines between breaks", "0123456789abcdefghij\r\n0123456789abcdefghij\r0123456789\u2028"sv},
};

constexpr std::string_view invalidTexts[] = {"\xff"sv, "a\xc3"sv, "\xed\xa0\x80z"sv, "\xe6\xbc\n\r\n"sv,
                                             "\xef\xbb\xbf\x80"sv};

int warnings = 0;

void countWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    ++warnings;
    ADD_FAILURE() << message.toStdString();
}

class TextAreaTest : public testing::Test {
protected:
    void SetUp() override { m_before = qInstallMessageHandler(countWarning); }

    void TearDown() override { qInstallMessageHandler(m_before); }

private:
    QtMessageHandler m_before = nullptr;
};

TEST_F(TextAreaTest, GivesBackWhatWasSet) {
    for (const int longestPiece : {2, 8, 160, longestPieceOfLine}) {
        for (const bool readOnly : {false, true}) {
            Subject subject(longestPiece);
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

TEST_F(TextAreaTest, PastesAndCopiesWhatItShows) {
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

TEST_F(TextAreaTest, KeepsBytesThatAreNotUTF8UntilAnEdit) {
    for (const auto text : invalidTexts) {
        Subject subject;
        subject.area.setText(text);
        EXPECT_EQ(subject.area.text(), text);
        const auto shown = subject.copied();
        EXPECT_TRUE(isValidUTF8(shown));
        EXPECT_NE(shown.find("\uFFFD"), std::string::npos);
        subject.press(Qt::Key_End, Qt::ControlModifier);
        subject.type(QStringLiteral("x"));
        EXPECT_EQ(subject.area.text(), shown + "x");
        EXPECT_EQ(subject.reported, shown + "x");
    }
}

TEST_F(TextAreaTest, ReplacesHalfSurrogatePairs) {
    Subject subject;
    auto* data = new QMimeData;
    data->setText(QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b") + QChar(0xDC4D));
    QApplication::clipboard()->setMimeData(data);
    subject.area.paste();
    EXPECT_EQ(subject.area.text(), "a\uFFFDb\uFFFD");
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

TEST_F(TextAreaTest, TakesInputMethodTextExactly) {
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

TEST_F(TextAreaTest, TypedTextNeverTakesOverTheBreakBeforeIt) {
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

TEST_F(TextAreaTest, SettingTextCanBeUndone) {
    Subject subject;
    subject.type(QStringLiteral("typed"));
    subject.edits = 0;
    subject.area.setText("set\r\n0123456789abcdefghij");
    EXPECT_EQ(subject.edits, 0);
    EXPECT_EQ(subject.area.textCursor().position(), subject.area.document()->characterCount() - 1);
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
    EXPECT_TRUE(subject.area.document()->isRedoAvailable());
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
    EXPECT_FALSE(subject.area.document()->isUndoAvailable());
    subject.type(QStringLiteral("x"));
    subject.press(Qt::Key_Delete);
    subject.press(Qt::Key_Return, Qt::ShiftModifier);
    subject.paste("pasted");
    QMimeData data;
    data.setText(QStringLiteral("dropped"));
    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(subject.area.viewport(), &drop);
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

TEST_F(TextAreaTest, TakesDroppedTextWhereItIsDropped) {
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

TEST_F(TextAreaTest, SeamsAreNoStopsForTheCaret) {
    Subject subject;
    const std::string text = "0123456789abcdefghijklmnopqrstuvwxyz";
    subject.area.setText(text);
    ASSERT_GT(subject.area.document()->blockCount(), 3);
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

TEST_F(TextAreaTest, DeletesRealCharactersAtSeams) {
    const std::string text = "0123456789abcdefghijklmnopqrstuvwxyz";
    Subject subject;
    subject.area.setText(text);
    for (auto rest = text; !rest.empty();) {
        subject.press(Qt::Key_Backspace);
        rest.pop_back();
        EXPECT_EQ(subject.area.text(), rest);
    }
    EXPECT_EQ(subject.area.document()->blockCount(), 1);
    subject.area.setText(text);
    subject.press(Qt::Key_Home, Qt::ControlModifier);
    for (auto rest = text; !rest.empty();) {
        subject.press(Qt::Key_Delete);
        rest.erase(0, 1);
        EXPECT_EQ(subject.area.text(), rest);
    }
    EXPECT_EQ(subject.area.document()->blockCount(), 1);
    EXPECT_EQ(subject.edits, 2 * static_cast<int>(text.size()));
}

TEST_F(TextAreaTest, TypingCutsALineThatBecomesTooLong) {
    Subject subject;
    std::string text;
    for (int character = 0; character < 100; ++character) {
        subject.type(QStringLiteral("x"));
        text += 'x';
        ASSERT_EQ(subject.area.text(), text);
    }
    EXPECT_EQ(subject.edits, 100);
    for (auto block = subject.area.document()->begin(); block.isValid(); block = block.next())
        EXPECT_LE(block.length(), 17);
}

TEST_F(TextAreaTest, NeverCutsInsideACharacter) {
    Subject subject;
    subject.area.setText("a👍👍👍👍👍👍e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301");
    ASSERT_GT(subject.area.document()->blockCount(), 2);
    for (auto block = subject.area.document()->begin(); block.isValid(); block = block.next()) {
        EXPECT_FALSE(block.text().startsWith(QChar(0x301)));
        EXPECT_FALSE(block.text().at(0).isLowSurrogate());
    }
}

TEST_F(TextAreaTest, CutsALineOfEmojiIntoShorterPieces) {
    Subject subject(longestPieceOfLine);
    std::string text;
    for (int character = 0; character < 500; ++character)
        text += "👨‍👩‍👧‍👦";
    subject.area.setText(text);
    EXPECT_EQ(subject.area.text(), text);
    EXPECT_GT(subject.area.document()->blockCount(), 5);
    for (auto block = subject.area.document()->begin(); block.isValid(); block = block.next())
        EXPECT_TRUE(block.text().startsWith(QStringLiteral("👨‍👩‍👧‍👦"))) << block.position();
}

struct NumberRow {
    std::string_view name;
    std::string_view text;
    std::vector<std::size_t> numbers;
};

TEST_F(TextAreaTest, NumbersLinesAsTheyAreCounted) {
    const NumberRow rows[] = {
        {"nothing", "", {1}},
        {"two lines, each ended", "a\nb\n", {1, 2, 3}},
        {"CR LF counts twice", "a\r\nb\r\n", {1, 3, 5}},
        {"CR LF made of two breaks", "a\n\rb", {1, 2, 3}},
        {"every newline", "a\vb\fc\u0085d\u2028e\u2029f\rg", {1, 2, 3, 4, 5, 6, 7}},
        {"noncharacters end no line", "a\uFDD0b\nc", {1, 2}},
        {"a long line is one line", "0123456789abcdefghij\nb", {1, 2}},
    };
    for (const auto& row : rows) {
        Subject subject;
        subject.area.setLineNumbers(true);
        subject.area.setText(row.text);
        EXPECT_EQ(subject.numbers(), row.numbers) << row.name;
        EXPECT_EQ(subject.numbers().back(), lineCount(row.text)) << row.name;
    }
}

TEST_F(TextAreaTest, EachNumberStandsBesideItsLine) {
    Subject subject(longestPieceOfLine, 200);
    subject.area.setLineNumbers(true);
    const std::string longLine(60, 'w');
    subject.area.setText("a\n" + longLine + "\n👍漢\n" + longLine + "\nlast");
    subject.press(Qt::Key_Home, Qt::ControlModifier);
    for (const int top : {0, 1, 2, 3}) {
        subject.area.verticalScrollBar()->setValue(top);
        const int y = subject.area.viewport()->y();
        std::size_t shown = 0;
        for (auto block = subject.area.document()->begin(); block.isValid(); block = block.next()) {
            auto cursor = QTextCursor(block);
            const auto rect = subject.area.cursorRect(cursor);
            const int row = static_cast<int>(std::floor(rect.bottom() / double(lineHeight)));
            if (row < 0 || row * lineHeight >= subject.area.viewport()->height())
                continue;
            const auto numbers = subject.area.visibleNumbers();
            ASSERT_LT(shown, numbers.size());
            EXPECT_EQ(numbers[shown].number, static_cast<std::size_t>(block.blockNumber()) + 1);
            EXPECT_EQ(numbers[shown].place.top(), y + row * lineHeight);
            EXPECT_EQ(numbers[shown].place.height(), lineHeight);
            ++shown;
        }
        EXPECT_EQ(shown, subject.area.visibleNumbers().size());
    }
}

TEST_F(TextAreaTest, TheNumbersHaveTheRoomTheyNeed) {
    Subject subject;
    subject.area.setLineNumbers(true);
    const QFontMetrics metrics(subject.area.font());
    const auto room = [&](int digits) { return metrics.horizontalAdvance(QString(digits, u'0')) + 16; };
    EXPECT_NEAR(subject.area.viewport()->x(), room(2), 2);
    subject.area.setText(std::string(99, '\n'));
    EXPECT_NEAR(subject.area.viewport()->x(), room(3), 2);
    subject.area.setText(std::string(9999, '\n'));
    EXPECT_NEAR(subject.area.viewport()->x(), room(5), 2);
    for (const auto& [number, place] : subject.area.visibleNumbers())
        EXPECT_GE(place.width(), metrics.horizontalAdvance(QString::number(number)));
    subject.area.setText("");
    EXPECT_NEAR(subject.area.viewport()->x(), room(2), 2);
    subject.area.setLineNumbers(false);
    EXPECT_EQ(subject.area.viewport()->x(), 0);
    EXPECT_TRUE(subject.area.visibleNumbers().empty());
}

TEST_F(TextAreaTest, EveryRowHasTheSameHeight) {
    Subject subject(longestPieceOfLine);
    subject.area.setText("a\n👍漢字\nשלום\n\nb");
    subject.press(Qt::Key_Home, Qt::ControlModifier);
    auto block = subject.area.document()->begin();
    for (int row = 0; block.isValid(); ++row, block = block.next())
        EXPECT_EQ(subject.area.cursorRect(QTextCursor(block)).bottom() / lineHeight, row);
}

TEST_F(TextAreaTest, AClickAnywhereInARowMeetsItsCharacters) {
    Subject subject(longestPieceOfLine);
    subject.area.setText("first\nsecond\nthird");
    const auto x = subject.area.cursorRect(QTextCursor(subject.area.document()->findBlockByNumber(1))).x();
    const auto width = QFontMetrics(subject.area.font()).horizontalAdvance(u'0');
    for (int y = lineHeight; y < 2 * lineHeight; ++y) {
        QTest::mouseClick(subject.area.viewport(), Qt::LeftButton, {}, QPoint(x + 3 * width, y));
        EXPECT_EQ(subject.area.textCursor().position(), 9) << y;
    }
}

TEST_F(TextAreaTest, AResizeKeepsTheFirstVisibleLine) {
    Subject subject(longestPieceOfLine, 400);
    std::string text;
    for (int line = 0; line < 200; ++line)
        text +=
            "some words that have to be wrapped when the control is narrow " + std::to_string(line) + "\n";
    subject.area.setText(text);
    subject.area.verticalScrollBar()->setValue(100);
    const auto first = subject.area.cursorForPosition({0, 2}).block().blockNumber();
    ASSERT_GT(first, 10);
    for (const int width : {200, 300, 150, 700, 400}) {
        subject.area.resize(width, 300);
        EXPECT_EQ(subject.area.cursorForPosition({0, 2}).block().blockNumber(), first) << width;
    }
}

TEST_F(TextAreaTest, ThePlaceholderStandsWhereTheTextWould) {
    for (const bool numbers : {false, true}) {
        Subject subject(longestPieceOfLine);
        subject.area.setLineNumbers(numbers);
        const auto empty = subject.picture();
        subject.area.setPlaceholder(QStringLiteral("Hold the place"));
        const auto placeholder = subject.picture();
        EXPECT_NE(placeholder, empty);
        subject.area.setText("Hold the place");
        EXPECT_EQ(subject.picture(), placeholder);
    }
}

TEST_F(TextAreaTest, APreeditTextHidesThePlaceholder) {
    Subject subject;
    QInputMethodEvent composing(QStringLiteral("x"), {});
    QApplication::sendEvent(&subject.area, &composing);
    const auto without = subject.picture();
    subject.area.setPlaceholder(QStringLiteral("Hold the place"));
    EXPECT_EQ(subject.picture(), without);
}

TEST_F(TextAreaTest, TheSelectionHasNoGaps) {
    Subject subject(longestPieceOfLine, 200);
    subject.area.setText("a\n\nwords that go on in the next row, and in another\nlast");
    subject.area.selectAll();
    const auto picture = subject.picture();
    const int rows = subject.area.document()->lineCount();
    ASSERT_GT(rows, 5);
    // Just inside the right end of the lines, down to the last row, which ends earlier.
    const int right = subject.area.width() - 41;
    for (int y = 8; y < 8 + (rows - 1) * lineHeight; ++y)
        EXPECT_EQ(picture.pixelColor(right, y), QColor(Qt::green)) << y;
    EXPECT_NE(picture.pixelColor(right, 8 + (rows - 1) * lineHeight), QColor(Qt::green));
    EXPECT_NE(picture.pixelColor(right + 1, 8), QColor(Qt::green));
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

using Pieces = std::vector<std::string>;

/// Characters that have gone wrong in some text control.
std::string anyText(std::size_t most) {
    const auto pieces = *rc::gen::resize(
        static_cast<int>(most), rc::gen::container<Pieces>(rc::gen::elementOf(Pieces{"a",
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

/// A text area beside what it should hold. The model is a plain string; where the caret and the other end of
/// the selection are in it is told by the length of the text before them.
class Race {
public:
    void step() {
        constexpr int operations = 10;
        const int operation = *rc::gen::inRange(0, operations);
        place();
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
                takeOver(from - (m_model.size() - m_subject.area.text().size()), from);
            break;
        case 6:
            m_subject.press(Qt::Key_Delete);
            if (selected > 0)
                m_model.erase(from, selected);
            else
                takeOver(from, from + m_model.size() - m_subject.area.text().size());
            break;
        case 7:
            m_model = anyText(30);
            m_subject.area.setText(m_model);
            RC_ASSERT(m_subject.edits == editsBefore);
            check();
            return;
        default:
            travel();
            return;
        }
        check();
        RC_ASSERT(m_subject.edits == editsBefore + (m_model == before ? 0 : 1));
        RC_ASSERT(m_subject.edits == editsBefore || m_subject.reported == m_model);
    }

    /// The history leads back to the start and forth to the end without losing anything.
    void finish() {
        m_subject.area.setText("the end");
        while (m_subject.area.document()->isUndoAvailable())
            m_subject.area.undo();
        m_model = "";
        check();
        while (m_subject.area.document()->isRedoAvailable())
            m_subject.area.redo();
        m_model = "the end";
        check();
    }

private:
    /// Puts the caret somewhere, with a selection or without.
    void place() {
        const int end = m_subject.area.document()->characterCount();
        const int anchor = wholeCharacter(*rc::gen::inRange(0, end));
        const int caret = *rc::gen::arbitrary<bool>() ? anchor : wholeCharacter(*rc::gen::inRange(0, end));
        m_subject.select(0, anchor);
        m_anchor = m_subject.area.selectedText().size();
        m_subject.select(0, caret);
        m_caret = m_subject.area.selectedText().size();
        m_subject.select(anchor, caret);
    }

    int wholeCharacter(int position) const {
        return m_subject.area.document()->characterAt(position).isLowSurrogate() ? position - 1 : position;
    }

    /// Deleting without a selection removes what lies between two offsets: something unless the text ends
    /// there, and not more than one user-perceived character.
    void takeOver(std::size_t from, std::size_t to) {
        RC_ASSERT(from <= to && to <= m_model.size());
        RC_ASSERT(from < to || m_caret == 0u || m_caret == m_model.size());
        const std::string_view model = m_model;
        RC_ASSERT(characterCount(model.substr(0, to)) <= characterCount(model.substr(0, from)) + 1);
        m_model.erase(from, to - from);
    }

    /// Goes back in the history, forth to where it came from, and stays at one of the two.
    void travel() {
        const bool atTheEnd = !m_subject.area.document()->isRedoAvailable();
        const auto before = m_model;
        m_subject.area.undo();
        m_model = m_subject.area.text();
        check();
        if (*rc::gen::arbitrary<bool>())
            return;
        while (m_subject.area.document()->isRedoAvailable())
            m_subject.area.redo();
        if (atTheEnd)
            m_model = before;
        else
            m_model = m_subject.area.text();
        check();
    }

    void check() {
        auto& area = m_subject.area;
        RC_ASSERT(area.text() == m_model);
        const auto cursor = area.textCursor();
        area.selectAll();
        RC_ASSERT(area.selectedText() == m_model); // read from the document, not from the mirror
        area.setTextCursor(cursor);
        area.setLineNumbers(true);
        area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
        const auto numbers = area.visibleNumbers();
        RC_ASSERT(numbers.empty() || numbers.back().number == lineCount(m_model));
    }

    Subject m_subject{8, 300};
    std::string m_model{};
    std::size_t m_anchor = 0;
    std::size_t m_caret = 0;
};

RC_GTEST_FIXTURE_PROP(TextAreaTest, HoldsWhatAPlainStringWouldHold, ()) {
    Race race;
    const int steps = *rc::gen::inRange(1, 40);
    for (int step = 0; step < steps; ++step)
        race.step();
    race.finish();
}

} // namespace
} // namespace korvane
