#include "Desktop/Tools/Regex/MatchList.h"
#include "Desktop/Tools/Regex/MatchRow.h"

#include "Desktop/Access/ContextMenu.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QContextMenuEvent>
#include <QEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <ranges>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int matchRow = 32;
constexpr int matchListPadding = 8;
constexpr int matchCountInset = 2;
constexpr int matchCountBottom = 4;
constexpr int matchCardPadding = 2;
constexpr int matchHeading = 64;
constexpr int matchListMinimum = 180;

class MatchPanel final : public Panel {
public:
    explicit MatchPanel(MatchList* list) : Panel(list) { new OverlayScrollBar(Qt::Vertical, list, this); }

    QSize sizeHint() const override { return {Theme::px(matchListMinimum), Theme::px(matchListMinimum)}; }
};

/// From the list's edges; the panel's outline is outside it.
int listPadding() {
    return Theme::px(matchListPadding) - Size::panelOutline;
}

int countTop() {
    return listPadding() + Theme::px(matchCountInset);
}

int firstCardTop() {
    return countTop() + Theme::lineHeight(TextStyle::subheadline) +
           Theme::px(matchCountBottom + Size::gapList);
}

/// What a card takes beside its lines: the room above the first and below the last, and the gap to the next
/// card.
int cardExtra() {
    return Theme::px(2 * matchCardPadding + Size::gapList);
}

} // namespace

MatchList::MatchList(Store& store)
    : m_store(store), m_count(new Label({}, TextStyle::subheadline, Role::secondary)) {
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    m_count->setParent(viewport());
}

void MatchList::display(const RegexMatches& matches, std::string_view count) {
    if (matches == m_matches)
        return;
    m_matches = matches;
    m_count->display(count);
    setAccessibleDescription(m_count->text());
    m_copied.reset();
    m_current = std::min(m_current, std::max(m_matches.lineCount(), std::size_t{1}) - 1);
    layOut();
    reportOtherRows();
}

// The positions are in pixels from the top of all that can be scrolled to. The most pieces that a search
// collects keep them within an int.

int MatchList::cardTop(std::size_t match) const {
    return firstCardTop() + static_cast<int>(m_matches.firstLine(match)) * Theme::px(matchRow) +
           static_cast<int>(match) * cardExtra();
}

int MatchList::lineTop(std::size_t line) const {
    const auto match = m_matches.line(line).match;
    return cardTop(match) + Theme::px(matchCardPadding) +
           static_cast<int>(line - m_matches.firstLine(match)) * Theme::px(matchRow);
}

std::size_t MatchList::matchAt(int y) const {
    const auto matches = std::views::iota(std::size_t{0}, m_matches.size());
    const auto below =
        std::ranges::partition_point(matches, [&](std::size_t match) { return cardTop(match) <= y; });
    return below == matches.begin() ? 0 : *below - 1;
}

std::size_t MatchList::lineAt(int y) const {
    const auto match = matchAt(y);
    const auto first = m_matches.firstLine(match);
    const auto count = m_matches.firstLine(match + 1) - first;
    const auto above = std::max(y - cardTop(match) - Theme::px(matchCardPadding), 0) / Theme::px(matchRow);
    return first + std::min(static_cast<std::size_t>(above), count - 1);
}

std::size_t MatchList::linesOfPage() const {
    return static_cast<std::size_t>(std::max(viewport()->height() / Theme::px(matchRow), 1));
}

int MatchList::scrollOffset() const {
    return verticalScrollBar()->value();
}

void MatchList::layOut() {
    const auto content = cardTop(m_matches.size()) - Theme::px(Size::gapList) + listPadding();
    verticalScrollBar()->setSingleStep(Theme::px(matchRow));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(content - viewport()->height(), 0));
    placeRows();
    viewport()->update();
}

