#include "Desktop/Tools/JSON/Tree.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Lists/RowText.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Look/Transition.h"
#include "Desktop/Text/TextZoom.h"
#include "Views/Services.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int treeRow = 20;
constexpr int treeIndent = 20;
constexpr int treeChevronBox = 16;
constexpr int treeChevron = 10;
constexpr int treeGlyph = 11;
constexpr int treeValueGap = 8;
constexpr int treeGap = 4;
constexpr int treePaddingX = 8;
constexpr int treePaddingY = 10;

/// Paints the rows, expands and collapses them by pointer and keyboard, and computes their width.
class TreeController {
public:
    TreeController(Clipboard& clipboard, std::function<TreeRows()> rows,
                   std::function<void(std::size_t)> toggleRow)
        : m_clipboard(clipboard),
          m_read(std::move(rows)),
          m_toggle(std::move(toggleRow)),
          m_list(std::make_unique<RowList>(source())),
          m_turn(m_list->viewport()) {
        m_list->onClick = [this](int row, QPoint position) {
            const auto box =
                chevronBox(m_rows.at(static_cast<std::size_t>(row)), QRect(0, 0, 0, rowHeight()));
            if (position.x() >= box.left() && position.x() < box.right())
                toggle(row);
        };
        m_list->onActivate = [this](int row) { toggle(row); };
        TextZoom::follow(m_list.get(), [this] {
            m_width = -1;
            m_list->setRowHeight(rowHeight());
        });
        m_list->onKey = [this](QKeyEvent* event) { return fold(event); };
    }

    RowList* list() const { return m_list.get(); }

    bool isEmpty() const { return m_rows.count == 0; }

    void refresh() {
        auto rows = m_read();
        const bool isSame = rows.revision == m_rows.revision && rows.count == m_rows.count;
        m_rows = std::move(rows);
        if (isSame)
            return;
        m_width = -1;
        m_list->reload();
    }

private:
    RowSource source() {
        return {
            .count = [this] { return static_cast<int>(m_rows.count); },
            .name = [this](int row) { return name(m_rows.at(static_cast<std::size_t>(row))); },
            .paint = [this](QPainter& painter, const QRect& rect, int row,
                            RowState state) { paint(painter, rect, row, state); },
            .copyRow = [this](int row) { copy(m_rows.value(static_cast<std::size_t>(row))); },
            .copyTitle = QWidget::tr("Copy &Value"),
            .commands = commands(),
            .textLeft = [this](int row) { return textLeft(m_rows.at(static_cast<std::size_t>(row))); },
            .isExpanded = [this](int row) { return isExpanded(m_rows.at(static_cast<std::size_t>(row))); },
            .width = [this] { return width(); },
            .height = rowHeight(),
            .topPadding = Theme::px(treePaddingY - Size::panelOutline)};
    }

    std::vector<RowCommand> commands() {
        const auto key = [this](int row) { return m_rows.key(static_cast<std::size_t>(row)); };
        return {{.title = QWidget::tr("Copy &Key"),
                 .run = [this, key](int row) { copy(key(row).value_or("")); },
                 .isEnabled = [key](int row) { return key(row).has_value(); }},
                {.title = QWidget::tr("Copy &Path"),
                 .keys = QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
                 .run = [this](int row) { copy(m_rows.path(static_cast<std::size_t>(row))); }}};
    }

    void copy(const std::string& text) const {
        m_clipboard.setText(text);
        announce(*m_list, QWidget::tr("Copied"));
    }

    static int rowHeight() { return TextZoom::px(treeRow) + TextZoom::px(treeGap); }

    static std::optional<bool> isExpanded(const TreeRow& row) {
        return row.hasChildren ? std::optional(row.isExpanded) : std::nullopt;
    }

    static std::string name(const TreeRow& row) {
        std::string text(row.key);
        for (const std::string_view part : {row.value, std::string_view(row.count)}) {
            if (!part.empty())
                text.append(" ").append(part);
        }
        return text;
    }

    static QRectF chevronBox(const TreeRow& row, const QRect& rect) {
        const auto left =
            rect.left() + Theme::px(treePaddingX - Size::panelOutline) + row.depth * TextZoom::px(treeIndent);
        return {static_cast<double>(left), static_cast<double>(rect.top()),
                static_cast<double>(TextZoom::px(treeChevronBox)),
                static_cast<double>(TextZoom::px(treeRow))};
    }

    /// The left edge of a row's glyph, which precedes its texts.
    static int textLeft(const TreeRow& row) {
        return static_cast<int>(chevronBox(row, {}).right()) + TextZoom::px(treeGap);
    }

