/// The multi-line text control: shows, edits and returns any text exactly, of any size, in rows of one
/// height, with optional line numbers. It paints no panel, outline, focus ring or scroll bar; these are
/// around and over it.
///
/// Positions are byte offsets in the text. The cost of a key press does not depend on the size of the text.
#pragma once

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Text/TextLayout.h"
#include "Utilities/Text/Rope.h"
#include "Utilities/Text/TextHistory.h"
#include "Utilities/Text/TextMarks.h"
#include "Utilities/Text/TextSelection.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QColor>
#include <QFont>
#include <QMargins>
#include <QRect>

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

class QMimeData;

namespace korvane {

/// How marked text looks. A colour that is not valid is not painted.
struct TextMarkStyle {
    QColor background{};
    QColor outline{};
    QColor underline{};
    QColor wave{}; ///< a wavy underline
};

struct TextAreaStyle {
    QFont font{};
    int lineHeight = 21; ///< of every row, in pixels
    QColor text{};
    QColor placeholder{};
    QColor number{};
    QColor selection{};    ///< behind selected text, which keeps its colour
    QColor markedLine{};   ///< behind the lines of the kind `errorLine`, from edge to edge
    QColor markedNumber{}; ///< of their numbers, which are semibold, too
    std::map<TextMarkKind, TextMarkStyle> marks{}; ///< other kinds are not painted
    QMargins inset{};  ///< around the text; the left one counts from the line numbers, if shown
    int numberGap = 8; ///< on either side of the line numbers
};

/// The number of a line and its rectangle in the control: the width of the numbers by the first row of the
/// line.
struct VisibleNumber {
    std::size_t number;
    QRect place;
};

/// Who marks the text. Each has marks of its own; those of later ones are painted over others.
enum class TextMarkLayer { content, chosen, search, currentHit };

class TextArea : public QAbstractScrollArea, public AccessibleControl {
    Q_OBJECT
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly) // as Qt's controls with a text have it

public:
    explicit TextArea(QWidget* parent = nullptr, int maxPieceLength = defaultMaxPieceLength);

    using QAbstractScrollArea::setStyle;

    void setStyle(const TextAreaStyle& style);

    bool isReadOnly() const { return m_isReadOnly; }

    /// A read-only text can be selected and copied; it has no history.
    void setReadOnly(bool readOnly);

    bool isBusy() const { return m_isBusy; }

    /// Tells assistive technology whether another text is being made.
    void setBusy(bool isBusy);

    /// Whether keys move a caret; without, a read-only text has none.
    void setHasCaret(bool hasCaret) { m_hasCaret = hasCaret; }

    void setLineNumbers(bool shown);

    /// The horizontal alignment of lines.
    void setAlignment(Qt::Alignment alignment);

    /// Makes lines without a space break at any character.
    void setBreaksValuesAnywhere();

    /// The number of rows of the text in a control of `width`. Lays out the whole text; for short texts.
    int rowCount(int width) const;

    const QString& placeholder() const { return m_placeholder; }

    /// Shown while the text is empty.
    void setPlaceholder(const QString& placeholder);

    const Rope& text() const { return m_layout.text(); }

    /// In an editable control this is an edit that can be undone, with the caret after the text; a read-only
    /// control shows its start. Does nothing if the text is unchanged.
    void setText(const Rope& text);

    const TextLayout& layout() const { return m_layout; }

    const TextSelection& selection() const { return m_selection; }

    /// Selects a range of the text, or moves the caret to where its ends meet, and shows the caret.
    void select(const TextSelection& selection);

    /// The selected part of the text; empty without a selection.
    Rope selectedText() const;

    /// Copies the selection to the clipboard; in a read-only text without a selection, the whole text.
    void copyText();

    /// Replaces the range [from, to) of the text, as an edit of the user.
    void replace(std::size_t from, std::size_t to, const Rope& text);

    bool canUndo() const { return m_history.canUndo(); }

    bool canRedo() const { return m_history.canRedo(); }

    /// Replaces the marks of a layer. They move with their text when it is edited; those that an edit touches
    /// are dropped. The cost of painting depends on those that are visible.
    void setMarks(TextMarkLayer layer, TextMarks marks);

    const TextMarks& marks(TextMarkLayer layer) const { return m_marks[static_cast<std::size_t>(layer)]; }

    /// The rectangle of the caret before `offset` in the viewport, which may be outside of what is visible.
    QRect caretRect(std::size_t offset) const;

    /// The caret's offset that is nearest to a point of the viewport.
    std::size_t offsetAt(QPoint point) const;

    /// Scrolls by as little as shows the row of `offset`.
    void reveal(std::size_t offset);

