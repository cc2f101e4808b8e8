#include "Desktop/Lists/RowText.h"

#include "Desktop/Look/Theme.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace korvane {
namespace {

TEST(RowText, KeepsAShortLine) {
    EXPECT_EQ(shortenedLine(""), "");
    EXPECT_EQ(shortenedLine("Zoë 漢字 👍"), "Zoë 漢字 👍");
    EXPECT_EQ(shortenedLine(std::string(1024, 'x')), std::string(1024, 'x'));
}

TEST(RowText, ReplacesLineBreaksAndTabsBySpaces) {
    EXPECT_EQ(shortenedLine("a\nb\r\nc\td\u2028e"), "a b  c d e");
}

TEST(RowText, ShortensALongLineBetweenCharacters) {
    EXPECT_EQ(shortenedLine(std::string(1'000'000, 'x')), std::string(1024, 'x') + "…");
    const auto cut = std::string(1022, 'x') + "👍";
    EXPECT_EQ(shortenedLine(cut + "y"), cut + "…");
    EXPECT_EQ(shortenedLine(cut), cut);
}

QFont rowFont() {
    return Theme::font(Theme::TextStyle::codeSmall);
}

TEST(RowText, ConvertsBetweenOffsetsAndPositions) {
    const auto column = QFontMetricsF(rowFont()).horizontalAdvance('0');
    const auto text = std::string(5000, 'x') + "é" + std::string(5000, 'y');
    for (const std::size_t offset : {0U, 1U, 1023U, 1024U, 1025U, 4999U, 5000U, 5002U, 5003U, 10'002U}) {
        const auto x = rowTextX(text, offset, rowFont());
        const auto columns = offset <= 5000 ? offset : offset - 1;
        EXPECT_NEAR(x, static_cast<double>(columns) * column, 1) << offset;
        EXPECT_EQ(rowTextOffset(text, x + column / 4, rowFont()), offset);
        EXPECT_EQ(rowTextOffset(text, x - column / 4, rowFont()), offset);
    }
    EXPECT_EQ(rowTextOffset(text, -100, rowFont()), 0U);
    EXPECT_EQ(rowTextOffset(text, 1e9, rowFont()), text.size());
    EXPECT_EQ(rowTextOffset("", 100, rowFont()), 0U);
    EXPECT_EQ(rowTextX("", 0, rowFont()), 0);
}

TEST(RowText, FindsNoOffsetInsideACharacter) {
    const std::string text = "aé漢👍z";
    for (double x = 0; x < 100; x += 1) {
        const auto offset = rowTextOffset(text, x, rowFont());
        EXPECT_TRUE(offset == text.size() || (static_cast<unsigned char>(text[offset]) & 0xC0) != 0x80) << x;
    }
}

/// A row, drawn on white.
template <typename Draw>
QImage drawnRow(Draw draw) {
    QImage image(400, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    draw(painter, QRectF(image.rect()));
    return image;
}

/// The first and the last column of pixels that are not white.
std::pair<int, int> inkedColumns(const QImage& image) {
    std::pair<int, int> columns(-1, -1);
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixel(x, y) != QColor(Qt::white).rgb())
                columns = {columns.first < 0 ? x : columns.first, x};
        }
    }
    return columns;
}

TEST(RowText, FillsTheSelectedPart) {
    const auto select = [](std::string_view text, RowTextRange range) {
        return inkedColumns(drawnRow([&](QPainter& painter, const QRectF& rect) {
            paintRowSelection(painter, rect, text, range, rowFont());
        }));
    };
    const auto at = [](std::string_view text, std::size_t offset) {
        return static_cast<int>(std::round(rowTextX(text, offset, rowFont())));
    };
    EXPECT_EQ(select("abcdef", {}), std::pair(-1, -1));
    EXPECT_EQ(select("abcdef", {.start = 2, .end = 4}), std::pair(at("abcdef", 2), at("abcdef", 4) - 1));
    EXPECT_EQ(select("abcdef", {.start = 2, .end = 6, .goesOn = true}), std::pair(at("abcdef", 2), 399));
    EXPECT_EQ(select("", {.goesOn = true}), std::pair(0, 399));
    const auto [left, right] = select("אבגדה", {.start = 0, .end = 4});
    EXPECT_GT(left, 10) << "the first letters are at the right";
    EXPECT_NEAR(right, rowTextX("אבגדה", 0, rowFont()), 2);
}

TEST(RowText, ShowsLineBreaksAndTabsAsMarks) {
    const auto draw = [](std::string_view text, const std::optional<QColor>& marks) {
        return drawnRow([&](QPainter& painter, const QRectF& rect) {
            drawRowText(painter, rect, text, rowFont(), Qt::black, marks);
        });
    };
    for (const auto text : {"a\nb", "a\tb", "a\rb"}) {
        EXPECT_EQ(draw(text, {}), draw("a b", {}));
        EXPECT_NE(draw(text, Qt::red), draw("a b", Qt::red));
    }
    EXPECT_NE(draw("a\nb", Qt::red), draw("a\tb", Qt::red));
    EXPECT_NE(draw("a\nb", Qt::red), draw("a↵b", Qt::red)) << "marks have their own colour";
}

} // namespace
} // namespace korvane
