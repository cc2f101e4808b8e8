/// The rendered view of Markdown: headers, lists, quotes and code, painted natively, with scrolling. The text
/// can be selected and copied, and links followed by mouse and keyboard. It fetches nothing.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Tools/Markdown/MarkdownDocument.h"

#include <QTextBrowser>

#include <functional>
#include <string>

class QTextBlock;

namespace korvane {

class MarkdownBrowser final : public QTextBrowser {
public:
    /// `markdown` is read at every refresh, but only while the view is visible.
    explicit MarkdownBrowser(std::function<const std::string&()> markdown);

    /// Called with the target of a link that was clicked or activated by keyboard.
    std::function<void(std::string)> onLink{};

    void refresh();

    const MarkdownDocument& content() const { return *m_document; }

    /// Loads nothing.
    QVariant loadResource(int type, const QUrl& name) override;

protected:
    bool viewportEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    static QMimeData* newMimeData(const QTextCursor& selected);

    /// Copies the selection to the clipboard, or else the whole text.
    void copyText() const;

    void paintBehind(QPainter& painter, const QTextBlock& block, const MarkdownRow& row) const;
    QRectF band(const QTextBlock& block, const MarkdownRow& row) const;

    std::function<const std::string&()> m_markdown;
    std::string m_shown{}; // the Markdown that the document shows
    MarkdownDocument* m_document;
};

/// A `MarkdownBrowser` in a panel.
QWidget* markdownPane(Store& store, const Reader<const std::string&>& markdown,
                      const Action<std::string>& openLink);

} // namespace korvane
