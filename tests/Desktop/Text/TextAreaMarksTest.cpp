#include "Desktop/Text/TextAreaSubject.h"

#include <QScrollBar>

#include <algorithm>
#include <vector>

namespace korvane {
namespace {

using Marks = std::vector<TextMark>;

const QColor background(Qt::yellow);
const QColor outline(Qt::blue);
const QColor underline(Qt::magenta);
const QColor waveColor(Qt::red);
const QColor lineColor(Qt::cyan);

/// A text area whose text is not painted, so that every pixel is a mark's.
struct MarkedSubject : Subject {
    explicit MarkedSubject(int width = 400) : Subject(defaultMaxPieceLength, width) {
        area.setStyle({.font = QFont(QStringLiteral("monospace")),
                       .lineHeight = lineHeight,
                       .text = Qt::transparent,
                       .number = Qt::transparent,
                       .selection = Qt::green,
                       .markedLine = lineColor,
                       .markedNumber = Qt::black,
                       .marks = {{TextMarkKind::hit, {.background = background}},
                                 {TextMarkKind::currentHit, {.outline = outline}},
                                 {TextMarkKind::group1, {.underline = underline}},
                                 {TextMarkKind::error, {.wave = waveColor}}},
                       .inset = {8, 8, 8, 8}});
    }

    void mark(Marks marks) { area.setMarks(TextMarkLayer::content, TextMarks(std::move(marks))); }

    /// The bounds of the pixels with the colour, in the viewport; empty without one.
    QRect bounds(const QColor& color) {
        const auto picture = this->picture();
        QRect found;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == color)
                    found |= QRect(x, y, 1, 1);
            }
        }
        return found.translated(-area.viewport()->pos());
    }

    int left(std::size_t offset) const { return area.caretRect(offset).left(); }
};

struct TextAreaMarksTest : TextAreaTest {};

TEST_F(TextAreaMarksTest, ABackgroundIsBehindItsCharacters) {
    MarkedSubject subject;
    subject.area.setText("one two three\n");
    subject.mark({{4, 7}});
    const auto bounds = subject.bounds(background);
    EXPECT_NEAR(bounds.left(), subject.left(4), 1);
    EXPECT_NEAR(bounds.right() + 1, subject.left(7), 1);
    EXPECT_EQ(bounds.top(), 1);
    EXPECT_EQ(bounds.height(), lineHeight - 2);
}

TEST_F(TextAreaMarksTest, EachKindIsPaintedInItsWay) {
    MarkedSubject subject;
    subject.area.setText("one two three\n");

    const struct {
        TextMarkKind kind;
        QColor color;
        int minHeight, maxHeight;
    } rows[] = {{TextMarkKind::currentHit, outline, lineHeight - 2, lineHeight},
                {TextMarkKind::group1, underline, 2, 2},
                {TextMarkKind::error, waveColor, 1, 4}};

    for (const auto& [kind, color, minHeight, maxHeight] : rows) {
        subject.mark({{4, 7, kind}});
        const auto bounds = subject.bounds(color);
        EXPECT_NEAR(bounds.center().x(), (subject.left(4) + subject.left(7)) / 2.0, 2);
        EXPECT_GE(bounds.height(), minHeight);
        EXPECT_LE(bounds.height(), maxHeight);
    }
    subject.mark({{4, 7, TextMarkKind::evenMatch}}); // the style does not have it
    for (const auto& color : {background, outline, underline, waveColor})
        EXPECT_TRUE(subject.bounds(color).isEmpty());
}

TEST_F(TextAreaMarksTest, AnEmptyRangeIsVisible) {
    MarkedSubject subject;
    subject.area.setText("one");
    for (const std::size_t place : {0U, 2U, 3U}) {
        subject.mark({{place, place}});
        const auto bounds = subject.bounds(background);
        EXPECT_NEAR(bounds.left(), subject.left(place), 1);
        EXPECT_EQ(bounds.width(), 2);
    }
    subject.area.setText("");
    subject.mark({{0, 0}});
    EXPECT_EQ(subject.bounds(background).width(), 2);
}

