#include "Desktop/Tools/Regex/MatchList.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Lists/RowText.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Regex/MatchCards.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int matchCardLeft = 10;
constexpr int matchCardRight = 4;
constexpr int matchHeading = 64;
constexpr int matchIndent = 16;
constexpr int matchListMinimum = 180;
constexpr int dashWidth = 10;
constexpr int dashHeight = 2;
constexpr int dashRadius = 1;

/// How much of a long text a tool tip or a name shows, in bytes.
constexpr std::size_t toolTipLength = 2000;
constexpr std::size_t nameLength = 200;

/// As the marks of groups in the test string.
PaletteColor groupColor(const RegexMatchLine& line) {
    static constexpr std::array colors{PaletteColor::orange, PaletteColor::purple, PaletteColor::blue,
                                       PaletteColor::pink};
    return colors[*line.group % colors.size()];
}

QFont textFont(const RegexMatchLine& line) {
    return Theme::font(line.group ? TextStyle::codeSmall : TextStyle::codeSmallMedium);
}

/// How the rows look, where they are, and what they do.
class MatchRows {
public:
    MatchRows(Store& store, std::function<void(std::size_t)> select)
        : m_store(store), m_select(std::move(select)), m_list(std::make_unique<RowList>(source())) {
        m_count->setParent(m_list->viewport());
        m_list->onActivate = [this](int) { m_list->copy(); };
        m_list->onClick = [this](int row, QPoint) {
            m_list->showRow(row);
            choose(row); // also the row that is the current one already
        };
        m_list->onCurrentRow = [this](int row) { choose(row); };
        m_list->onMove = [this] { placeCount(); };
        m_list->onKey = [this](const QKeyEvent* event) {
            const bool isSpace = event->key() == Qt::Key_Space;
            if (isSpace)
                m_list->copy();
            return isSpace;
        };
    }

    RowList* list() const { return m_list.get(); }

    void display(const RegexMatches& matches, std::string_view count) {
        if (matches == m_matches)
            return;
        m_selected.reset();
        m_matches = matches;
        ++m_run;
        m_count->display(count);
        m_list->setAccessibleDescription(m_count->text());
        m_list->reload();
    }

    void showSelected(std::optional<std::size_t> line) {
        if (line && *line >= m_matches.lineCount())
            line.reset();
        if (line == m_selected)
            return;
        m_selected = line;
        m_isShowing = true;
        if (line)
            m_list->setCurrentRow(static_cast<int>(*line));
        m_isShowing = false;
        m_list->viewport()->update();
    }

private:
    void choose(int row) {
        if (!m_isShowing && row >= 0)
            m_select(static_cast<std::size_t>(row));
    }

    RowSource source() {
        return {
            .count = [this] { return static_cast<int>(m_matches.lineCount()); },
            .name =
                [this](int row) { return line(row).name() + ": " + startOfText(line(row).text, nameLength); },
            .paint =
                [this](QPainter& painter, const QRect& rect, int row, RowState state) {
                    paint(painter, rect, row, state.isCurrent || m_selected == static_cast<std::size_t>(row));
                },
            .copyRow = [this](int row) { m_list->buttons().copy(row); },
            .copyTitle = QWidget::tr("&Copy"),
            .textLeft = [](int) { return Theme::px(matchCardLeft); },
            .toolTip = [this](int row) { return toolTip(row); },
            .places = [this] { return places(); },
            .sidePadding = MatchCards::padding(),
            .paintBehind =
                [this](QPainter& painter) { MatchCards(m_matches).paint(painter, seen(), selectedMatch()); },
            .buttons = buttons(),
            .goesAsAnyList = false};
    }

    /// They are no tab stops: there may be thousands.
    RowButtonSource buttons() {
        return {.store = m_store,
                .text = [this](int row) { return std::string(line(row).text); },
                .subject = [this](int row) { return line(row).name(); },
                .identity = [this](int row) { return std::to_string(m_run) + ' ' + std::to_string(row); },
                .place = [](const QRect& row) { return row.adjusted(0, 0, -Theme::px(matchCardRight), 0); },
                .isTabStop = false,
                .onlyNewestSpeaks = true};
    }

    std::optional<std::size_t> selectedMatch() const {
        return m_selected ? std::optional(m_matches.line(*m_selected).match) : std::nullopt;
    }

    RegexMatchLine line(int row) const { return m_matches.line(static_cast<std::size_t>(row)); }

    RowPlaces places() {
        const QFontMetrics metrics(Theme::font(TextStyle::subheadlineStrong));
        const auto widest = qString(RegexMatchLine{.match = m_matches.size()}.heading());
        m_headingWidth = std::max(Theme::px(matchHeading), metrics.horizontalAdvance(widest));
        return MatchCards(m_matches).rows();
    }

