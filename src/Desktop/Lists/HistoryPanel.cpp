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

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cstddef>
#include <map>
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

/// The rows, and over their right ends the buttons.
class HistoryList final : public QWidget {
public:
    HistoryList(Store& store, std::string_view name, bool isSecret)
        : m_store(store),
          m_isSecret(isSecret),
          m_list(std::make_unique<RowList>(source())),
          m_buttonStrip(new RowOverlay(this)) {
        m_list->setParent(this);
        m_list->lower();
        m_list->setAccessibleName(qString(name));
        setFocusProxy(m_list.get());
        new OverlayScrollBar(Qt::Vertical, m_list.get(), this);
        m_list->onActivate = [this](int row) { press(row); };
        m_list->onKey = [this](const QKeyEvent* event) { return handleKey(*event); };
        m_buttonStrip->installEventFilter(this);
        QObject::connect(m_list->verticalScrollBar(), &QScrollBar::valueChanged, this,
                         [this] { placeButtons(); });
        QObject::connect(&store.widthClass(), &WidthClass::changed, this, [this] { layOutRows(); });
    }

    void display(std::vector<HistoryRow> rows) {
        if (rows == m_rows)
            return;
        m_rows = std::move(rows);
        m_list->reload();
        placeButtons();
    }

    bool isEmpty() const { return m_rows.empty(); }

protected:
    void resizeEvent(QResizeEvent*) override {
        m_list->setGeometry(rect());
        layOutRows();
    }

    /// The pointer over a button scrolls the list like the pointer beside it.
    void wheelEvent(QWheelEvent* event) override { QApplication::sendEvent(m_list->viewport(), event); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == m_buttonStrip && event->type() == QEvent::LayoutRequest)
            layOutRows(); // a button has another width
        if (watched != m_buttonStrip && event->type() == QEvent::FocusIn)
            m_list->setCurrentRow(rowOf(static_cast<QWidget*>(watched))); // all of it visible
        return QWidget::eventFilter(watched, event);
    }

