/// The multi-line text control: shows, edits and gives back any text exactly, also a large one or one long
/// line, on lines of one height, with the numbers of the lines beside them where wanted. It paints no panel,
/// outline, focus ring or scroll bar: those lie around and over it.
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
    QMargins inset{};   ///< around the text; the left one counts from the line numbers where these are shown
    int numberGap = 8;  ///< on either side of the line numbers
};

/// In UTF-16 units: a longer line is kept in several pieces. Laying out a piece takes a few milliseconds, and
/// that is what a key press in the line costs; a line of megabytes would take seconds.
inline constexpr int longestPieceOfLine = 10'000;

/// The number of a line and its place in the control: the width of the numbers by the first row of the line.
struct VisibleNumber {
    std::size_t number;
    QRect place;
};

class TextArea : public QPlainTextEdit, public AccessibleControl {
public:
    explicit TextArea(QWidget* parent = nullptr, int longestPiece = longestPieceOfLine);

    using QPlainTextEdit::setStyle;

    void setStyle(const TextAreaStyle& style);

    /// A read-only text can be selected and copied; it has no history.
    void setReadOnly(bool readOnly);

    void setLineNumbers(bool shown);

    /// Where in their rows the lines are: at the left, in the middle or at the right. To be set before a
    /// text.
    void setAlignment(Qt::Alignment alignment);

    /// Has lines without a space break at any character. To be called before a text is set.
    void setBreaksValuesAnywhere() { m_layout.setBreaksValuesAnywhere(); }

    /// How many rows the text takes in a control of `width`. Lays the whole text out; meant for short ones.
    int rowCount(int width) const;

    /// Shown while the text is empty, in place of the text.
    void setPlaceholder(const QString& placeholder);

    /// Shows `utf8`; of bytes that are not UTF-8 each wrong sequence is shown as U+FFFD. In an editable
    /// control it is an edit that can be undone, with the caret after the text; a read-only control shows its
    /// start. Does nothing if that is the text already. Costs about 3 microseconds a line and 10 nanoseconds
    /// a byte.
    void setText(std::string_view utf8);

    /// What was set, byte for byte, or what the user has made of it.
    std::string text() const;

    /// The selected part of the text; empty without a selection.
    std::string selectedText() const;

    /// Puts what is selected on the clipboard; in a read-only text without a selection, the whole text.
    void copyText();

    /// Puts exactly `text` in place of what is between two positions of the document, as an edit of the
    /// user's.
    void replace(int start, int end, const QString& text);

    QAccessibleInterface* newAccessibleInterface() override;

    /// Called with the whole text when the user has changed it, once an edit, an undo or a redo; never by
    /// `setText`.
    std::function<void(std::string)> onEdit{};

    /// The numbers of the lines that begin in view; none without line numbers.
    std::vector<VisibleNumber> visibleNumbers() const;

    // What the toolkit offers beside these loses or changes characters.
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

    /// `text` as it is put on the clipboard.
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

    const int m_longestPiece;
    QTextDocument& m_document;
    TextLayout& m_layout;
    TextMirror m_mirror;
    TextAreaStyle m_style{};
    std::optional<std::string> m_invalidUTF8{}; // the text as it was set, if it cannot be shown as it is
    QWidget* m_gutter = nullptr;                // none without line numbers
    bool m_edited = false;                      // since the last call of `onEdit`
    bool m_busy = false;                        // the edit is the control's own
    int m_editStart = 0;                        // where the last edit was
    int m_editEnd = 0;
};

} // namespace korvane