    void paint(QPainter& painter, const QRect& rect, int number, RowState state) {
        const auto row = m_rows.at(static_cast<std::size_t>(number));
        const auto height = TextZoom::px(treeRow);
        painter.setRenderHint(QPainter::Antialiasing);
        if (state.isCurrent || state.isHovered) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(Theme::color(state.isCurrent ? Role::selection : Role::rowHover));
            const auto radius = Theme::px(Size::radiusBadge);
            painter.drawRoundedRect(
                QRectF(rect.left() + radius, rect.top(), rect.width() - 2 * radius, height), radius, radius);
        }
        auto box = chevronBox(row, rect);
        if (row.hasChildren)
            paintChevron(painter, box, row.isExpanded, number);
        const auto gap = TextZoom::px(treeGap);
        const auto glyph = TextZoom::px(treeGlyph);
        double x = box.right() + gap;
        Glyph::paint(painter, row.icon, QRectF(x, rect.top() + (height - glyph) / 2.0, glyph, glyph),
                     Theme::hue(row.color));
        x += glyph + gap;
        const auto draw = [&](std::string_view text, TextStyle style, const QColor& color) {
            x += drawRowText(painter, QRectF(x, rect.top(), 0, height), text, TextZoom::font(style), color,
                             Theme::color(Role::secondary));
        };
        const auto primary = Theme::color(Role::primary);
        draw(row.key, TextStyle::codeMedium, primary);
        if (!row.value.empty()) {
            x += TextZoom::px(treeValueGap);
            draw(row.value, TextStyle::code, state.isCurrent ? primary : Theme::textTone(row.color));
        }
        if (!row.count.empty()) {
            x += gap;
            draw(row.count, TextStyle::codeCaption,
                 state.isCurrent ? primary : Theme::color(Role::secondary));
        }
    }

    void paintChevron(QPainter& painter, const QRectF& box, bool isExpanded, int number) const {
        const auto size = TextZoom::px(treeChevron);
        const QRectF glyph(-size / 2.0, -size / 2.0, size, size);
        painter.save();
        painter.translate(box.center());
        const auto color = Theme::color(Role::secondary);
        if (number == m_turning && m_turn.isRunning()) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.rotate((isExpanded ? m_turn.progress() : 1 - m_turn.progress()) * quarterTurn);
            Glyph::paint(painter, "chevron.right", glyph, color);
        } else {
            Glyph::paint(painter, isExpanded ? "chevron.down" : "chevron.right", glyph, color);
        }
        painter.restore();
    }

    void toggle(int row) {
        if (!m_rows.at(static_cast<std::size_t>(row)).hasChildren)
            return;
        m_turning = row;
        m_turn.restart();
        m_toggle(static_cast<std::size_t>(row));
        m_list->setCurrentRow(row);
    }

    /// Left collapses a row or goes to its parent, Right expands it or goes to its first child, Space toggles
    /// it.
    bool fold(QKeyEvent* event) {
        const auto current = m_list->currentRow();
        if (current < 0 || event->modifiers() != Qt::NoModifier)
            return false;
        const auto row = m_rows.at(static_cast<std::size_t>(current));
        switch (event->key()) {
        case Qt::Key_Space:
            toggle(current);
            return true;
        case Qt::Key_Left:
            if (row.hasChildren && row.isExpanded)
                toggle(current);
            else
                m_list->setCurrentRow(parentOf(current));
            return true;
        case Qt::Key_Right:
            if (row.hasChildren && !row.isExpanded)
                toggle(current);
            else if (row.hasChildren)
                m_list->setCurrentRow(current + 1);
            return true;
        default:
            return false;
        }
    }

    int parentOf(int row) const {
        const auto parent = m_rows.parent(static_cast<std::size_t>(row));
        return parent ? static_cast<int>(*parent) : row;
    }

    /// The width that the widest row needs: an upper bound from the number of columns of its texts.
    int width() {
        if (m_width >= 0)
            return m_width;
        const auto column = QFontMetricsF(TextZoom::font(TextStyle::codeMedium)).horizontalAdvance('0');
        double widest = 0;
        if (!isEmpty()) {
            for (double indent = 0; const auto columns : m_rows.columnsByDepth()) {
                widest = std::max(widest, static_cast<double>(columns) * column + indent);
                indent += TextZoom::px(treeIndent);
            }
        }
        widest = std::min(widest, maxTextWidth);
        m_width = static_cast<int>(std::ceil(widest)) + TextZoom::px(treeChevronBox) +
                  TextZoom::px(treeGlyph) + TextZoom::px(treeValueGap) + 3 * TextZoom::px(treeGap) +
                  2 * Theme::px(treePaddingX);
        return m_width;
    }

    static constexpr double quarterTurn = 90;
    static constexpr double maxTextWidth = 1e9; // well within the range of Qt's coordinates

    Clipboard& m_clipboard;
    std::function<TreeRows()> m_read;
    std::function<void(std::size_t)> m_toggle;
    TreeRows m_rows;
    int m_width = -1;
    std::unique_ptr<RowList> m_list; ///< destroyed before the data of its rows
    int m_turning = -1;
    Transition m_turn;
};

/// The list of a tree, or the prompt of an empty one.
class TreePanel final : public Panel {
public:
    TreePanel(std::unique_ptr<TreeController> tree, std::string_view emptyPrompt)
        : Panel(tree->list()), m_tree(std::move(tree)), m_emptyPrompt(qString(emptyPrompt)) {
        new OverlayScrollBar(Qt::Vertical, m_tree->list(), this);
        new OverlayScrollBar(Qt::Horizontal, m_tree->list(), this);
    }

    void refresh() {
        m_tree->refresh();
        const bool isEmpty = m_tree->isEmpty();
        m_tree->list()->setVisible(!isEmpty);
        korvane::setAccessibleName(*this, isEmpty ? m_emptyPrompt : QString());
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        Panel::paintEvent(event);
        if (!m_tree->list()->isHidden())
            return;
        QPainter painter(this);
        painter.setFont(Theme::font(TextStyle::body));
        painter.setPen(Theme::color(Role::secondary));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyPrompt);
    }

private:
    std::unique_ptr<TreeController> m_tree;
    QString m_emptyPrompt;
};

} // namespace

QWidget* tree(Store& store, const Reader<TreeRows>& rows, const Action<std::size_t>& toggle,
              std::string_view emptyPrompt) {
    auto* panel = new TreePanel(
        std::make_unique<TreeController>(store.services().clipboard, rows.of(store), toggle.on(store)),
        emptyPrompt);
    store.onRefresh([panel] { panel->refresh(); });
    return panel;
}

} // namespace korvane
