#include "Desktop/Tools/Diff/DiffLists.h"

#include "Desktop/Access/TabStops.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Lists/RowText.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextZoom.h"
#include "Utilities/Text/Text.h"
#include "Views/Tools/DiffLineView.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace korvane {

using DiffEngine::DiffLine;
using DiffEngine::DiffResult;
using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int titlePaddingX = 12;
constexpr int titlePaddingY = 8;
constexpr int rowHeight = 20;
constexpr int listPaddingY = 4;
constexpr int minNumberWidth = 40;
constexpr int numberGap = 8;
constexpr int prefixWidth = 16;
constexpr int paddingRight = 8;

using Lines = std::vector<DiffLine>;

/// A list of lines with a title.
class DiffColumn final : public QWidget {
public:
    struct Options {
        bool showsPrefixes = false;
        bool isFirst = true; ///< at the panel's left edge
    };

    DiffColumn(std::string_view title, const Lines DiffResult::* lines, Options options)
        : m_lines(lines), m_options(options), m_list(std::make_unique<RowList>(source())) {
        m_list->setAccessibleName(qString(title));
        TextZoom::follow(m_list.get(), [this] {
            m_width = -1;
            m_list->setRowHeight(TextZoom::px(rowHeight));
        });
        m_list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
        setFocusProxy(m_list.get());
        giveFocusRing(m_list.get(), this, Size::radiusMedium);
        auto* place = stack(Qt::Vertical, {.spacing = 0}, {m_list.get()});
        constexpr auto x = titlePaddingX;
        constexpr auto y = titlePaddingY;
        fill(this, Qt::Vertical, {.spacing = 0},
             {stack(Qt::Vertical, {.padding = {x - edge(), y - Size::panelOutline, x, y}},
                    {new Label(title, TextStyle::quietStrong)}),
              place});
        new OverlayScrollBar(Qt::Vertical, m_list.get(), place);
        new OverlayScrollBar(Qt::Horizontal, m_list.get(), place);
    }

    static int titleHeight() {
        return Theme::lineHeight(TextStyle::quietStrong) + 2 * Theme::px(titlePaddingY) -
               Theme::px(Size::panelOutline);
    }

    /// Shows `result`. A new result is recognised by the identity of its first line.
    void display(const DiffResult* result) {
        m_result = result;
        const auto first = count() > 0 ? line(0).id : UUID();
        if (std::exchange(m_first, first) == first)
            return;
        m_width = -1;
        m_list->restart();
    }

private:
    RowSource source() {
        return {
            .count = [this] { return count(); },
            .name = [this](int row) { return DiffLineView{line(row)}.description(); },
            .paint = [this](QPainter& painter, const QRect& rect, int row,
                            RowState state) { paint(painter, rect, line(row), state); },
            .texts =
                RowTexts{
                    .text = [this](int row) { return textOf(line(row)); },
                    .offsetAt = [this](int row, QPoint position) { return offsetAt(line(row), position); },
                    .caret = [this](int row, std::size_t offset) { return caret(line(row), offset); },
                    .marginWidth = [this] { return contentLeft(); }},
            .copyTitle = QWidget::tr("&Copy"),
            .commands = commands(),
            .textLeft = [this](int) { return contentLeft(); },
            .width = [this] { return width(); },
            .height = TextZoom::px(rowHeight),
            .topPadding = Theme::px(listPaddingY)};
    }

    int count() const { return m_result ? static_cast<int>((m_result->*m_lines).size()) : 0; }

    const DiffLine& line(int row) const { return (m_result->*m_lines)[static_cast<std::size_t>(row)]; }

    /// None for a filler row.
    static std::optional<std::string_view> textOf(const DiffLine& line) {
        return line.lineNumber ? std::optional(line.content) : std::nullopt;
    }

    std::size_t offsetAt(const DiffLine& line, QPoint position) const {
        return rowTextOffset(line.content, position.x() - contentLeft(),
                             TextZoom::font(TextStyle::codeSmall));
    }

    QRect caret(const DiffLine& line, std::size_t offset) const {
        const auto x = rowTextX(line.content, offset, TextZoom::font(TextStyle::codeSmall));
        return {contentLeft() + static_cast<int>(std::min(x, maxTextWidth)), 0, 1, TextZoom::px(rowHeight)};
    }

    std::vector<RowCommand> commands() {
        if (!m_options.showsPrefixes)
            return {};
        return {{.title = QWidget::tr("Copy with &Marks"), .run = [this](int) { copyWithMarks(); }}};
    }

    /// Copies whole lines, each after its mark, in the format of `diff -u`.
    void copyWithMarks() const {
        std::string text;
        const auto [first, last] = m_list->selection().rows();
        for (auto row = first; row <= last; ++row) {
            const DiffLineView shown{.line = line(row), .showPrefix = true};
            text.append(row == first ? "" : "\n").append(shown.prefix()).append(shown.line.content);
        }
        copyToDesktop(text);
    }

    /// The part of the left padding that the panel's outline takes.
    int edge() const { return m_options.isFirst ? Size::panelOutline : 0; }

