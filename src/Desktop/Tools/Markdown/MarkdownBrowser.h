/// The rendered view of Markdown: headers, lists, quotes and code, painted natively, with scrolling. The text
/// can be selected and copied, and links followed by mouse and keyboard. It fetches nothing.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Tools/Markdown/MarkdownDocument.h"
#include "Utilities/Text/Rope.h"
#include "Views/Background.h"

#include <QTextBrowser>
#include <QTimer>

#include <functional>
#include <optional>
#include <string>

namespace korvane {

class MarkdownBrowser final : public QTextBrowser {
public:
    /// `markdown` is read at every refresh, but only while the view is visible.
    /// A large text is parsed in `background`.
    MarkdownBrowser(std::function<Rope()> markdown, Background& background);

    /// Called with the target of a link that was clicked or activated by keyboard.
    std::function<void(std::string)> onLink{};

    /// Shows the present text: a small one at once, a large one later and part by part.
    void refresh();

    /// Whether all of the present text is shown.
    bool isUpToDate() const;

    const MarkdownDocument& content() const { return *m_document; }

    /// Loads nothing.
    QVariant loadResource(int type, const QUrl& name) override;

protected:
    bool viewportEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    static QMimeData* newMimeData(const QTextCursor& selected);

    /// Copies the selection to the clipboard, or else the whole text.
    void copyText() const;

    void parse();
    void finishParsing(const Rope& text, MarkdownChange change);
    void begin(MarkdownChange change);
    void showPart();
    void applyTheme();
    void layOutVisible();

    template <typename Change>
    void keepingPlace(Change change);

    std::function<Rope()> m_markdown;
    Background& m_background;
    Rope m_shown{}; // the latest text that was read; shown, being parsed, or waiting for that
    std::optional<BackgroundTask> m_parsing{};
    MarkdownDocument* m_document;
    QTimer m_nextPart{}; // of the work that remains after a change
    bool m_isLayingOut = false;
};

/// A `MarkdownBrowser` in a panel.
QWidget* markdownPane(Store& store, const Reader<Rope>& markdown, const Action<std::string>& openLink);

} // namespace korvane
