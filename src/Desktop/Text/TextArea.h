/// The multi-line text control: shows, edits and returns any text exactly, including large texts and long
/// lines, in lines of one height, with optional line numbers. It paints no panel, outline, focus ring or
/// scroll bar; these are around and over it.
#pragma once

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Text/LineBreaks.h"
#include "Desktop/Text/TextLayout.h"
#include "Desktop/Text/TextMirror.h"

#include <QColor>
#include <QFont>
#include <QMargins>
#include <QPlainTextEdit>
#include <QRect>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct TextAreaStyle {
    QFont font{};
    int lineHeight = 21; ///< of every line, in pixels
    QColor text{};
    QColor placeholder{};
    QColor number{};
    QColor selection{}; ///< behind selected text, which keeps its colour
    QMargins inset{};   ///< around the text; the left one counts from the line numbers, if shown
    int numberGap = 8;  ///< on either side of the line numbers
};

/// In UTF-16 units: longer lines are stored in several pieces. Laying out a piece takes a few milliseconds,
/// which is the cost of a key press in the line; a line of megabytes would take seconds.
inline constexpr int defaultMaxPieceLength = 10'000;

/// The number of a line and its rectangle in the control: the width of the numbers by the first row of the
/// line.
struct VisibleNumber {
    std::size_t number;
    QRect place;
};

class TextArea : public QPlainTextEdit, public AccessibleControl {
public:
    explicit TextArea(QWidget* parent = nullptr, int maxPieceLength = defaultMaxPieceLength);

    using QPlainTextEdit::setStyle;

    void setStyle(const TextAreaStyle& style);

    /// A read-only text can be selected and copied; it has no history.
    void setReadOnly(bool readOnly);

    void setLineNumbers(bool shown);

    /// The horizontal alignment of lines. To be set before a text.
    void setAlignment(Qt::Alignment alignment);

    /// Makes lines without a space break at any character. To be called before a text is set.
    void setBreaksValuesAnywhere() { m_layout.setBreaksValuesAnywhere(); }

    /// The number of rows of the text in a control of `width`. Lays out the whole text; for short texts.
    int rowCount(int width) const;

    /// Shown while the text is empty.
    void setPlaceholder(const QString& placeholder);

    /// Shows `utf8`; each invalid sequence is shown as U+FFFD. In an editable control this is an edit that
    /// can be undone, with the caret after the text; a read-only control shows its start. Does nothing if the
    /// text is unchanged. Costs about 3 microseconds a line and 10 nanoseconds a byte.
    void setText(std::string_view utf8);

    /// The text as it was set, byte for byte, or as the user has edited it.
    std::string text() const;

    /// The selected part of the text; empty without a selection.
    std::string selectedText() const;

    /// Copies the selection to the clipboard; in a read-only text without a selection, the whole text.
    void copyText();

    /// Replaces the text between two positions of the document by exactly `text`, as an edit of the user.
    void replace(int start, int end, const QString& text);

    QAccessibleInterface* newAccessibleInterface() override;

    /// Called with the whole text when the user has changed it, once for each edit, undo or redo; never by
    /// `setText`.
    std::function<void(std::string)> onEdit{};

    /// The numbers of the lines that begin in the visible part; none without line numbers.
    std::vector<VisibleNumber> visibleNumbers() const;

    // Qt's corresponding functions lose or change characters.
    QString toPlainText() const = delete;
    void setPlainText(const QString&) = delete;
    void insertPlainText(const QString&) = delete;
    void appendPlainText(const QString&) = delete;
    void appendHtml(const QString&) = delete;
    void clear() = delete;

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

    QMimeData* createMimeDataFromSelection() const final;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

    /// The clipboard content for `text`.
    virtual QMimeData* newMimeData(const QString& text) const;

    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void watchDocument();
    void followEdit();
    void insert(const QString& text);
    void stepOverSeam(const QKeyEvent& event);
    QPointF snapped(QPointF position) const;

    int numbersWidth() const;
    void fitGutter();
    void layOut();
    void repaintRows(const QRect& rect);

    void paintPlaceholder(QPainter& painter) const;
    void paintBlock(QPainter& painter, const QTextBlock& block, QPointF origin, const QRect& exposed) const;
    void paintSelection(QPainter& painter, const QTextBlock& block, const QTextLine& line,
                        QPointF origin) const;
    void paintCaret(QPainter& painter, const QTextBlock& block, QPointF origin, int caret) const;

    const int m_maxPieceLength;
    QTextDocument& m_document;
    TextLayout& m_layout;
    TextMirror m_mirror;
    TextAreaStyle m_style{};
    std::optional<std::string> m_invalidUTF8{}; // the text as it was set, if it is not valid UTF-8
    QWidget* m_gutter = nullptr;                // none without line numbers
    bool m_edited = false;                      // since the last call of `onEdit`
    bool m_busy = false;                        // while the control itself edits
    int m_editStart = 0;                        // the range of the last edit
    int m_editEnd = 0;
};

} // namespace korvane
