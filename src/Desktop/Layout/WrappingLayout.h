/// The layout of a row that wraps onto further lines where it is too wide, like the words of a text.
#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace korvane {

class WrappingLayout final : public QLayout {
public:
    /// Distances in pixels: between the items of a line, and between lines.
    WrappingLayout(QWidget* container, int spacing, int lineSpacing);

    /// An expanding spacer aligns the items after it to the right of their line.
    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    using Line = std::vector<QLayoutItem*>;

    std::vector<Line> lines(int width) const;
    int lineWidth(const Line& line) const;

    /// Moves a control from the line above to a last line of only one control, if it fits there and leaves
    /// several above.
    void balanceLastLine(std::vector<Line>& lines, int width) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
    int m_spacing;
    int m_lineSpacing;
};

} // namespace korvane
