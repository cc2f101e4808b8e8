#include "Desktop/Text/TextLayout.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>

#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

using namespace std::string_view_literals;

struct Piece {
    std::size_t start;
    QString text;
    bool endsLine;
};

RowStyle rowStyle(int columns = 40) {
    const QFont font(QStringLiteral("monospace"));
    return {
        .font = font, .width = columns * QFontMetricsF(font).horizontalAdvance(u'0') + 1, .lineHeight = 20};
}

TextLayout layoutOf(const Rope& text, int maxPieceLength = defaultMaxPieceLength) {
    TextLayout layout(maxPieceLength);
    layout.setStyle(rowStyle());
    layout.setText(text);
    return layout;
}

std::vector<Piece> piecesOf(const TextLayout& layout) {
    std::vector<Piece> pieces;
    for (auto place = std::optional(layout.pieceAt(0)); place; place = layout.pieceAfter(*place))
        pieces.push_back({place->start, place->piece->text(), place->piece->endsLine()});
    return pieces;
}

TEST(TextLayoutTest, FindsTheLineOfEveryByte) {
    struct Row {
        std::string_view text;
        std::vector<TextLayout::Line> lines;
    };

    const Row rows[] = {
        {"", {{0, 0, 0}}},
        {"ab", {{0, 2, 2}}},
        {"a\n", {{0, 1, 2}, {2, 2, 2}}},
        {"a\r\nb", {{0, 1, 3}, {3, 4, 4}}},
        {"a\n\rb", {{0, 1, 2}, {2, 2, 3}, {3, 4, 4}}},
        {"\r\r\n", {{0, 0, 1}, {1, 1, 3}, {3, 3, 3}}},
        {"a\u0085b\u2028c\u2029", {{0, 1, 3}, {3, 4, 7}, {7, 8, 11}, {11, 11, 11}}},
        {"\v\f"sv, {{0, 0, 1}, {1, 1, 2}, {2, 2, 2}}},
    };
    for (const auto& row : rows) {
        const auto layout = layoutOf(row.text);
        for (const auto& line : row.lines) {
            for (auto offset = line.start; offset < std::max(line.next, line.start + 1); ++offset) {
                const auto found = layout.lineAt(std::min(offset, row.text.size()));
                EXPECT_EQ(found.start, line.start) << row.text << offset;
                EXPECT_EQ(found.end, line.end) << row.text << offset;
                EXPECT_EQ(found.next, line.next) << row.text << offset;
            }
        }
    }
}

TEST(TextLayoutTest, DividesLongLinesWhereTheyMayBeWrapped) {
    std::string text;
    for (int number = 0; number < 100; ++number)
        text += "word-" + std::to_string(number * 37) + " ";
    const auto pieces = piecesOf(layoutOf(text, 40));
    ASSERT_GT(pieces.size(), 20U);
    QString joined;
    for (const auto& piece : pieces) {
        EXPECT_TRUE(piece.endsLine || piece.text.endsWith(' ') || piece.text.endsWith('-'))
            << piece.text.toStdString();
        EXPECT_LE(piece.text.size(), 60);
        joined += piece.text;
    }
    EXPECT_EQ(joined.toStdString(), text);
}

TEST(TextLayoutTest, DividesNoUserPerceivedCharacter) {
    const auto pieces = piecesOf(layoutOf("a👍👍👍👍👍👍e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301", 8));
    ASSERT_GT(pieces.size(), 2U);
    for (const auto& piece : pieces) {
        EXPECT_FALSE(piece.text.startsWith(QChar(0x301)));
        EXPECT_FALSE(piece.text.at(0).isLowSurrogate());
    }
}

TEST(TextLayoutTest, DividesALineOfEmojiBetweenThem) {
    std::string text;
    for (int character = 0; character < 500; ++character)
        text += "👨‍👩‍👧‍👦";
    const auto pieces = piecesOf(layoutOf(text));
    EXPECT_GT(pieces.size(), 5U);
    for (const auto& piece : pieces)
        EXPECT_TRUE(piece.text.startsWith(QStringLiteral("👨‍👩‍👧‍👦"))) << piece.start;
}

