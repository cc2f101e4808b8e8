#include "Desktop/Window/Sidebar.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Look/Divider.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Look/Transition.h"
#include "Desktop/Window/SearchField.h"
#include "Desktop/Window/Shortcuts.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <memory>
#include <vector>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int sidebarInset = 8;
constexpr int brandHeight = 46;
constexpr int brandGlyph = 18;
constexpr int brandGap = 8;
constexpr int sidebarRow = 48;
constexpr int sidebarRowPadding = 10;
constexpr int sidebarIconBox = 32;
constexpr int sidebarGlyph = 15;
constexpr int sidebarTextGap = 12;
constexpr int shortcutPaddingX = 6;
constexpr int shortcutPaddingY = 2;
constexpr int searchTop = 8;
constexpr int searchBottom = 4;
constexpr int footerHeight = 37;
constexpr int footerGlyph = 13;

/// The list of the tools that match the search, and the painting of its rows.
class ToolList {
public:
    ToolList(Store& store, std::function<void()> leave)
        : m_store(store),
          m_leave(std::move(leave)),
          m_list(std::make_unique<RowList>(source())),
          m_motion(m_list->viewport()) {
        m_list->setAccessibleName(QWidget::tr("Tools"));
        m_list->setFocusPolicy(Qt::TabFocus); // a click selects a tool without taking the focus
        m_list->onClick = [this](int row, QPoint) { select(row); };
        m_list->onActivate = [this](int row) {
            select(row);
            m_leave();
        };
        m_list->onKey = [this](QKeyEvent* event) { return handleKey(event); };
    }

    RowList* list() const { return m_list.get(); }

    void refresh() {
        auto tools = m_store.state<ContentView>().sidebar.filteredTools();
        const auto selected = m_store.state<ContentView>().selectedTool;
        if (tools != m_tools) {
            m_tools = std::move(tools);
            m_list->reload();
            m_list->setCurrentRow(rowOf(selected)); // scrolls to it
        }
        if (selected == m_selected)
            return;
        m_previous = std::exchange(m_selected, selected);
        if (m_isAnimated)
            m_motion.restart();
        else
            m_previous.reset();
        m_list->setCurrentRow(rowOf(selected));
        m_list->viewport()->update();
    }

    void enter() {
        if (m_tools.empty())
            return;
        m_list->setFocus(Qt::OtherFocusReason);
        m_list->setCurrentRow(std::max(0, rowOf(m_selected)));
    }

    /// Opens the selected tool, or the first that matches the search.
    void open() {
        if (m_tools.empty())
            return;
        select(std::max(0, rowOf(m_selected)));
        m_leave();
    }

private:
    RowSource source() {
        return {.count = [this] { return static_cast<int>(m_tools.size()); },
                .name = [this](int row) { return std::string(rawValue(toolAt(row))); },
                .paint = [this](QPainter& painter, const QRect& rect, int row,
                                RowState state) { paint(painter, rect, toolAt(row), state); },
                .isChosen = [this](int row) { return toolAt(row) == m_selected; },
                .toolTip = [this](int row) { return toolTip(toolAt(row)); },
                .height = Theme::px(sidebarRow) + Theme::px(Size::gapList),
                .topPadding = Theme::px(Size::gapList)};
    }

    /// The description, which the row may elide, and the keys in the desktop's notation.
    static std::string toolTip(Tool tool) {
        const auto keys = shortcutKeys(tool);
        return std::string(description(tool)) +
               (keys.isEmpty() ? "" : " (" + utf8String(keys.toString(QKeySequence::NativeText)) + ")");
    }

    Tool toolAt(int row) const { return m_tools[static_cast<std::size_t>(row)]; }

    int rowOf(std::optional<Tool> tool) const {
        const auto found = tool ? std::ranges::find(m_tools, *tool) : m_tools.end();
        return found == m_tools.end() ? -1 : static_cast<int>(found - m_tools.begin());
    }

    void select(int row) {
        m_isAnimated = true;
        m_store.perform(&ContentView::select, toolAt(row));
        m_isAnimated = false;
    }

    bool handleKey(QKeyEvent* event) {
        const bool isSpace = event->key() == Qt::Key_Space && m_list->currentRow() >= 0;
        const bool isEscape = event->key() == Qt::Key_Escape;
        if (isSpace)
            select(m_list->currentRow());
        else if (isEscape)
            m_leave();
        return isSpace || isEscape;
    }