void MatchList::placeRows() {
    const auto padding = listPadding();
    const auto inset = padding + Theme::px(matchCountInset);
    m_count->setGeometry(inset, countTop() - scrollOffset(), viewport()->width() - 2 * inset,
                         Theme::lineHeight(TextStyle::subheadline));
    const bool isEmpty = m_matches.empty();
    const auto first = isEmpty ? 0 : lineAt(scrollOffset());
    const auto end = isEmpty ? 0 : lineAt(scrollOffset() + viewport()->height()) + 1;
    while (m_rows.size() < end - first)
        addRow();
    const QFontMetrics metrics(Theme::font(TextStyle::subheadlineStrong));
    const auto widest = qString(RegexMatchLine{.match = m_matches.size()}.heading());
    const auto headingWidth = std::max(Theme::px(matchHeading), metrics.horizontalAdvance(widest));
    std::vector<bool> isShown(m_rows.size());
    for (auto line = first; line < end; ++line) {
        auto* row = m_rows[line % m_rows.size()];
        isShown[line % m_rows.size()] = true;
        row->setGeometry(padding, lineTop(line) - scrollOffset(), viewport()->width() - 2 * padding,
                         Theme::px(matchRow));
        showLine(*row, line, headingWidth);
    }
    for (std::size_t index = 0; index < m_rows.size(); ++index)
        m_rows[index]->setVisible(isShown[index]);
}

void MatchList::showLine(MatchRow& row, std::size_t line, int headingWidth) {
    static const CopyButton untouched{.label = "Copy"};
    const auto& copyButton = m_copied && line == m_copiedLine ? *m_copied : untouched;
    row.display(line, m_matches.line(line), headingWidth);
    korvane::display(row.copyButton(), copyButton);
    row.setCurrent(hasFocus() && line == m_current);
}

void MatchList::addRow() {
    auto* row = new MatchRow([this](std::size_t line) { copy(line); });
    row->setParent(viewport());
    row->copyButton().setRow(*this, [row] { return static_cast<int>(row->number()); });
    followWidth(row->copyButton(), m_store.widthClass());
    m_rows.push_back(row);
}

void MatchList::setCurrentLine(std::size_t line) {
    if (m_matches.empty())
        return;
    m_current = std::min(line, m_matches.lineCount() - 1);
    const auto margin = Theme::px(matchCardPadding) + listPadding();
    const auto top = m_current == 0 ? 0 : lineTop(m_current) - margin; // the count comes with the first line
    const auto bottom = lineTop(m_current) + Theme::px(matchRow) + margin;
    if (top < scrollOffset())
        verticalScrollBar()->setValue(top);
    else if (bottom > scrollOffset() + viewport()->height())
        verticalScrollBar()->setValue(bottom - viewport()->height());
    placeRows();
    reportCurrentRow(static_cast<int>(m_current));
}

void MatchList::copy(std::size_t line) {
    if (line >= m_matches.lineCount())
        return;
    m_copiedLine = line;
    m_copied = std::make_shared<CopyButton>(
        CopyButton{.text = std::string(m_matches.line(line).text), .label = "Copy"});
    const auto change = [this,
                         copied = std::weak_ptr(m_copied)](const std::function<void(CopyButton&)>& apply) {
        if (const auto living = copied.lock()) { // else another line was copied since, or the list is gone
            apply(*living);
            placeRows();
        }
    };
    m_copied->copyToClipboard({m_store.services(), change});
    m_copied->text.clear(); // it may be large
    placeRows();
}

int MatchList::accessibleRowCount() const {
    return static_cast<int>(m_matches.lineCount());
}

AccessibleRow MatchList::accessibleRow(int row) const {
    const auto line = static_cast<std::size_t>(row);
    auto* shown = m_rows[line % m_rows.size()];
    return {.name = qString(MatchRow::name(m_matches.line(line))),
            .button = shown->isVisible() && shown->number() == line ? &shown->copyButton() : nullptr};
}

int MatchList::accessibleCurrentRow() const {
    return m_matches.empty() ? -1 : static_cast<int>(m_current);
}

