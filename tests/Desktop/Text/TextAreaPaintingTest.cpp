#include "Desktop/Text/TextAreaSubject.h"
#include "Utilities/Text/Text.h"

#include <QInputMethodEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

using TextAreaPaintingTest = TextAreaTest;

struct NumberRow {
    std::string_view name;
    std::string_view text;
    std::vector<std::size_t> numbers;
};

TEST_F(TextAreaPaintingTest, LineNumbersAgreeWithLineCount) {
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

TEST_F(TextAreaPaintingTest, EachNumberIsBesideItsLine) {
    Subject subject(defaultMaxPieceLength, 200);
    subject.area.setLineNumbers(true);
    const std::string longLine(60, 'w');
    subject.area.setText("a\n" + longLine + "\n👍漢\n" + longLine + "\nlast");
    subject.press(Qt::Key_Home, Qt::ControlModifier);
    for (const int top : {0, 1, 2, 3}) {
        subject.area.verticalScrollBar()->setValue(top);
        const int y = subject.area.viewport()->y();
        std::size_t shown = 0;
        for (std::size_t line = 0; line < 5; ++line) {
            const auto rect = subject.area.caretRect(subject.area.text().afterNewline(line));
            const int row = static_cast<int>(std::floor(rect.center().y() / double(lineHeight)));
            if (row < 0 || row * lineHeight >= subject.area.viewport()->height())
                continue;
            const auto numbers = subject.area.visibleNumbers();
            ASSERT_LT(shown, numbers.size());
            EXPECT_EQ(numbers[shown].number, line + 1);
            EXPECT_EQ(numbers[shown].place.top(), y + row * lineHeight);
            EXPECT_EQ(numbers[shown].place.height(), lineHeight);
            ++shown;
        }
        EXPECT_EQ(shown, subject.area.visibleNumbers().size());
    }
}

TEST_F(TextAreaPaintingTest, TheMarginFitsTheLineNumbers) {
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

TEST_F(TextAreaPaintingTest, EveryRowHasTheSameHeight) {
    Subject subject(defaultMaxPieceLength);
    subject.area.setText("a\n👍漢字\nשלום\n\nb");
    subject.press(Qt::Key_Home, Qt::ControlModifier);
    for (int row = 0; row < 5; ++row) {
        const auto start = subject.area.text().afterNewline(static_cast<std::size_t>(row));
        EXPECT_EQ(subject.area.caretRect(start).center().y() / lineHeight, row);
    }
}

TEST_F(TextAreaPaintingTest, AClickAnywhereInARowPlacesTheCaretInIt) {
    Subject subject(defaultMaxPieceLength);
    subject.area.setText("first\nsecond\nthird");
    const auto x = subject.area.caretRect(6).x();
    const auto width = QFontMetrics(subject.area.font()).horizontalAdvance(u'0');
    for (int y = lineHeight; y < 2 * lineHeight; ++y) {
        QTest::mouseClick(subject.area.viewport(), Qt::LeftButton, {}, QPoint(x + 3 * width, y));
        EXPECT_EQ(subject.area.selection(), (TextSelection{9, 9})) << y;
    }
}

TEST_F(TextAreaPaintingTest, AResizeKeepsTheFirstVisibleLine) {
    Subject subject(defaultMaxPieceLength, 400);
    std::string text;
    for (int line = 0; line < 200; ++line)
        text +=
            "some words that have to be wrapped when the control is narrow " + std::to_string(line) + "\n";
    subject.area.setText(text);
    subject.area.verticalScrollBar()->setValue(100);
    const auto firstLine = [&] { return subject.area.text().newlinesBefore(subject.area.offsetAt({0, 2})); };
    const auto first = firstLine();
    ASSERT_GT(first, 10U);
    for (const int width : {200, 300, 150, 700, 400}) {
        subject.area.resize(width, 300);
        EXPECT_EQ(firstLine(), first) << width;
    }
}

TEST_F(TextAreaPaintingTest, TheWheelSkipsNothingOfALargeText) {
    Subject subject(defaultMaxPieceLength, 200);
    subject.area.setReadOnly(true);
    std::string text;
    for (int line = 0; line < 5000; ++line)
        text += "line with a longlonglongword and words of other lengths " + std::to_string(line) + "\n";
    subject.area.setText(text);
    auto& bar = *subject.area.verticalScrollBar();
    const auto topRow = [&] { return subject.area.offsetAt({0, 2}); };
    for (const int direction : {-1, 1}) {
        bar.setValue(direction < 0 ? bar.maximum() - 40 : 40);
        for (int turn = 0; turn < 300; ++turn) {
            const auto before = topRow();
            QWheelEvent event(QPointF(50, 50), subject.area.mapToGlobal(QPointF(50, 50)), {},
                              {0, direction * 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(subject.area.viewport(), &event);
            const auto distance = std::max(before, topRow()) - std::min(before, topRow());
            EXPECT_LE(distance, 3U * 30) << "three rows have at most thirty characters each";
            if (distance == 0)
                break;
        }
        EXPECT_EQ(bar.value(), direction < 0 ? bar.maximum() : 0);
    }
    EXPECT_EQ(topRow(), 0U);
    bar.setValue(bar.maximum());
    EXPECT_LT(subject.area.caretRect(text.size()).bottom(), subject.area.viewport()->height());
}

TEST_F(TextAreaPaintingTest, TheWheelScrollsOverTheLineNumbersToo) {
    Subject subject;
    subject.area.setReadOnly(true);
    subject.area.setLineNumbers(true);
    subject.area.setText(std::string(100, '\n'));
    auto& bar = *subject.area.verticalScrollBar();
    for (QWidget* target : {subject.area.viewport(), static_cast<QWidget*>(&subject.area)}) {
        const auto before = bar.value();
        QWheelEvent turn(QPointF(5, 50), subject.area.mapToGlobal(QPointF(5, 50)), {}, {0, -120},
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(target, &turn);
        EXPECT_GT(bar.value(), before);
    }
}

TEST_F(TextAreaPaintingTest, AShorterTextShortensTheScrollRange) {
    for (const bool readOnly : {false, true}) {
        Subject subject(defaultMaxPieceLength, 200);
        subject.area.setReadOnly(readOnly);
        subject.area.setText(std::string(5000, 'w'));
        auto& bar = *subject.area.verticalScrollBar();
        ASSERT_GT(bar.maximum(), 50);
        bar.setValue(bar.maximum());
        subject.area.setText("xy");
        EXPECT_EQ(bar.maximum(), 0) << readOnly;
        EXPECT_EQ(bar.value(), 0) << readOnly;
    }
}

TEST_F(TextAreaPaintingTest, ThePlaceholderIsPaintedAtThePlaceOfTheText) {
    for (const bool numbers : {false, true}) {
        Subject subject(defaultMaxPieceLength);
        subject.area.setLineNumbers(numbers);
        const auto empty = subject.picture();
        subject.area.setPlaceholder(QStringLiteral("Hold the place"));
        const auto placeholder = subject.picture();
        EXPECT_NE(placeholder, empty);
        subject.area.setText("Hold the place");
        EXPECT_EQ(subject.picture(), placeholder);
    }
}

TEST_F(TextAreaPaintingTest, APreeditTextHidesThePlaceholder) {
    Subject subject;
    QInputMethodEvent composing(QStringLiteral("x"), {});
    QApplication::sendEvent(&subject.area, &composing);
    const auto without = subject.picture();
    subject.area.setPlaceholder(QStringLiteral("Hold the place"));
    EXPECT_EQ(subject.picture(), without);
}

TEST_F(TextAreaPaintingTest, TheCaretIsVisibleInFocusedEditableAndReadOnlyText) {
    for (const bool readOnly : {false, true}) {
        Subject subject;
        subject.area.setReadOnly(readOnly);
        const auto caretHeight = [&] {
            const auto picture = subject.picture();
            int height = 0;
            for (int y = 8; y < 8 + lineHeight; ++y)
                height += picture.pixelColor(8, y) == QColor(Qt::black) ? 1 : 0;
            return height;
        };
        EXPECT_EQ(caretHeight(), 0);
        subject.area.activateWindow();
        QApplication::processEvents();
        subject.area.setFocus();
        const auto fontHeight = std::lround(QFontMetricsF(subject.area.font()).height());
        EXPECT_EQ(caretHeight(), std::min<long>(fontHeight, lineHeight));
    }
}

TEST_F(TextAreaPaintingTest, TheSelectionHasNoGaps) {
    Subject subject(defaultMaxPieceLength, 200);
    subject.area.setText("a\n\nwords that go on in the next row, and in another\nlast");
    subject.area.selectAll();
    const auto picture = subject.picture();
    const int rows = subject.area.rowCount(subject.area.viewport()->width());
    ASSERT_GT(rows, 5);
    // Just inside the right end of the lines, down to the last row, which ends earlier.
    const int right = subject.area.width() - 41;
    for (int y = 8; y < 8 + (rows - 1) * lineHeight; ++y)
        EXPECT_EQ(picture.pixelColor(right, y), QColor(Qt::green)) << y;
    EXPECT_NE(picture.pixelColor(right, 8 + (rows - 1) * lineHeight), QColor(Qt::green));
    EXPECT_NE(picture.pixelColor(right + 1, 8), QColor(Qt::green));
}

} // namespace
} // namespace korvane