    /// The progress of the highlight on the row of `tool`, from 0 (not selected) to 1.
    double selectionOf(Tool tool) const {
        const auto progress = m_motion.isRunning() ? m_motion.progress() : 1;
        if (tool == m_selected)
            return m_previous ? progress : 1;
        return tool == m_previous ? 1 - progress : 0;
    }

    void paint(QPainter& painter, const QRect& cell, Tool tool, RowState state) const {
        const auto inset = Theme::px(sidebarInset);
        const QRect row(cell.left() + inset, cell.top(), cell.width() - 2 * inset, Theme::px(sidebarRow));
        const auto selection = selectionOf(tool);
        painter.setRenderHint(QPainter::Antialiasing);
        paintBackground(painter, row, tool, selection, state);
        const auto padding = Theme::px(sidebarRowPadding);
        const auto boxSize = Theme::px(sidebarIconBox);
        const QRect box(row.left() + padding, row.top() + (row.height() - boxSize) / 2, boxSize, boxSize);
        paintIconBox(painter, box, tool, selection);
        const auto right = row.right() + 1 - padding - paintBadge(painter, row, tool);
        const auto left = box.right() + 1 + Theme::px(sidebarTextGap);
        paintTexts(painter, QRect(left, row.top(), right - left, row.height()), tool, selection);
    }

    static void paintBackground(QPainter& painter, const QRect& row, Tool tool, double selection,
                                RowState state) {
        const auto color = accentColor(tool);
        const auto clear = QColor(Qt::transparent);
        const auto rest = state.isHovered ? Theme::color(Role::rowHover) : clear;
        painter.setBrush(Theme::mixed(rest, Theme::withTint(color, Theme::Tint::row), selection));
        painter.setPen(Theme::mixed(clear, Theme::withTint(color, Theme::Tint::outline), selection));
        const auto radius = Theme::px(Size::radiusLarge) - 0.5;
        painter.drawRoundedRect(QRectF(row).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
        if (!state.isCurrent)
            return;
        const auto width = Theme::px(Size::focusWidth);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Theme::color(Role::focusRing), width));
        painter.drawRoundedRect(QRectF(row).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0),
                                radius, radius);
    }

    static void paintIconBox(QPainter& painter, const QRect& box, Tool tool, double selection) {
        const auto color = accentColor(tool);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::mixed(Theme::color(Role::controlFill),
                                      Theme::withTint(color, Theme::Tint::iconBox), selection));
        const auto radius = Theme::px(Size::radiusMedium);
        painter.drawRoundedRect(box, radius, radius);
        const auto glyph = Theme::px(sidebarGlyph);
        const QRectF place(box.left() + (box.width() - glyph) / 2.0, box.top() + (box.height() - glyph) / 2.0,
                           glyph, glyph);
        Glyph::paint(painter, icon(tool), place,
                     Theme::mixed(Theme::color(Role::secondary), Theme::hue(color), selection));
    }

    /// Paints the tool's shortcut badge, if any, and returns the width that it takes.
    static int paintBadge(QPainter& painter, const QRect& row, Tool tool) {
        const auto text = qString(shortcutBadge(tool));
        if (text.isEmpty())
            return 0;
        const auto font = Theme::font(TextStyle::caption);
        const auto width = QFontMetrics(font).horizontalAdvance(text) + 2 * Theme::px(shortcutPaddingX);
        const auto height = Theme::lineHeight(TextStyle::caption) + 2 * Theme::px(shortcutPaddingY);
        const QRect badge(row.right() + 1 - Theme::px(sidebarRowPadding) - width,
                          row.top() + (row.height() - height) / 2, width, height);
        const auto radius = Theme::px(Size::radiusBadge);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::color(Role::controlFill));
        painter.drawRoundedRect(badge, radius, radius);
        painter.setFont(font);
        painter.setPen(Theme::color(Role::shortcut));
        painter.drawText(badge, Qt::AlignCenter, text);
        return width + Theme::px(sidebarTextGap);
    }

    static void paintTexts(QPainter& painter, const QRect& area, Tool tool, double selection) {
        const auto nameHeight = Theme::lineHeight(TextStyle::toolName);
        const auto captionHeight = Theme::lineHeight(TextStyle::caption);
        const auto top = area.top() + (area.height() - nameHeight - captionHeight) / 2;
        const auto draw = [&](int y, int height, TextStyle style, const QColor& color,
                              std::string_view text) {
            const auto font = Theme::font(style);
            painter.setFont(font);
            painter.setPen(color);
            painter.drawText(QRect(area.left(), y, area.width(), height), Qt::AlignVCenter | Qt::AlignLeft,
                             QFontMetrics(font).elidedText(qString(text), Qt::ElideRight, area.width()));
        };
        const bool isSelected = selection > 0.5;
        draw(top, nameHeight, isSelected ? TextStyle::toolNameStrong : TextStyle::toolName,
             Theme::color(isSelected ? Role::primary : Role::toolName), rawValue(tool));
        draw(top + nameHeight, captionHeight, TextStyle::caption, Theme::color(Role::secondary),
             description(tool));
    }

    Store& m_store;
    std::function<void()> m_leave;
    std::vector<Tool> m_tools;
    std::optional<Tool> m_selected;
    std::optional<Tool> m_previous;
    bool m_isAnimated = false;
    std::unique_ptr<RowList> m_list; ///< destroyed before the data of its rows
    Transition m_motion;
};