    /// Called with the text when the user has changed it, once for each edit, undo or redo; never by
    /// `setText`.
    std::function<void(const Rope&)> onEdit{};

    /// Called when the user has moved the caret or selected something without an edit, with the selection;
    /// never by `select`.
    std::function<void(const TextSelection&)> onSelect{};

    /// The numbers of the lines that begin in the visible part; none without line numbers.
    std::vector<VisibleNumber> visibleNumbers() const;

    /// The visible rows of marked lines, from edge to edge of the control.
    std::vector<QRect> markedRows() const;

    QAccessibleInterface* newAccessibleInterface() override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    QSize sizeHint() const override;

public slots:
    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void selectAll();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// The clipboard content for `text`.
    virtual QMimeData* newMimeData(const Rope& text) const;

private:
    enum class Unit { character, word, line };

    // Editing: TextAreaEditing.cpp.
    void edit(TextEditKind kind, std::size_t from, std::size_t to, const Rope& text);
    void change(TextEditKind kind, std::size_t from, std::size_t to, const Rope& text);
    void showVersion(const TextVersion& version);
    void restore(const std::optional<TextVersion>& version);
    void insert(TextEditKind kind, const Rope& text);
    void insertFrom(const QMimeData* content);
    void afterChange();
    void tellOfEdit();
    bool editByKey(const QKeyEvent& event);
    void typeText(const QString& text);
    void removeTo(TextEditKind kind, std::size_t offset);
    void updatePreedit(const QInputMethodEvent& event);

    // Moving the caret: TextAreaMoves.cpp.
    bool moveByKey(const QKeyEvent& event);
    std::optional<std::size_t> targetOf(const QKeyEvent& event);
    std::size_t besideCharacter(std::size_t offset, bool forward) const;
    std::size_t besideWord(std::size_t offset, bool forward) const;
    std::size_t rowEnd(const PlacedRow& row) const;
    std::size_t inNeighbouringRow(std::ptrdiff_t distance, bool selects);
    std::size_t besidePage(bool forward, bool selects);
    TextSelection unitAround(std::size_t offset, Unit unit) const;
    void moveCaret(std::size_t offset, bool selects);
    void setSelection(const TextSelection& selection);
    void selectAsUser(const TextSelection& selection);
    std::size_t offsetNear(const PlacedRow& row, qreal x) const;

    // Marked and selected ranges: TextAreaRanges.cpp.
    std::vector<TextMark> visibleMarks() const;
    void paintMark(QPainter& painter, const TextMark& mark, const PlacedRow& row, qreal top) const;
    void paintSelection(QPainter& painter, const PlacedRow& row, qreal top) const;

    // The pointer: TextAreaPointer.cpp.
    void extendSelectionTo(QPoint point);
    void startDrag();
    void offerSelection() const;
    bool accepts(const QMimeData* content) const;

    // Places and painting: TextAreaPainting.cpp.
    int numbersWidth() const;
    void fitGutter();
    void layOut();
    int visibleRowCount() const;
    int lastRowCount() const;
    PlacedRow topRow() const;
    PlacedRow lastTopRow() const;
    void scrollTo(const PlacedRow& row);
    void scrollBy(std::ptrdiff_t rows);
    void updateScrollBar();
    void updateAll();
    void restartBlinking();
    void paintPlaceholder(QPainter& painter) const;
    void paintRow(QPainter& painter, const PlacedRow& row, qreal top) const;
    void paintCaret(QPainter& painter, const PlacedRow& row, qreal top) const;

    TextLayout m_layout;
    TextHistory m_history{};
    TextSelection m_selection{};
    std::array<TextMarks, 4> m_marks{}; ///< by layer
    TextAreaStyle m_style{};
    QString m_placeholder{};
    QString m_highSurrogate{};      ///< typed, and waiting for its other half
    std::size_t m_top = 0;          ///< where the first visible row begins
    std::optional<qreal> m_goalX{}; ///< where keys that move between rows place the caret
    bool m_isReadOnly = false;
    bool m_isBusy = false;
    bool m_hasCaret = true;
    bool m_isCaretShown = false; ///< blinks
    bool m_isMovingScrollBar = false;
    bool m_isWheelTurning = false;
    QBasicTimer m_blinking{};

    Unit m_selectedUnit = Unit::character; ///< by which dragging the pointer selects
    TextSelection m_firstUnit{};           ///< where such a selection began
    bool m_isSelecting = false;
    std::optional<QPoint> m_pressed{}; ///< on a selection that may be dragged
    QPoint m_pointer{};
    QBasicTimer m_autoScroll{};
    QBasicTimer m_tripleClick{};
    std::optional<std::size_t> m_dropOffset{}; ///< where a text would be dropped

    QWidget* m_gutter = nullptr; ///< none without line numbers
};

} // namespace korvane
