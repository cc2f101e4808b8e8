/// The layout of a row that goes on in further lines where it is too wide, like words of a text.
#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace korvane {

class WrappingLayout final : public QLayout {
public:
    /// Distances in pixels: between the items of a line, and between lines.
    WrappingLayout(QWidget* container, int spacing, int lineSpacing);

    /// A spacer that expands sends what follows on its line to the right end.
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

    /// A control that would be alone on the last line gets the one before it beside it, if that leaves
    /// several on the line above.
    void keepCompany(std::vector<Line>& lines, int width) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
    int m_spacing;
    int m_lineSpacing;
};

} // namespace korvane