    /// The width of the numbers, which depends on the digits of the highest.
    int numberWidth() const {
        const auto stats = m_result ? m_result->stats : DiffEngine::DiffStats();
        const auto maxNumber = stats.unchanged + std::max(stats.added, stats.removed);
        const auto digits =
            QFontMetrics(TextZoom::font(TextStyle::codeSmall)).horizontalAdvance(QString::number(maxNumber));
        return std::max(TextZoom::px(minNumberWidth) - Theme::px(edge()), digits + Theme::px(numberGap));
    }

    /// The left edge of a line's content.
    int contentLeft() const {
        return numberWidth() + Theme::px(numberGap) +
               (m_options.showsPrefixes ? TextZoom::px(prefixWidth) : 0);
    }

    /// The width that the longest line needs.
    int width() {
        if (m_width >= 0)
            return m_width;
        std::size_t columns = 0;
        for (int row = 0; row < count(); ++row) {
            if (line(row).content.size() > columns) // a line has no more columns than bytes
                columns = std::max(columns, columnCount(line(row).content));
        }
        const auto column = QFontMetricsF(TextZoom::font(TextStyle::codeSmall)).horizontalAdvance('0');
        const auto widest = std::min(std::ceil(static_cast<double>(columns) * column), maxTextWidth);
        m_width = contentLeft() + static_cast<int>(widest) + Theme::px(paddingRight);
        return m_width;
    }

    void paint(QPainter& painter, const QRect& rect, const DiffLine& line, RowState state) const {
        const DiffLineView shown{.line = line, .showPrefix = m_options.showsPrefixes};
        const auto color = shown.color();
        if (color)
            painter.fillRect(rect, Theme::withTint(*color, Theme::Tint::diffLine));
        if (state.isCurrent)
            painter.fillRect(rect, Theme::color(Role::rowHover));

        auto font = TextZoom::font(TextStyle::codeSmall);
        const auto content = QRectF(rect).adjusted(contentLeft(), 0, 0, 0);
        paintRowSelection(painter, content, line.content, state.selected, font);
        drawRowText(painter, content, line.content, font,
                    Theme::color(shown.isUnchanged() ? Role::unchangedLine : Role::primary));
        if (state.caret)
            painter.fillRect(caret(line, *state.caret).translated(rect.topLeft()),
                             Theme::color(Role::primary));
        painter.setFont(font);
        painter.setPen(Theme::color(Role::placeholder));
        QRect place(rect.left(), rect.top(), numberWidth(), rect.height());
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                         qString(shown.number()));
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(color && !state.isCurrent ? Theme::textTone(*color) : Theme::color(Role::primary));
        place.setLeft(place.right() + 1 + Theme::px(numberGap));
        place.setWidth(TextZoom::px(prefixWidth));
        painter.drawText(place, Qt::AlignCenter, qString(shown.prefix()));
    }

    static constexpr double maxTextWidth = 1e9; // well within the range of Qt's coordinates

    const Lines DiffResult::* m_lines;
    Options m_options;
    const DiffResult* m_result = nullptr;
    UUID m_first;
    int m_width = -1;
    std::unique_ptr<RowList> m_list; ///< destroyed before the data of its rows
};

/// One or two columns in a panel, with a band behind the titles and a line between the columns.
class DiffPanel final : public Panel {
public:
    explicit DiffPanel(std::initializer_list<Item> columns)
        : Panel(stack(Qt::Horizontal, {.spacing = dividerWidth, .equalShares = true}, columns)),
          m_first(columns.begin()->widget),
          m_hasDivider(columns.size() > 1) {
        setFocusProxy(focusTarget(m_first));
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        Panel::paintEvent(event);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const auto outline = Theme::px(Size::panelOutline);
        const auto inside = rect().adjusted(outline, outline, -outline, -outline);
        clipToSurface(painter, inside, Theme::px(Size::radiusMedium) - outline);
        painter.fillRect(QRect(inside.left(), inside.top(), inside.width(), DiffColumn::titleHeight()),
                         Theme::color(Role::controlFill));
        if (m_hasDivider)
            painter.fillRect(
                QRect(m_first->geometry().right() + 1 + outline, inside.top(), dividerWidth, inside.height()),
                Theme::color(Role::divider));
    }

private:
    static constexpr int dividerWidth = 1;

    QWidget* m_first;
    bool m_hasDivider;
};

} // namespace

QWidget* sideBySideDiff(Store& store, const DiffResultReader& result) {
    auto* left = new DiffColumn("Original", &DiffResult::leftLines, {});
    auto* right = new DiffColumn("Modified", &DiffResult::rightLines, {.isFirst = false});
    store.onRefresh([left, right, result = result.of(store)] {
        left->display(result());
        right->display(result());
    });
    return new DiffPanel({left, right});
}

QWidget* unifiedDiff(Store& store, const DiffResultReader& result) {
    auto* list = new DiffColumn("Unified Diff", &DiffResult::unifiedDiff, {.showsPrefixes = true});
    store.onRefresh([list, result = result.of(store)] { list->display(result()); });
    return new DiffPanel({list});
}

} // namespace korvane
