#include "Desktop/Lists/HistoryPanel.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Binding/WidthClass.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Lists/RowParagraph.h"
#include "Desktop/Lists/RowText.h"
#include "Desktop/Look/Divider.h"
#include "Desktop/Look/Theme.h"
#include "Utilities/DateText.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int historyHeader = 40;
constexpr int historyHeaderLeft = 12;
constexpr int historyHeaderRight = 8;
constexpr int historyPadding = 8;
constexpr int historyRow = 36;
constexpr int historyRowPadding = 10;
constexpr int historyButtonInset = 4;
constexpr int historyDot = 8;
constexpr int historyGap = 12;

using Moment = std::chrono::system_clock::time_point;

/// The times of day of rows. Neighbours are mostly of the same minute, and it takes the calendar's rules and
/// the zone's to tell.
class TimeTexts {
public:
    const QString& of(Moment moment) {
        const auto minute = std::chrono::floor<std::chrono::minutes>(moment);
        if (minute != m_minute) {
            m_minute = minute;
            const std::chrono::duration<double> seconds = minute.time_since_epoch();
            m_text = qString(DateText::shortTime(seconds.count()).value_or(""));
        }
        return m_text;
    }

private:
    std::optional<std::chrono::time_point<std::chrono::system_clock, std::chrono::minutes>> m_minute;
    QString m_text;
};

/// How the rows look and what they do.
class HistoryRows {
public:
    HistoryRows(Store& store, std::string_view name, bool isSecret)
        : m_store(store), m_isSecret(isSecret), m_list(std::make_unique<RowList>(source())) {
        m_list->setAccessibleName(qString(name));
        m_list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        new OverlayScrollBar(Qt::Vertical, m_list.get(), m_list.get());
        m_list->onActivate = [this](int row) { press(row); };
        m_list->onKey = [this](const QKeyEvent* event) { return handleKey(*event); };
        QObject::connect(&store.widthClass(), &WidthClass::changed, m_list.get(), &RowList::layOut);
    }

    RowList* list() const { return m_list.get(); }

    void display(std::vector<HistoryRow> rows) {
        if (rows == m_rows)
            return;
        m_rows = std::move(rows);
        m_list->reload();
    }

    bool isEmpty() const { return m_rows.empty(); }

private:
    RowSource source() {
        return {.count = [this] { return static_cast<int>(m_rows.size()); },
                .name = [this](int row) { return spokenName(rowAt(row)); },
                .paint = [this](QPainter& painter, const QRect& rect, int row,
                                RowState state) { paint(painter, rect, row, state); },
                .texts =
                    RowTexts{.text = [this](int row) { return std::string_view(rowAt(row).text); },
                             .offsetAt =
                                 [this](int row, QPoint position) {
                                     return paragraph(rowAt(row)).offsetAt(position - textCorner(rowAt(row)));
                                 },
                             .caret =
                                 [this](int row, std::size_t offset) {
                                     return paragraph(rowAt(row))
                                         .caret(offset)
                                         .translated(textCorner(rowAt(row)))
                                         .toRect();
                                 }},
                .putOnClipboard = [this](std::string_view text) { putOnClipboard(text); },
                .copyRow = [this](int row) { press(row); },
                .copyTitle = QWidget::tr("&Copy"),
                .textLeft = [this](int row) { return static_cast<int>(textCorner(rowAt(row)).x()); },
                .toolTip = [this](int row) { return toolTip(rowAt(row)); },
                .places = [this] { return places(); },
                .topPadding = Theme::px(historyPadding),
                .buttons = buttons()};
    }

    RowButtonSource buttons() {
        return {.store = m_store,
                .text = [this](int row) { return rowAt(row).text; },
                .subject = [this](int row) { return spokenText(rowAt(row)); },
                // A row with another text is another one.
                .identity = [this](int row) { return rowAt(row).id.text() + rowAt(row).text; },
                .place =
                    [this](const QRect& row) {
                        return QRect(row.left(), row.top(), buttonsEnd(), Theme::px(historyRow));
                    },
                .isSecret = m_isSecret};
    }

    /// As in a list, not as in a text: a value is one of many.
    bool handleKey(const QKeyEvent& event) {
        if (event.modifiers() != Qt::NoModifier || m_rows.empty())
            return false;
        switch (event.key()) {
        case Qt::Key_Space:
            press(m_list->currentRow());
            return true;
        case Qt::Key_Home:
            m_list->setCurrentRow(0);
            return true;
        case Qt::Key_End:
            m_list->setCurrentRow(static_cast<int>(m_rows.size()) - 1);
            return true;
        default:
            return false;
        }
    }

    void putOnClipboard(std::string_view text) const {
        auto& clipboard = m_store.services().clipboard;
        if (m_isSecret)
            clipboard.setSecret(text);
        else
            clipboard.setText(text);
    }

    static int padding() { return Theme::px(historyPadding - Size::panelOutline); }

