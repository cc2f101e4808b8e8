#include "Desktop/Text/TextAreaSubject.h"

#include <QAccessible>

#include <string>
#include <vector>

namespace korvane {
namespace {

using Boundary = QAccessible::TextBoundaryType;
using Units = std::vector<std::string>;

struct AccessibleTextTest : TextAreaTest {};

QAccessibleTextInterface& textOf(TextArea& area) {
    return *QAccessible::queryAccessibleInterface(&area)->textInterface();
}

/// The units from the first to the last, read as a screen reader does: each with the offset after the one
/// before.
Units unitsOf(TextArea& area, Boundary boundary) {
    auto& text = textOf(area);
    Units units;
    int start = 0;
    int end = 0;
    int next = 0;
    do {
        units.push_back(text.textAtOffset(next, boundary, &start, &end).toStdString());
        EXPECT_EQ(start, next);
        EXPECT_EQ(text.text(start, end).toStdString(), units.back());
        next = end;
    } while (start < end && next < text.characterCount());
    return units;
}

TEST_F(AccessibleTextTest, IsReadInUnits) {
    Subject subject(defaultMaxPieceLength, 200);
    subject.area.setText("One two. Three!\r\ne\u0301👍🏽\n\nlast");

    const struct {
        Boundary boundary;
        Units units;
    } rows[] = {
        {QAccessible::WordBoundary,
         {"One", " ", "two", ".", " ", "Three", "!", "\r\n", "e\u0301", "👍🏽", "\n", "\n", "last"}},
        {QAccessible::SentenceBoundary, {"One two. ", "Three!", "\r\n", "e\u0301👍🏽", "\n", "\n", "last"}},
        {QAccessible::ParagraphBoundary, {"One two. Three!\r\n", "e\u0301👍🏽\n", "\n", "last"}},
        {QAccessible::NoBoundary, {"One two. Three!\r\ne\u0301👍🏽\n\nlast"}},
    };

    for (const auto& [boundary, units] : rows)
        EXPECT_EQ(unitsOf(subject.area, boundary), units) << boundary;
    EXPECT_EQ(unitsOf(subject.area, QAccessible::CharBoundary).size(), 24U);
}

TEST_F(AccessibleTextTest, ALineIsARow) {
    Subject subject(defaultMaxPieceLength, 200);
    subject.area.setText("some words that are wrapped into rows\n");
    const auto lines = unitsOf(subject.area, QAccessible::LineBoundary);
    ASSERT_GT(lines.size(), 1U);
    EXPECT_EQ(lines.size(),
              static_cast<std::size_t>(subject.area.caretRect(subject.area.text().size()).center().y() /
                                       lineHeight));
    EXPECT_EQ(lines.back().back(), '\n');
}

TEST_F(AccessibleTextTest, TheNeighboursOfAUnit) {
    Subject subject;
    subject.area.setText("one two\nthree");
    auto& text = textOf(subject.area);
    int start = 0;
    int end = 0;
    EXPECT_EQ(text.textBeforeOffset(5, QAccessible::WordBoundary, &start, &end), " ");
    EXPECT_EQ(start, 3);
    EXPECT_EQ(text.textAfterOffset(5, QAccessible::ParagraphBoundary, &start, &end), "three");
    EXPECT_EQ(end, 13);
    EXPECT_EQ(text.textBeforeOffset(1, QAccessible::WordBoundary, &start, &end), "");
    EXPECT_EQ(start, -1);
    EXPECT_EQ(text.textAfterOffset(10, QAccessible::WordBoundary, &start, &end), "");
    EXPECT_EQ(end, -1);
}

TEST_F(AccessibleTextTest, TheEndOfTheTextBelongsToTheLastUnit) {
    Subject subject;
    auto& text = textOf(subject.area);
    int start = 0;
    int end = 0;
    subject.area.setText("one two");
    EXPECT_EQ(text.textAtOffset(7, QAccessible::WordBoundary, &start, &end), "two");
    EXPECT_EQ(text.textAtOffset(7, QAccessible::LineBoundary, &start, &end), "one two");
    subject.area.setText("one\n");
    EXPECT_EQ(text.textAtOffset(4, QAccessible::LineBoundary, &start, &end), "");
    EXPECT_EQ(start, 4);
    subject.area.setText("");
    EXPECT_EQ(text.textAtOffset(0, QAccessible::CharBoundary, &start, &end), "");
}

TEST_F(AccessibleTextTest, OffsetsOutsideOfTheTextGiveNothing) {
    Subject subject;
    subject.area.setText("\u2066x\u2069\n\u0301"); // Qt's own search does not end in such texts
    auto& text = textOf(subject.area);
    for (const auto boundary :
         {QAccessible::CharBoundary, QAccessible::WordBoundary, QAccessible::LineBoundary,
          QAccessible::SentenceBoundary, QAccessible::ParagraphBoundary}) {
        for (const int offset : {-100, -2, -1, 6, 100}) {
            int start = 0;
            int end = 0;
            EXPECT_EQ(text.textAtOffset(offset, boundary, &start, &end), "");
            EXPECT_EQ(start, -1);
            EXPECT_EQ(text.textBeforeOffset(offset, boundary, &start, &end), "");
            EXPECT_EQ(text.textAfterOffset(offset, boundary, &start, &end), "");
        }
        EXPECT_FALSE(unitsOf(subject.area, boundary).empty());
    }
}

} // namespace
} // namespace korvane