    /// Of what is scrolled.
    QRect seen() const {
        return m_list->viewport()->rect().translated(0, m_list->verticalScrollBar()->value());
    }

    void placeCount() {
        m_count->setGeometry(MatchCards::countPlace(seen().width()).translated(0, -seen().top()));
    }

    /// Where a row's text has room, in the viewport.
    QRectF textRoom(const QRect& rect, int row) const {
        const auto gap = Theme::px(Size::gapControl);
        const auto left = rect.left() + Theme::px(matchCardLeft) + m_headingWidth + gap;
        const auto* button = m_list->buttons().of(row);
        const auto right = (button ? button->x() : rect.right() + 1) - gap;
        return QRectF(left, rect.top(), right - left, rect.height());
    }

    void paint(QPainter& painter, const QRect& rect, int row, bool isCurrent) const {
        const auto shown = line(row);
        if (isCurrent)
            paintSurface(painter, rect, Theme::px(Size::radiusSmall), Theme::color(Role::controlHover));
        const bool isGroup = shown.group.has_value();
        const auto indent = isGroup ? Theme::px(matchIndent) : 0;
        const auto primary = Theme::color(Role::primary);
        const auto tone = [&](PaletteColor color) { return isCurrent ? primary : Theme::textTone(color); };
        painter.setFont(Theme::font(isGroup ? TextStyle::subheadline : TextStyle::subheadlineStrong));
        if (isGroup)
            paintSurface(painter, dashPlace(rect), Theme::px(dashRadius), Theme::hue(groupColor(shown)));
        painter.setPen(isGroup ? tone(groupColor(shown)) : primary);
        painter.drawText(QRect(rect.left() + Theme::px(matchCardLeft) + indent, rect.top(),
                               m_headingWidth - indent, rect.height()),
                         Qt::AlignVCenter | Qt::AlignLeft, qString(shown.heading()));
        drawElidedRowText(painter, textRoom(rect, row), shown.text, textFont(shown),
                          isGroup ? primary : tone(PaletteColor::green));
    }

    /// The dash before the heading of a group, in the colour of its mark in the text.
    static QRect dashPlace(const QRect& row) {
        return {row.left() + Theme::px(matchCardLeft), row.center().y() - Theme::px(dashHeight) / 2 + 1,
                Theme::px(dashWidth), Theme::px(dashHeight)};
    }

    /// What the row has to leave out.
    std::string toolTip(int row) const {
        const auto shown = line(row);
        if (!isElidedRowText(textRoom(m_list->rowPlace(row), row).width(), shown.text, textFont(shown)))
            return {};
        const auto text = qString(startOfText(shown.text, toolTipLength)).toHtmlEscaped();
        return utf8String(QStringLiteral("<p style='white-space: pre-wrap'>%1</p>").arg(text));
    }

    Store& m_store;
    std::function<void(std::size_t)> m_select;
    RegexMatches m_matches{};
    std::optional<std::size_t> m_selected{};
    bool m_isShowing = false; ///< what is selected, so that going there selects nothing
    int m_run = 0;            ///< has the rows of another search be others
    int m_headingWidth = 0;
    Label* m_count = new Label({}, TextStyle::subheadline, Role::secondary); ///< the viewport's
    std::unique_ptr<RowList> m_list; ///< destroyed before what its rows are read from
};

class MatchPanel final : public Panel {
public:
    explicit MatchPanel(std::unique_ptr<MatchRows> rows) : Panel(rows->list()), m_rows(std::move(rows)) {
        new OverlayScrollBar(Qt::Vertical, m_rows->list(), this);
    }

    QSize sizeHint() const override { return {Theme::px(matchListMinimum), Theme::px(matchListMinimum)}; }

private:
    std::unique_ptr<MatchRows> m_rows;
};

} // namespace

QWidget* matchList(Store& store, const Reader<RegexMatches>& matches, const Reader<std::string>& count,
                   const Reader<std::optional<std::size_t>>& selected, const Action<std::size_t>& select) {
    auto owned = std::make_unique<MatchRows>(store, select.on(store));
    auto* rows = owned.get();
    auto* panel = new MatchPanel(std::move(owned));
    store.onRefresh(
        [rows, matches = matches.of(store), count = count.of(store), selected = selected.of(store)] {
            rows->display(matches(), count());
            rows->showSelected(selected());
        });
    return panel;
}

QWidget* matchPrompt(std::initializer_list<Item> prompts) {
    auto* panel = growing(card({}, prompts));
    panel->setMinimumHeight(Theme::px(matchListMinimum));
    return panel;
}

} // namespace korvane