private:
    /// By what a button belongs to its row, wherever that stands. A row with another text is another one.
    using Key = std::pair<UUID, std::string>;

    static Key keyOf(const HistoryRow& row) { return {row.id, row.text}; }

    RowSource source() {
        return {.count = [this] { return static_cast<int>(m_rows.size()); },
                .name = [this](int row) { return spokenName(rowAt(row)); },
                .paint = [this](QPainter& painter, const QRect& rect, int row,
                                RowState state) { paint(painter, rect, rowAt(row), state); },
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
                .button = [this](int row) { return buttonOf(row); },
                .toolTip = [this](int row) { return toolTip(rowAt(row)); },
                .height = Theme::px(historyRow) + Theme::px(Size::gapList),
                .rowHeight = [this](int row) { return rowHeight(rowAt(row)); },
                .topPadding = Theme::px(historyPadding)};
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

    std::string spokenName(const HistoryRow& row) {
        auto name = row.text.empty() ? std::string("empty value") : row.text;
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
        m_list->scrollTo(m_list->model()->index(row, 0));
        placeButtons();
        if (auto* button = buttonOf(row))
            button->click();
    }

    /// None where the row is out of sight.
    QAbstractButton* buttonOf(int row) const {
        const auto button = m_buttons.find(keyOf(rowAt(row)));
        return button == m_buttons.end() ? nullptr : button->second;
    }

    /// -1 where the button has none any more.
    int rowOf(const QWidget* button) const {
        for (int row = 0; row < static_cast<int>(m_rows.size()); ++row) {
            if (buttonOf(row) == button)
                return row;
        }
        return -1;
    }

    QAbstractButton* newButton(const std::string& text) {
        const std::string subject = text.empty() ? "empty value" : text;
        auto* button = static_cast<QuietButton*>(
            copyButton(m_store, [text] { return text; },
                       {.look = {.dropsLabel = true, .subject = subject}, .isSecret = m_isSecret}));
        button->setRow(*m_list, [this, button] { return rowOf(button); });
        button->setParent(m_buttonStrip);
        button->installEventFilter(this);
        button->show();
        return button;
    }

    void layOutRows() {
        m_buttonRoom = buttonRoom();
        m_list->doItemsLayout();
        placeButtons();
    }

    /// Gives each visible row its button.
    void placeButtons() {
        auto before = std::exchange(m_buttons, {});
        std::vector<std::pair<QAbstractButton*, int>> places;
        for (std::size_t row = 0; row < m_rows.size(); ++row) {
            const auto index = m_list->model()->index(static_cast<int>(row), 0);
            const auto rect = m_list->visualRect(index);
            if (!rect.intersects(m_list->viewport()->rect()))
                continue;
            const auto known = before.extract(keyOf(m_rows[row]));
            auto* button = known ? known.mapped() : newButton(m_rows[row].text);
            m_buttons.emplace(keyOf(m_rows[row]), button);
            places.emplace_back(button, rect.top());
        }
        for (const auto& [key, button] : before)
            discard(button);
        arrange(places);
        m_list->viewport()->update();
    }

    void discard(QAbstractButton* button) {
        if (button->hasFocus())
            m_list->setFocus();
        button->hide();
        button->deleteLater(); // it may be the one that is being pressed
    }

    /// Sets the buttons, given with the tops of their rows, into the strip. The strip cuts them off where the
    /// list cuts off its rows.
    void arrange(const std::vector<std::pair<QAbstractButton*, int>>& places) {
        int stripWidth = 0;
        for (const auto& [button, top] : places)
            stripWidth = std::max(stripWidth, button->sizeHint().width());
        const auto right = width() - padding() - Theme::px(historyButtonInset);
        const auto rows = m_list->viewport()->geometry();
        m_buttonStrip->setGeometry(right - stripWidth, rows.top(), stripWidth, rows.height());
        for (const auto& [button, top] : places) {
            const auto size = button->sizeHint();
            const auto inset = (Theme::px(historyRow) - size.height()) / 2;
            button->setGeometry(QRect(QPoint(stripWidth - size.width(), top + inset), size));
        }
    }

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
        const auto right =
            width() - padding() - Theme::px(historyButtonInset) - m_buttonRoom - timeWidth - 2 * gap(row);
        const auto room = std::max(right - textCorner(row).x(), 1.0);
        return {row.text, Theme::font(TextStyle::codeSmall), room, Theme::lineHeight(TextStyle::codeSmall)};
    }

    int rowHeight(const HistoryRow& row) const {
        const auto lines = paragraph(row).height() - Theme::lineHeight(TextStyle::codeSmall);
        return Theme::px(historyRow) + lines + Theme::px(Size::gapList);
    }

    void paint(QPainter& painter, const QRect& area, const HistoryRow& row, const RowState& state) {
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
        paintTime(painter, firstLine, row, state);
        const auto text = paragraph(row);
        text.draw(painter, corner, Theme::color(Role::primary), state.selected);
        if (state.caret)
            painter.fillRect(text.caret(*state.caret).translated(corner).toRect(),
                             Theme::color(Role::primary));
    }

    /// Paints the time of day left of the row's button.
    void paintTime(QPainter& painter, const QRectF& rect, const HistoryRow& row, const RowState& state) {
        const auto font = Theme::font(TextStyle::caption);
        const auto& text = m_times.of(row.time);
        const auto button = m_buttons.find(keyOf(row));
        const auto buttonWidth = button == m_buttons.end() ? 0 : button->second->width();
        const auto right = rect.right() - Theme::px(historyButtonInset) - buttonWidth - gap(row);
        const auto left = right - QFontMetrics(font).horizontalAdvance(text);
        painter.setFont(font);
        painter.setPen(Theme::color(state.isCurrent ? Role::primary : Role::secondary));
        painter.drawText(QRectF(left, rect.top(), right - left + 1, rect.height()),
                         Qt::AlignVCenter | Qt::AlignLeft, text);
    }

    /// The room that the widest button needs.
    int buttonRoom() const { return QuietButton::width("Copied!", m_store.widthClass().isNarrow()); }

    static int gap(const HistoryRow& row) { return Theme::px(row.dot ? Size::gapControl : historyGap); }

    Store& m_store;
    bool m_isSecret;
    std::vector<HistoryRow> m_rows;
    std::map<Key, QAbstractButton*> m_buttons; ///< of the visible rows
    int m_buttonRoom = 0;
    mutable TimeTexts m_times;
    std::unique_ptr<RowList> m_list; ///< destroyed before what its rows are read from
    QWidget* m_buttonStrip;
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
    auto* list = new HistoryList(store, "History", parts.isSecret);
    store.onRefresh([list, rows = parts.rows.of(store)] { list->display(rows()); });
    auto* prompt = emptyPrompt(store, "clock.badge.questionmark", parts.prompt, TextStyle::subheadline);
    auto* content = stack(Qt::Vertical, {.spacing = 0},
                          {withHeight(historyHeader - outline, header), new Divider,
                           growing(either(store, [list] { return !list->isEmpty(); }, list, prompt))});
    content->setFocusProxy(list);
    return new Panel(content);
}

} // namespace korvane