QRect MatchList::accessibleRowPlace(int row) const {
    const QPoint corner(listPadding(), lineTop(static_cast<std::size_t>(row)) - scrollOffset());
    return {viewport()->mapToGlobal(corner),
            QSize(viewport()->width() - 2 * listPadding(), Theme::px(matchRow))};
}

int MatchList::accessibleRowAt(QPoint position) const {
    const auto y = viewport()->mapFromGlobal(position).y() + scrollOffset();
    return m_matches.empty() ? -1 : static_cast<int>(lineAt(y));
}

void MatchList::pressRow(int row) {
    setCurrentLine(static_cast<std::size_t>(row));
    copy(m_current);
}

void MatchList::focusRow(int row) {
    setFocus(Qt::OtherFocusReason);
    setCurrentLine(static_cast<std::size_t>(row));
}

void MatchList::scrollContentsBy(int, int) {
    placeRows();
    viewport()->update();
}

void MatchList::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    layOut();
}

void MatchList::paintEvent(QPaintEvent*) {
    if (m_matches.empty())
        return;
    QPainter painter(viewport());
    const auto padding = listPadding();
    const auto last = matchAt(scrollOffset() + viewport()->height());
    for (auto match = matchAt(scrollOffset()); match <= last; ++match) {
        const auto top = cardTop(match);
        const auto height = cardTop(match + 1) - Theme::px(Size::gapList) - top;
        paintSurface(painter, QRect(padding, top - scrollOffset(), viewport()->width() - 2 * padding, height),
                     Theme::px(Size::radiusSmall), Theme::color(Role::panelFill));
    }
}

void MatchList::keyPressEvent(QKeyEvent* event) {
    const auto back = [this](std::size_t lines) { setCurrentLine(m_current - std::min(lines, m_current)); };
    if (event->matches(QKeySequence::Copy)) {
        copy(m_current);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        copy(m_current);
        break;
    case Qt::Key_Up:
        back(1);
        break;
    case Qt::Key_Down:
        setCurrentLine(m_current + 1);
        break;
    case Qt::Key_PageUp:
        back(linesOfPage());
        break;
    case Qt::Key_PageDown:
        setCurrentLine(m_current + linesOfPage());
        break;
    case Qt::Key_Home:
        setCurrentLine(0);
        break;
    case Qt::Key_End:
        setCurrentLine(m_matches.lineCount());
        break;
    default:
        event->ignore();
        break;
    }
}

void MatchList::mousePressEvent(QMouseEvent* event) {
    const bool isLeftOrRight = event->button() == Qt::LeftButton || event->button() == Qt::RightButton;
    if (isLeftOrRight && !m_matches.empty())
        setCurrentLine(lineAt(event->position().toPoint().y() + scrollOffset()));
}

/// For the current line: below it where a key opens the menu.
void MatchList::contextMenuEvent(QContextMenuEvent* event) {
    if (m_matches.empty())
        return;
    const auto place = accessibleRowPlace(static_cast<int>(m_current));
    showContextMenu(*this,
                    event->reason() == QContextMenuEvent::Keyboard
                        ? place.bottomLeft() + QPoint(Theme::px(matchCardLeft), 1)
                        : event->globalPos(),
                    {{.title = tr("&Copy"), .keys = QKeySequence::Copy, .run = [this] { copy(m_current); }}});
}

void MatchList::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    placeRows();
}

void MatchList::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    placeRows();
}

void MatchList::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange)
        layOut();
}

QWidget* matchList(Store& store, const Reader<RegexMatches>& matches, const Reader<std::string>& count) {
    auto* list = new MatchList(store);
    auto* panel = new MatchPanel(list);
    store.onRefresh(
        [list, matches = matches.of(store), count = count.of(store)] { list->display(matches(), count()); });
    return panel;
}

QWidget* matchPrompt(std::initializer_list<Item> prompts) {
    auto* panel = growing(card({}, prompts));
    panel->setMinimumHeight(Theme::px(matchListMinimum));
    return panel;
}

} // namespace korvane
