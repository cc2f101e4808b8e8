#include "Desktop/Tools/Markdown/MarkdownBrowser.h"
#include "Desktop/Tools/Markdown/MarkdownDocument.h"
#include "Desktop/Tools/Markdown/MarkdownPainting.h"

#include "Desktop/Access/ContextMenu.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Text/TextZoom.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

namespace korvane {

namespace {

/// A text of this size is parsed in a few milliseconds.
constexpr std::size_t maxBytesAtOnce = std::size_t{64} << 10;

/// Inserting this much takes about five milliseconds.
constexpr std::size_t budgetOfPart = 40'000;

/// Laying out so many characters takes a few milliseconds.
constexpr int budgetOfMeasuring = 10'000;

/// The rows of a longer document are measured when they are near the visible ones. Until then its height is
/// an estimate.
constexpr int maxMeasuredCharacters = 200'000;

/// The rows of `text`, which may be many.
SharedMarkdownRows sharedRows(const Rope& text, Background& background, const std::stop_token& stop) {
    return shareLarge(background, markdownRows(FlatText(text), {}, stop));
}

} // namespace

MarkdownBrowser::MarkdownBrowser(std::function<Rope()> markdown, Background& background)
    : m_markdown(std::move(markdown)), m_background(background), m_document(new MarkdownDocument(this)) {
    setDocument(m_document);
    setFrameShape(NoFrame);
    setOpenLinks(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    viewport()->setAutoFillBackground(false);
    m_nextPart.setSingleShot(true);
    connect(&m_nextPart, &QTimer::timeout, this, &MarkdownBrowser::showPart);
    TextZoom::follow(this, [this] { applyTheme(); });
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& target) {
        if (onLink)
            onLink(utf8String(target.toString(QUrl::FullyEncoded)));
    });
}

void MarkdownBrowser::refresh() {
    if (!isVisible() || m_markdown() == m_shown)
        return;
    m_shown = m_markdown();
    if (m_shown.size() <= maxBytesAtOnce) {
        m_parsing.reset();
        const auto rows = std::make_shared<const MarkdownRows>(markdownRows(FlatText(m_shown)));
        begin(changeOfRows(m_document->rows(), rows));
    } else if (!m_parsing) {
        parse();
    }
}

bool MarkdownBrowser::isUpToDate() const {
    return m_markdown() == m_shown && !m_parsing && m_document->isFilled();
}

/// A newer text waits for the running work, so that the view makes progress while someone types.
void MarkdownBrowser::parse() {
    const auto& task = m_parsing.emplace();
    const auto change = std::make_shared<MarkdownChange>();
    m_background.run(
        [text = m_shown, before = m_document->rows(), &background = m_background, stop = task.stopToken(),
         change] { *change = changeOfRows(before, sharedRows(text, background, stop)); },
        [browser = QPointer(this), identity = BackgroundTask::Identity(task), text = m_shown, change] {
            if (browser && identity.matches(browser->m_parsing))
                browser->finishParsing(text, std::move(*change));
        });
}

void MarkdownBrowser::finishParsing(const Rope& text, MarkdownChange change) {
    m_parsing.reset();
    begin(std::move(change));
    if (m_shown != text)
        parse();
}

void MarkdownBrowser::begin(MarkdownChange change) {
    m_document->lead(std::move(change));
    showPart();
}

/// Replaces some of the rows that are outdated, and then measures some of those that are not visible. Waits
/// while the view is hidden.
void MarkdownBrowser::showPart() {
    if (!isVisible())
        return;
    bool hasMore = true;
    if (!m_document->isFilled())
        keepingPlace([this](int visible) { return m_document->fill(budgetOfPart, visible); });
    else
        keepingPlace([this, &hasMore](int) {
            hasMore = m_document->characterCount() <= maxMeasuredCharacters &&
                      m_document->layout().measureSome(budgetOfMeasuring);
            return MarkdownDocument::Step();
        });
    if (hasMore)
        m_nextPart.start(0);
}

