#include "Desktop/Tools/Markdown/MarkdownBrowser.h"
#include "Desktop/Tools/Markdown/MarkdownDocument.h"

#include "Desktop/Access/ContextMenu.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextZoom.h"

#include <QAbstractTextDocumentLayout>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int proseMarkerGap = 8;
constexpr int proseQuoteBar = 3;
constexpr int proseChipHeight = 18;

using Kind = MarkdownRow::Kind;

/// Fills `area`, a part of a rounded rectangle that continues above or below where it is not rounded.
void fillRounded(QPainter& painter, const QRectF& area, bool roundsTop, bool roundsBottom) {
    const auto radius = Theme::px(Size::radiusMedium);
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    painter.drawRoundedRect(area.adjusted(0, roundsTop ? 0 : -radius, 0, roundsBottom ? 0 : radius), radius,
                            radius);
    painter.restore();
}

/// Paints a list marker beside the first line of `block`, with its right end at `right`.
void paintMarker(QPainter& painter, const QTextBlock& block, QPointF origin, const QString& marker,
                 qreal right) {
    const auto line = block.layout()->lineAt(0);
    const auto font = TextZoom::font(Theme::TextStyle::document);
    const auto baseline = origin.y() + line.y() + line.ascent();
    painter.setFont(font);
    painter.setPen(Theme::color(Role::secondary));
    painter.drawText(QPointF(right - QFontMetricsF(font).horizontalAdvance(marker), baseline), marker);
}

/// Paints the background of inline code behind the characters of `block` from `start` to `end`, on each line.
void paintChip(QPainter& painter, const QTextBlock& block, QPointF origin, int start, int end) {
    const auto padding = Theme::px(proseChipPadding);
    const auto height = TextZoom::px(proseChipHeight);
    const auto& layout = *block.layout();
    for (int i = 0; i < layout.lineCount(); ++i) {
        const auto line = layout.lineAt(i);
        const auto from = std::max(start, line.textStart());
        const auto to = std::min(end, line.textStart() + line.textLength());
        if (from >= to)
            continue;
        // The space after the last character is already part of it.
        const auto left = line.cursorToX(from) - (from == start ? padding : 0);
        const auto right = line.cursorToX(to);
        const auto pitch = block.blockFormat().lineHeight();
        const auto top = i * pitch + (pitch - height) / 2;
        painter.drawRoundedRect(QRectF(origin + QPointF(left, top), QSizeF(right - left, height)),
                                Theme::px(Size::radiusBadge), Theme::px(Size::radiusBadge));
    }
}

void paintChips(QPainter& painter, const QTextBlock& block, QPointF origin) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::color(Role::controlFill));
    int start = -1;
    int end = -1;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const auto fragment = it.fragment();
        if (!isInlineCode(fragment.charFormat()))
            continue;
        const auto from = fragment.position() - block.position();
        if (from != end) {
            paintChip(painter, block, origin, start, end);
            start = from;
        }
        end = from + fragment.length();
    }
    paintChip(painter, block, origin, start, end);
}

} // namespace

MarkdownBrowser::MarkdownBrowser(std::function<const std::string&()> markdown)
    : m_markdown(std::move(markdown)), m_document(new MarkdownDocument(this)) {
    setDocument(m_document);
    setFrameShape(NoFrame);
    setOpenLinks(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    viewport()->setAutoFillBackground(false);
    TextZoom::follow(this, [this] { m_document->applyTheme(); });
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& target) {
        if (onLink)
            onLink(utf8String(target.toString(QUrl::FullyEncoded)));
    });
}

void MarkdownBrowser::refresh() {
    if (!isVisible() || m_markdown() == m_shown)
        return;
    m_shown = m_markdown();
    m_document->show(m_shown);
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
        m_document->applyTheme();
}

void MarkdownBrowser::showEvent(QShowEvent* event) {
    QTextBrowser::showEvent(event);
    refresh();
}

void MarkdownBrowser::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(0, -verticalScrollBar()->value());
        const auto& layout = *m_document->documentLayout();
        const auto exposed = QRectF(event->rect()).translated(0, verticalScrollBar()->value());
        auto block = m_document->findBlock(std::max(layout.hitTest({0, exposed.top()}, Qt::FuzzyHit), 0));
        if (block.previous().isValid())
            block = block.previous(); // its box may extend to where the next block's text is nearer
        for (; block.isValid(); block = block.next()) {
            const auto* row = m_document->row(block.blockNumber());
            if (!row || band(block, *row).top() > exposed.bottom())
                break;
            paintBehind(painter, block, *row);
        }
    }
    QTextBrowser::paintEvent(event);
}

/// The area of a row across the view: its lines, and its part of a box.
QRectF MarkdownBrowser::band(const QTextBlock& block, const MarkdownRow& row) const {
    const auto top = m_document->documentLayout()->blockBoundingRect(block).top();
    const auto format = block.blockFormat();
    const auto padding = row.beginsBlock ? MarkdownDocument::boxPadding(row.kind) : 0;
    const auto margin = m_document->documentMargin();
    return {QPointF(margin, top - padding),
            QPointF(viewport()->width() - margin,
                    top + block.layout()->lineCount() * format.lineHeight() + format.bottomMargin())};
}

void MarkdownBrowser::paintBehind(QPainter& painter, const QTextBlock& block, const MarkdownRow& row) const {
    const auto origin = m_document->documentLayout()->blockBoundingRect(block).topLeft();
    const auto area = band(block, row);
    const auto textLeft = area.left() + block.blockFormat().leftMargin();
    painter.setPen(Qt::NoPen);
    switch (row.kind) {
    case Kind::language:
    case Kind::code:
        painter.setBrush(Theme::color(Role::controlFill));
        fillRounded(painter, area, row.beginsBlock, row.endsBlock);
        return;
    case Kind::quote:
        painter.fillRect(QRectF(area.left(), area.top(), Theme::px(proseQuoteBar), area.height()),
                         Theme::color(Role::outlineStrong));
        break;
    case Kind::rule:
        painter.fillRect(QRectF(area.left(), area.top(), area.width(), 1), Theme::color(Role::divider));
        return;
    case Kind::unorderedItem:
    case Kind::orderedItem:
        if (!row.continuesText) {
            const auto marker =
                row.kind == Kind::orderedItem ? QString::number(row.number) + u'.' : QStringLiteral("•");
            paintMarker(painter, block, origin, marker, textLeft - Theme::px(proseMarkerGap));
        }
        break;
    case Kind::header:
    case Kind::paragraph:
        break;
    }
    paintChips(painter, block, origin);
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

QWidget* markdownPane(Store& store, const Reader<const std::string&>& markdown,
                      const Action<std::string>& openLink) {
    auto* browser = new MarkdownBrowser(markdown.of(store));
    browser->onLink = openLink.on(store);
    store.onRefresh([browser] { browser->refresh(); });
    auto* panel = new Panel(browser);
    new OverlayScrollBar(Qt::Vertical, browser, panel);
    return panel;
}

} // namespace korvane
