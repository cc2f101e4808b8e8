/// Zooming the text of editors, outputs, comparisons and previews.

#include "Desktop/Text/TextZoom.h"

#include "Desktop/Lists/RowList.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "support/Scenes.h"
#include "support/WindowTest.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QWheelEvent>

#include <string>
#include <utility>

namespace korvane {
namespace {

using Theme::TextStyle;

constexpr int moreStepsThanSizes = 50;

struct TextZoomTest : WindowTest {
    ~TextZoomTest() override {
        while (TextZoom::percent() > TextZoom::normal)
            TextZoom::zoomOut();
        while (TextZoom::percent() < TextZoom::normal)
            TextZoom::zoomIn();
    }

    /// Turns the wheel by `angle` over `area`, 120 being a notch.
    static void turn(const QAbstractScrollArea& area, int angle, Qt::KeyboardModifiers modifiers) {
        const QPointF place = area.viewport()->rect().center();
        QWheelEvent wheel(place, area.viewport()->mapToGlobal(place), {}, QPoint(0, angle), Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(area.viewport(), &wheel);
    }
};

TEST_F(TextZoomTest, KeysZoomInAndOutWithinTheLimits) {
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(TextZoom::percent(), 110);
    press(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(TextZoom::percent(), 125);
    press(Qt::Key_Minus, Qt::ControlModifier);
    press(Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(TextZoom::percent(), TextZoom::normal) << "the same sizes in reverse";
    for (int step = 0; step < moreStepsThanSizes; ++step)
        press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(TextZoom::percent(), 400);
    for (int step = 0; step < moreStepsThanSizes; ++step)
        press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(TextZoom::percent(), 50);
    EXPECT_EQ(screen.text("Input"), "") << "the keys type nothing";
}

TEST_F(TextZoomTest, TheWheelZoomsWithControlAndScrollsWithout) {
    const auto& editor = screen.editor("Input");
    turn(editor, 120, Qt::ControlModifier);
    EXPECT_EQ(TextZoom::percent(), 110);
    turn(editor, -60, Qt::ControlModifier);
    EXPECT_EQ(TextZoom::percent(), 110) << "half a notch";
    turn(editor, -60, Qt::ControlModifier);
    EXPECT_EQ(TextZoom::percent(), TextZoom::normal);
    turn(editor, 120, Qt::NoModifier);
    turn(editor, -120, Qt::ShiftModifier);
    EXPECT_EQ(TextZoom::percent(), TextZoom::normal);
}

TEST_F(TextZoomTest, AppliesToAllEditorsOfAllScreens) {
    const auto height = screen.editor("Input").font().pixelSize();
    const auto lineHeight = Theme::lineHeight(TextStyle::code);
    for (int step = 0; step < 5; ++step)
        press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(TextZoom::percent(), 200);
    EXPECT_EQ(screen.editor("Input").font().pixelSize(), 2 * height);
    EXPECT_EQ(screen.editor("Output").font().pixelSize(), 2 * height);
    screen.type("Input", "1\n2");
    const auto numbers = screen.editor("Input").visibleNumbers();
    ASSERT_EQ(numbers.size(), 2U);
    EXPECT_EQ(numbers[0].place.height(), 2 * lineHeight);
    EXPECT_EQ(numbers[1].place.top() - numbers[0].place.top(), 2 * lineHeight);
    open(Tool::base64);
    EXPECT_EQ(screen.editor("Plain Text").font().pixelSize(), 2 * height);
    open(Tool::regexTester);
    screen.press("Find & Replace");
    EXPECT_EQ(screen.editor("Result").font().pixelSize(), 2 * height);
}

TEST_F(TextZoomTest, RowsOfComparisonsAndTreesGrowWithTheirText) {
    const auto rowHeight = [](const RowList& list) { return list.rowPlace(0).height(); };
    screen.press("Tree View");
    paste(screen, fakes, "{\"a\":[1,2]}");
    auto& tree = screen.list("Tree View");
    const auto treeRow = rowHeight(tree);
    open(Tool::textDiff);
    screen.type("Original Text", "a\nb");
    screen.press("Compare");
    auto& lines = screen.list("Original");
    const auto diffRow = rowHeight(lines);
    for (int step = 0; step < 5; ++step)
        turn(lines, 120, Qt::ControlModifier);
    settle();
    EXPECT_EQ(rowHeight(lines), 2 * diffRow);
    EXPECT_EQ(rowHeight(screen.list("Modified")), 2 * diffRow);
    open(Tool::jsonFormatter);
    screen.press("Tree View");
    paste(screen, fakes, "{\"a\":[1,2]}");
    EXPECT_EQ(rowHeight(screen.list("Tree View")), 2 * treeRow);
    TextZoom::zoomOut();
    settle();
    EXPECT_LT(rowHeight(screen.list("Tree View")), 2 * treeRow);
}

TEST_F(TextZoomTest, TheMarkdownPreviewGrows) {
    open(Tool::markdownPreview);
    const auto* preview = window.findChild<QTextBrowser*>();
    const auto sizeOfFirst = [&] {
        const auto block = preview->document()->firstBlock();
        return std::pair(block.begin().fragment().charFormat().font().pixelSize(),
                         block.blockFormat().lineHeight());
    };
    const auto before = sizeOfFirst();
    for (int step = 0; step < 5; ++step)
        turn(*preview, 120, Qt::ControlModifier);
    EXPECT_EQ(sizeOfFirst().first, 2 * before.first);
    EXPECT_EQ(sizeOfFirst().second, 2 * before.second);
}

TEST_F(TextZoomTest, KeepsTheFirstVisibleLineInView) {
    std::string text;
    for (int line = 1; line <= 500; ++line)
        text += std::to_string(line) + "\n";
    paste(screen, fakes, text);
    auto& editor = screen.editor("Input");
    editor.verticalScrollBar()->setValue(200);
    const auto first = editor.visibleNumbers().front().number;
    TextZoom::zoomIn();
    EXPECT_EQ(editor.visibleNumbers().front().number, first);
    TextZoom::zoomOut();
    EXPECT_EQ(editor.visibleNumbers().front().number, first);
}

} // namespace
} // namespace korvane