    const HistoryRow& rowAt(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

    static std::string spokenText(const HistoryRow& row) {
        return row.text.empty() ? "empty value" : row.text;
    }

    std::string spokenName(const HistoryRow& row) {
        auto name = spokenText(row);
        for (const auto& part : {row.note, utf8String(m_times.of(row.time))}) {
            if (!part.empty())
                name.append(", ").append(part);
        }
        return name;
    }

    std::string toolTip(const HistoryRow& row) const {
        return row.note.empty() ? row.text : row.text + "\n" + row.note;
    }

    void press(int row) {
        m_list->showRow(row);
        m_list->buttons().copy(row);
    }

    int width() const { return m_list->viewport()->width(); }

    /// Where the buttons end at the right.
    int buttonsEnd() const { return width() - padding() - Theme::px(historyButtonInset); }

    /// Where the text of a row begins.
    QPointF textCorner(const HistoryRow& row) const {
        const auto dot = row.dot ? Theme::px(historyDot) + gap(row) : 0;
        const auto lineHeight = Theme::lineHeight(TextStyle::codeSmall);
        return {static_cast<double>(padding() + Theme::px(historyRowPadding) + dot),
                (Theme::px(historyRow) - lineHeight) / 2.0};
    }

    /// The text of a row in the room that time and button leave it, however wide the button becomes when it
    /// says what it has done.
    RowParagraph paragraph(const HistoryRow& row) const {
        const auto timeWidth =
            QFontMetrics(Theme::font(TextStyle::caption)).horizontalAdvance(m_times.of(row.time));
        const auto right = buttonsEnd() - m_buttonRoom - timeWidth - 2 * gap(row);
        const auto room = std::max(right - textCorner(row).x(), 1.0);
        return {row.text, Theme::font(TextStyle::codeSmall), room, Theme::lineHeight(TextStyle::codeSmall)};
    }

    RowPlaces places() {
        m_buttonRoom = QuietButton::width("Copied!", m_store.widthClass().isNarrow()); // the widest one
        const auto line = Theme::px(historyRow) + Theme::px(Size::gapList);
        return stackedRows(static_cast<int>(m_rows.size()), line, [this, line](int row) {
            return line + paragraph(rowAt(row)).height() - Theme::lineHeight(TextStyle::codeSmall);
        });
    }

    void paint(QPainter& painter, const QRect& area, int number, const RowState& state) {
        const auto& row = rowAt(number);
        const QRectF rect(padding(), area.top(), width() - 2 * padding(),
                          area.height() - Theme::px(Size::gapList));
        const auto fill = [&](Role role) {
            painter.setBrush(Theme::color(role));
            painter.drawRoundedRect(rect, Theme::px(Size::radiusSmall), Theme::px(Size::radiusSmall));
        };
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        fill(Role::panelFill);
        // The colour of the current row is that of a selected text, too, which must be told from it.
        if (state.isCurrent && state.selected.isEmpty())
            fill(Role::selection);
        else if (state.isCurrent || state.isHovered)
            fill(Role::rowHover);

        const QRectF firstLine(rect.topLeft(), QSizeF(rect.width(), Theme::px(historyRow)));
        const auto corner = area.topLeft() + textCorner(row);
        if (row.dot) {
            const auto side = Theme::px(historyDot);
            painter.setBrush(Theme::hue(*row.dot));
            painter.drawEllipse(
                QRectF(corner.x() - gap(row) - side, firstLine.center().y() - side / 2.0, side, side));
        }
        paintTime(painter, firstLine, number, state);
        const auto text = paragraph(row);
        text.draw(painter, corner, Theme::color(Role::primary), state.selected);
        if (state.caret)
            painter.fillRect(text.caret(*state.caret).translated(corner).toRect(),
                             Theme::color(Role::primary));
    }

    /// Paints the time of day left of the row's button.
    void paintTime(QPainter& painter, const QRectF& rect, int number, const RowState& state) {
        const auto& row = rowAt(number);
        const auto font = Theme::font(TextStyle::caption);
        const auto& text = m_times.of(row.time);
        const auto* button = m_list->buttons().of(number);
        const auto buttonWidth = button ? button->size().width() : 0;
        const auto right = rect.right() - Theme::px(historyButtonInset) - buttonWidth - gap(row);
        const auto left = right - QFontMetrics(font).horizontalAdvance(text);
        painter.setFont(font);
        painter.setPen(Theme::color(state.isCurrent ? Role::primary : Role::secondary));
        painter.drawText(QRectF(left, rect.top(), right - left + 1, rect.height()),
                         Qt::AlignVCenter | Qt::AlignLeft, text);
    }

    static int gap(const HistoryRow& row) { return Theme::px(row.dot ? Size::gapControl : historyGap); }

    Store& m_store;
    bool m_isSecret;
    std::vector<HistoryRow> m_rows;
    int m_buttonRoom = 0;
    mutable TimeTexts m_times;
    std::unique_ptr<RowList> m_list; ///< destroyed before what its rows are read from
};

class HistoryPanel final : public Panel {
public:
    HistoryPanel(std::unique_ptr<HistoryRows> rows, QWidget* content)
        : Panel(content), m_rows(std::move(rows)) {}

private:
    std::unique_ptr<HistoryRows> m_rows;
};

} // namespace

QWidget* historyPanel(Store& store, const HistoryPanelParts& parts) {
    const QuietButtonOptions plain{.isPlain = true};
    constexpr auto outline = Size::panelOutline; // around the content, and counted with it
    auto* header = stack(Qt::Horizontal,
                         {.spacing = Size::gapList,
                          .padding = {historyHeaderLeft - outline, 0, historyHeaderRight - outline, 0}},
                         {textLabel(store, parts.title, TextStyle::headline), stretch(),
                          quietButton(store, "Copy All", "doc.on.doc", parts.copyAll, plain),
                          quietButton(store, "Clear", "trash", parts.clear, plain)});
    auto owned = std::make_unique<HistoryRows>(store, "History", parts.isSecret);
    auto* shown = owned.get();
    store.onRefresh([shown, rows = parts.rows.of(store)] { shown->display(rows()); });
    auto* prompt = emptyPrompt(store, "clock.badge.questionmark", parts.prompt, TextStyle::subheadline);
    auto* content =
        stack(Qt::Vertical, {.spacing = 0},
              {withHeight(historyHeader - outline, header), new Divider,
               growing(either(store, [shown] { return !shown->isEmpty(); }, shown->list(), prompt))});
    content->setFocusProxy(shown->list());
    return new HistoryPanel(std::move(owned), content);
}

} // namespace korvane