TEST_F(TextAreaMarksTest, AMarkContinuesInTheNextRows) {
    MarkedSubject subject(200);
    subject.area.setText("words that are wrapped into several rows of the control");
    subject.mark({{6, subject.area.text().size()}});
    const auto rows = subject.area.rowCount(subject.area.viewport()->width());
    ASSERT_GT(rows, 2);
    const auto bounds = subject.bounds(background);
    EXPECT_EQ(bounds.height(), rows * lineHeight - 2);
    EXPECT_EQ(bounds.left(), 8);
}

TEST_F(TextAreaMarksTest, AMarkInMixedDirectionsIsOnItsCharacters) {
    MarkedSubject subject;
    const std::string text = "abc שלום def";
    subject.area.setText(text);
    subject.mark({{4, 6}}); // the first Hebrew letter, which is the last one from the left
    const auto bounds = subject.bounds(background);
    EXPECT_GT(bounds.left(), subject.left(3) + 2 * bounds.width());
    EXPECT_LT(bounds.right(), subject.left(text.size() - 3));
}

TEST_F(TextAreaMarksTest, AMarkedLineIsTintedFromEdgeToEdge) {
    MarkedSubject subject(200);
    subject.area.setLineNumbers(true);
    subject.area.setText("first\nwords that are wrapped into several rows\n\nlast");
    const auto line = subject.area.text().afterNewline(1);
    subject.mark({{line, subject.area.text().afterNewline(2) - 1, TextMarkKind::errorLine}});
    const auto bounds = subject.bounds(lineColor).translated(subject.area.viewport()->pos());
    EXPECT_EQ(bounds.left(), 0);
    EXPECT_EQ(bounds.width(), 200);
    const auto rows =
        subject.area.caretRect(subject.area.text().afterNewline(2)).center().y() / lineHeight - 1;
    EXPECT_GT(rows, 1);
    EXPECT_EQ(bounds.top(), subject.area.viewport()->y() + lineHeight);
    EXPECT_EQ(bounds.height(), rows * lineHeight);

    const auto empty = subject.area.text().afterNewline(2);
    subject.mark({{empty, empty, TextMarkKind::errorLine}});
    EXPECT_EQ(subject.bounds(lineColor).height(), lineHeight);
}

TEST_F(TextAreaMarksTest, EditsMoveMarksAndAnotherTextDropsThem) {
    MarkedSubject subject;
    subject.area.setText("one two three");
    subject.mark({{4, 7}});
    subject.select(0, 0);
    subject.type(QStringLiteral("x"));
    EXPECT_EQ(subject.area.marks(TextMarkLayer::content).in(0, 100), (Marks{{5, 8}}));
    EXPECT_NEAR(subject.bounds(background).left(), subject.left(5), 1);
    subject.area.undo();
    EXPECT_TRUE(subject.area.marks(TextMarkLayer::content).empty());
    subject.mark({{4, 7}});
    subject.area.setText("another");
    EXPECT_TRUE(subject.area.marks(TextMarkLayer::content).empty());
}

TEST_F(TextAreaMarksTest, LayersAreIndependent) {
    MarkedSubject subject;
    subject.area.setText("one two three");
    subject.mark({{4, 7, TextMarkKind::group1}});
    subject.area.setMarks(TextMarkLayer::search, TextMarks(Marks{{0, 3}}));
    EXPECT_FALSE(subject.bounds(background).isEmpty());
    EXPECT_FALSE(subject.bounds(underline).isEmpty());
    subject.area.setMarks(TextMarkLayer::search, {});
    EXPECT_TRUE(subject.bounds(background).isEmpty());
    EXPECT_FALSE(subject.bounds(underline).isEmpty());
}

TEST_F(TextAreaMarksTest, OnlyVisibleMarksArePainted) {
    MarkedSubject subject;
    std::string text;
    Marks marks;
    for (int line = 0; line < 20'000; ++line) {
        marks.push_back({text.size(), text.size() + 4});
        text += "mark and more\n";
    }
    subject.area.setText(text);
    subject.mark(marks);
    subject.area.verticalScrollBar()->setValue(subject.area.verticalScrollBar()->maximum() / 2);
    EXPECT_EQ(subject.bounds(background).left(), 8);
    EXPECT_GT(subject.bounds(background).height(), 250);
}

} // namespace
} // namespace korvane