TEST(TextLayoutTest, AnEditKeepsWhatIsLaidOutAsIfItWereNew) {
    // Every edit of every text must leave the pieces that a new layout has.
    for (const int maxPieceLength : {8, 40, defaultMaxPieceLength}) {
        const std::string_view texts[] = {"one\ntwo\r\nthree", "a\r\rb\n\nc",
                                          "0123456789 0123456789 0123456789 0123456789\nxx\n", "\n", ""};
        for (const auto text : texts) {
            for (std::size_t from = 0; from <= text.size(); ++from) {
                for (const std::size_t removed : {std::size_t{0}, std::size_t{1}, std::size_t{3}}) {
                    for (const auto inserted : {"", "x", "\n", "\r", "long inserted text"}) {
                        if (from + removed > text.size())
                            continue;
                        auto layout = layoutOf(text, maxPieceLength);
                        piecesOf(layout);
                        const auto after = Rope(text).replacing(from, from + removed, inserted);
                        layout.setText(after, {from, removed, std::string_view(inserted).size()});
                        const auto edited = piecesOf(layout);
                        const auto expected = piecesOf(layoutOf(after, maxPieceLength));
                        ASSERT_EQ(edited.size(), expected.size()) << text << from << removed << inserted;
                        for (std::size_t index = 0; index < expected.size(); ++index) {
                            ASSERT_EQ(edited[index].start, expected[index].start);
                            ASSERT_EQ(edited[index].text, expected[index].text);
                            ASSERT_EQ(edited[index].endsLine, expected[index].endsLine);
                        }
                    }
                }
            }
        }
    }
}

TEST(TextLayoutTest, GoesThroughRowsInBothDirections) {
    const auto layout = layoutOf("short\n" + std::string(100, 'w') + "\n\nlast", 30);
    std::vector<std::size_t> down;
    auto last = layout.rowAt(0);
    for (auto row = std::optional(last); row; row = layout.rowAfter(*row)) {
        down.push_back(row->start());
        last = *row;
    }
    std::vector<std::size_t> up;
    for (auto row = std::optional(last); row; row = layout.rowBefore(*row))
        up.insert(up.begin(), row->start());
    EXPECT_EQ(up, down);
    EXPECT_EQ(down.size(), layout.rowCount());
    for (std::size_t count = 0; count < down.size(); ++count) {
        EXPECT_EQ(layout.rowAfterRows(count).start(), down[count]);
        EXPECT_EQ(layout.rowsBefore(layout.rowAfterRows(count)), count);
    }
}

TEST(TextLayoutTest, EstimatesTheRowsOfALargeText) {
    std::string text;
    for (int line = 0; line < 20'000; ++line)
        text += "line\n";
    const auto layout = layoutOf(text);
    EXPECT_FALSE(layout.countsExactly());
    EXPECT_GE(layout.rowCount(), 20'000U);
    std::size_t before = 0;
    for (std::size_t count = 0; count < layout.rowCount(); count += 500) {
        const auto row = layout.rowAfterRows(count);
        EXPECT_GE(row.start(), before);
        before = row.start();
    }
    EXPECT_GT(before, text.size() * 9 / 10);
}

TEST(TextLayoutTest, ShowsAPreeditWithoutTheTextHavingIt) {
    auto layout = layoutOf("abc");
    layout.setPreedit(Preedit{.text = QStringLiteral("xy"), .caret = 2}, 1);
    EXPECT_EQ(layout.pieceAt(0).piece->text(), "axybc");
    EXPECT_EQ(layout.pieceAt(0).piece->byteAt(2), 1U);
    EXPECT_EQ(layout.pieceAt(0).piece->unitAt(2), 4);
    layout.setPreedit(std::nullopt, 1);
    EXPECT_EQ(layout.pieceAt(0).piece->text(), "abc");
}

} // namespace
} // namespace korvane
