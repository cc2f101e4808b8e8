#include "Desktop/Layout/WrappingLayout.h"

#include <QWidget>

#include <algorithm>

namespace korvane {

namespace {

bool isStretch(const QLayoutItem& item) {
    return !item.widget();
}

auto controlCount(const std::vector<QLayoutItem*>& line) {
    return std::ranges::count_if(line, [](const auto* item) { return !isStretch(*item); });
}

int lineHeight(const std::vector<QLayoutItem*>& line) {
    int height = 0;
    for (const auto* item : line)
        height = std::max(height, item->sizeHint().height());
    return height;
}

} // namespace

WrappingLayout::WrappingLayout(QWidget* container, int spacing, int lineSpacing)
    : QLayout(container), m_spacing(spacing), m_lineSpacing(lineSpacing) {
    setContentsMargins({});
}

void WrappingLayout::addItem(QLayoutItem* item) {
    m_items.emplace_back(item);
}

int WrappingLayout::count() const {
    return static_cast<int>(m_items.size());
}

QLayoutItem* WrappingLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* WrappingLayout::takeAt(int index) {
    if (index < 0 || index >= count())
        return nullptr;
    const auto position = m_items.begin() + index;
    auto* item = position->release();
    m_items.erase(position);
    return item;
}

int WrappingLayout::lineWidth(const Line& line) const {
    int width = 0;
    for (const auto* item : line) {
        if (!isStretch(*item))
            width += (width > 0 ? m_spacing : 0) + item->sizeHint().width();
    }
    return width;
}

std::vector<WrappingLayout::Line> WrappingLayout::lines(int width) const {
    std::vector<Line> lines(1);
    for (const auto& item : m_items) {
        if (item->widget() && item->isEmpty())
            continue; // hidden
        auto& line = lines.back();
        line.push_back(item.get());
        if (lineWidth(line) > width && line.size() > 1) {
            line.pop_back();
            // A stretch moves to the next line with the items that it aligns.
            const bool takesStretch = !line.empty() && isStretch(*line.back());
            Line next;
            if (takesStretch) {
                next.push_back(line.back());
                line.pop_back();
            }
            next.push_back(item.get());
            lines.push_back(std::move(next));
        }
    }
    std::erase_if(lines, [](const Line& line) { return line.empty(); });
    balanceLastLine(lines, width);
    return lines;
}

void WrappingLayout::balanceLastLine(std::vector<Line>& lines, int width) const {
    if (lines.size() < 2)
        return;
    auto& above = lines[lines.size() - 2];
    auto& last = lines.back();
    if (controlCount(last) != 1 || controlCount(above) < 3 || isStretch(*above.back()))
        return;
    if (above.back()->sizeHint().width() + m_spacing + lineWidth(last) > width)
        return;
    do {
        last.insert(last.begin(), above.back());
        above.pop_back();
    } while (isStretch(*above.back())); // moves with the items that it aligns
}

int WrappingLayout::heightForWidth(int width) const {
    int height = 0;
    for (const auto& line : lines(width))
        height += (height > 0 ? m_lineSpacing : 0) + lineHeight(line);
    return height;
}

QSize WrappingLayout::sizeHint() const {
    const auto all = lines(QLAYOUTSIZE_MAX);
    return all.empty() ? QSize(0, 0) : QSize(lineWidth(all.front()), lineHeight(all.front()));
}

QSize WrappingLayout::minimumSize() const {
    QSize size(0, 0);
    for (const auto& item : m_items) {
        if (item->widget() && !item->isEmpty())
            size = size.expandedTo(item->minimumSize());
    }
    return size;
}

void WrappingLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    int top = rect.top();
    for (const auto& line : lines(rect.width())) {
        const int height = lineHeight(line);
        int left = rect.left();
        const int free = std::max(0, rect.width() - lineWidth(line));
        for (auto* item : line) {
            if (isStretch(*item)) {
                left += free;
                continue;
            }
            const auto size = item->sizeHint();
            const int width = std::min(size.width(), rect.width());
            item->setGeometry({left, top + (height - size.height()) / 2, width, size.height()});
            left += width + m_spacing;
        }
        top += height + m_lineSpacing;
    }
}

} // namespace korvane