/// Paints the column's background and the line at its right edge.
class SidebarColumn final : public QWidget {
public:
    explicit SidebarColumn(std::unique_ptr<ToolList> tools) : m_tools(std::move(tools)) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Theme::color(Role::sidebarBackground));
        painter.fillRect(QRect(width() - 1, 0, 1, height()), Theme::color(Role::sidebarEdge));
    }

private:
    std::unique_ptr<ToolList> m_tools;
};

/// A line with a glyph and a text, at the sidebar's text inset.
QWidget* sidebarLine(int height, int gap, QWidget* glyph, QWidget* text) {
    constexpr auto inset = sidebarTextInset;
    auto* line =
        stack(Qt::Horizontal, {.spacing = gap, .padding = {inset, 0, inset, 0}}, {glyph, text, stretch()});
    line->setFixedHeight(Theme::px(height));
    return line;
}

/// The privacy footer. The tool tip is its description for assistive technology, too.
QWidget* footer(const ToolSidebarView& sidebar) {
    auto* text = new Label(ToolSidebarView::footer, TextStyle::caption, Role::secondary);
    auto* line =
        sidebarLine(footerHeight, brandGap,
                    new GlyphLabel(ToolSidebarView::footerIcon, footerGlyph, PaletteColor::green), text);
    line->setToolTip(qString(sidebar.footerToolTip()));
    setAccessibleDescription(*text, sidebar.footerToolTip());
    return line;
}

} // namespace

QWidget* sidebar(Store& store, QWidget* menuStrip, std::function<void()> leave) {
    auto ownedTools = std::make_unique<ToolList>(store, leave);
    auto* tools = ownedTools.get();
    auto* column = new SidebarColumn(std::move(ownedTools));
    auto* search =
        searchField(store, {.placeholder = std::string(ToolSidebarView::searchPlaceholder),
                            .text = [](const ContentView& state) { return state.sidebar.searchText; },
                            .setText = [](ContentView& state,
                                          std::string text) { state.sidebar.setSearchText(std::move(text)); },
                            .leaveDown = [tools] { tools->enter(); },
                            .submit = [tools] { tools->open(); },
                            .leave = std::move(leave)});
    column->setFocusProxy(search);
    constexpr auto inset = sidebarInset;
    fill(
        column, Qt::Vertical, {.spacing = 0, .padding = {0, 0, 1, 0}},
        {
            menuStrip,
            sidebarLine(brandHeight, brandGap,
                        new GlyphLabel(ToolSidebarView::icon, brandGlyph, GlyphLabel::Brand{}),
                        new Label(ToolSidebarView::title, TextStyle::headline)),
            new Divider,
            stack(Qt::Vertical, {.spacing = 0, .padding = {inset, searchTop, inset, searchBottom}}, {search}),
            tools->list(),
            new Divider,
            footer(store.state<ContentView>().sidebar),
        });
    new OverlayScrollBar(Qt::Vertical, tools->list(), tools->list());
    tools->list()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    store.onRefresh([tools] { tools->refresh(); });
    return column;
}

} // namespace korvane