/// Calls `change` with the number of the first visible block; it returns the rows that it replaced. Then
/// scrolls to the block that was the first, and lays out what is visible or close to it.
template <typename Change>
void MarkdownBrowser::keepingPlace(Change change) {
    auto& layout = m_document->layout();
    const auto value = verticalScrollBar()->value();
    const auto block = layout.blockAt(value);
    const auto inBlock = value - layout.startOf(block);
    const auto number = block.blockNumber();
    const MarkdownDocument::Step step = change(number);
    const bool isAfter = static_cast<std::size_t>(number) >= step.first + step.removed;
    const auto moved = isAfter ? static_cast<int>(step.inserted) - static_cast<int>(step.removed) : 0;
    const auto top = m_document->findBlockByNumber(std::min(number + moved, m_document->blockCount() - 1));

    const auto height = viewport()->height();
    const auto place = [&] { return layout.startOf(top) + inBlock; };
    layout.layOutBetween(place(), place() + 2 * height);
    layout.layOutBetween(std::max(place() - height, 0.0), place());
    layout.reportSize();
    if (value > 0)
        verticalScrollBar()->setValue(static_cast<int>(place()));
}

void MarkdownBrowser::layOutVisible() {
    if (m_isLayingOut)
        return;
    m_isLayingOut = true;
    m_document->layout().freeLines();
    keepingPlace([](int) { return MarkdownDocument::Step(); });
    m_isLayingOut = false;
}

void MarkdownBrowser::applyTheme() {
    m_document->applyTheme();
    showPart();
}

void MarkdownBrowser::scrollContentsBy(int dx, int dy) {
    QTextBrowser::scrollContentsBy(dx, dy);
    layOutVisible();
}

void MarkdownBrowser::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    layOutVisible();
    m_nextPart.start(0);
}

QVariant MarkdownBrowser::loadResource(int, const QUrl&) {
    return {};
}

bool MarkdownBrowser::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QTextBrowser::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto target = anchorAt(help->pos());
    // A target that looks like HTML is shown as plain text.
    QToolTip::showText(help->globalPos(), target.isEmpty() ? QString() : Qt::convertFromPlainText(target),
                       this);
    return true;
}

void MarkdownBrowser::mouseReleaseEvent(QMouseEvent* event) {
    QTextBrowser::mouseReleaseEvent(event);
    event->accept(); // the base class ignores a release that opens a link, so the parent would receive it
}

void MarkdownBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationFontChange)
        applyTheme();
}

void MarkdownBrowser::showEvent(QShowEvent* event) {
    QTextBrowser::showEvent(event);
    layOutVisible();
    refresh();
    showPart();
}

void MarkdownBrowser::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(0, -verticalScrollBar()->value());
        const auto& layout = m_document->layout();
        const auto exposed = QRectF(event->rect()).translated(0, verticalScrollBar()->value());
        auto block = layout.blockAt(exposed.top());
        if (block.previous().isValid())
            block = block.previous(); // its box extends into the space of the next block
        for (; block.isValid(); block = block.next()) {
            const auto* row = m_document->row(block.blockNumber());
            if (!row || layout.startOf(block) > exposed.bottom())
                break;
            paintMarkdownRow(painter, block, *row, viewport()->width());
        }
    }
    QTextBrowser::paintEvent(event);
}

void MarkdownBrowser::wheelEvent(QWheelEvent* event) {
    QAbstractScrollArea::wheelEvent(event); // skips the base class, which would zoom the text
}

QMimeData* MarkdownBrowser::createMimeDataFromSelection() const {
    return newMimeData(textCursor());
}

QMimeData* MarkdownBrowser::newMimeData(const QTextCursor& selected) {
    auto text = selected.selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    auto* content = new QMimeData;
    content->setText(text);
    return content;
}

void MarkdownBrowser::copyText() const {
    auto copied = textCursor();
    if (!copied.hasSelection())
        copied.select(QTextCursor::Document);
    if (copied.hasSelection())
        QGuiApplication::clipboard()->setMimeData(newMimeData(copied));
}

void MarkdownBrowser::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        copyText();
    else
        QTextBrowser::keyPressEvent(event);
}

void MarkdownBrowser::contextMenuEvent(QContextMenuEvent* event) {
    auto commands = readingCommands([this] { copyText(); }, [this] { selectAll(); }, !document()->isEmpty());
    if (const auto target = anchorAt(event->pos()); !target.isEmpty())
        commands.push_back({.title = tr("Copy &Link Location"),
                            .run = [target] { QGuiApplication::clipboard()->setText(target); }});
    showContextMenu(*this, event->globalPos(), commands);
}

QWidget* markdownPane(Store& store, const Reader<Rope>& markdown, const Action<std::string>& openLink) {
    auto* browser = new MarkdownBrowser(markdown.of(store), store.services().background);
    browser->onLink = openLink.on(store);
    store.onRefresh([browser] { browser->refresh(); });
    auto* panel = new Panel(browser);
    new OverlayScrollBar(Qt::Vertical, browser, panel);
    return panel;
}

} // namespace korvane
