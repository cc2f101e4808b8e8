#include "Desktop/Text/AccessibleText.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Text/TextArea.h"

#include <QAccessibleWidget>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <optional>

namespace korvane {

namespace {

/// In bytes.
struct Extent {
    std::size_t start = 0;
    std::size_t end = 0;
};

QTextBoundaryFinder::BoundaryType finderType(QAccessible::TextBoundaryType boundary) {
    switch (boundary) {
    case QAccessible::WordBoundary:
        return QTextBoundaryFinder::Word;
    case QAccessible::SentenceBoundary:
        return QTextBoundaryFinder::Sentence;
    default:
        return QTextBoundaryFinder::Grapheme;
    }
}

/// The unit of text with the character at `offset`. A line is a row; a very long paragraph has several units.
/// Looks only at the text nearby.
Extent unitAround(const TextLayout& layout, std::size_t offset, QAccessible::TextBoundaryType boundary) {
    if (boundary == QAccessible::NoBoundary)
        return {0, layout.text().size()};
    const auto place = layout.pieceAt(offset);
    if (boundary == QAccessible::ParagraphBoundary)
        return {place.start, place.next()};
    if (boundary == QAccessible::LineBoundary) {
        const auto row = layout.rowAt(offset);
        const bool isLast = row.index == place.piece->rowCount() - 1;
        return {row.start(), isLast ? place.next() : place.start + place.piece->rowStart(row.index + 1)};
    }
    const auto& piece = *place.piece;
    int unit = piece.unitAt(offset - place.start);
    if (unit == piece.length()) {
        const bool isLineBreak = piece.breakSize() > 0;
        if (isLineBreak || unit == 0)
            return {place.end(), place.next()};
        --unit; // at the end of the text
    }
    QTextBoundaryFinder finder(finderType(boundary), piece.text());
    finder.setPosition(unit);
    if (!finder.isAtBoundary())
        finder.toPreviousBoundary();
    const auto start = piece.byteAt(static_cast<int>(finder.position()));
    return {place.start + start, place.start + piece.byteAt(static_cast<int>(finder.toNextBoundary()))};
}

/// Offsets are in UTF-16 units of the text.
class TextInterface final : public QAccessibleWidget,
                            public QAccessibleTextInterface,
                            public QAccessibleEditableTextInterface {
public:
    explicit TextInterface(TextArea* area) : QAccessibleWidget(area, QAccessible::EditableText) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface && !area().isReadOnly())
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    /// Hides the control's internal widgets.
    int childCount() const override { return 0; }

    QAccessibleInterface* child(int) const override { return nullptr; }

    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value)
            return text(0, characterCount());
        if (kind == QAccessible::Description && area().text().empty())
            return area().placeholder();
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.editable = !area().isReadOnly();
        state.readOnly = area().isReadOnly();
        state.selectableText = true;
        state.multiLine = true;
        state.busy = area().isBusy();
        return state;
    }

    QString text(int start, int end) const override {
        const auto from = byteAt(start);
        return qString(area().text().string(from, std::max(from, byteAt(end))));
    }

    int characterCount() const override { return static_cast<int>(area().text().utf16Size()); }

    int selectionCount() const override { return area().selection().isEmpty() ? 0 : 1; }

    void selection(int, int* start, int* end) const override {
        const auto& selection = area().selection();
        *start = selection.isEmpty() ? 0 : unitAt(selection.from());
        *end = selection.isEmpty() ? 0 : unitAt(selection.to());
    }

    void addSelection(int start, int end) override { setSelection(0, start, end); }

    void removeSelection(int) override { setCursorPosition(cursorPosition()); }

    void setSelection(int, int start, int end) override { area().select({byteAt(start), byteAt(end)}); }

    int cursorPosition() const override { return unitAt(area().selection().caret); }

    void setCursorPosition(int offset) override { area().select({byteAt(offset), byteAt(offset)}); }

    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                         int* end) const override {
        return report(unitAround(offset, boundary), start, end);
    }

    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                             int* end) const override {
        const auto unit = unitAround(offset, boundary);
        if (!unit || unit->start == 0)
            return report(std::nullopt, start, end);
        const auto before = area().text().summaryBefore(unit->start - 1).bytes;
        return report(korvane::unitAround(area().layout(), before, boundary), start, end);
    }

    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                            int* end) const override {
        const auto unit = unitAround(offset, boundary);
        if (!unit || unit->end == area().text().size())
            return report(std::nullopt, start, end);
        return report(korvane::unitAround(area().layout(), unit->end, boundary), start, end);
    }

    QRect characterRect(int offset) const override {
        auto place = area().caretRect(byteAt(offset));
        const auto next = area().caretRect(byteAt(offset + 1));
        if (next.top() == place.top())
            place.setRight(next.left() - 1);
        return {area().viewport()->mapToGlobal(place.topLeft()), place.size()};
    }

    int offsetAtPoint(const QPoint& point) const override {
        return unitAt(area().offsetAt(area().viewport()->mapFromGlobal(point)));
    }

    void scrollToSubstring(int start, int) override { area().reveal(byteAt(start)); }

    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

    void deleteText(int start, int end) override { replaceText(start, end, {}); }

    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }

    void replaceText(int start, int end, const QString& text) override {
        const auto from = byteAt(start);
        area().replace(from, std::max(from, byteAt(end)), utf8String(text));
    }

private:
    /// None for an offset outside of the text.
    std::optional<Extent> unitAround(int offset, QAccessible::TextBoundaryType boundary) const {
        if (offset < 0 || offset > characterCount())
            return std::nullopt;
        return korvane::unitAround(area().layout(), byteAt(offset), boundary);
    }

    QString report(const std::optional<Extent>& unit, int* start, int* end) const {
        *start = unit ? unitAt(unit->start) : -1;
        *end = unit ? unitAt(unit->end) : -1;
        return unit ? qString(area().text().string(unit->start, unit->end)) : QString();
    }

    TextArea& area() const { return *static_cast<TextArea*>(widget()); }

    std::size_t byteAt(int unit) const {
        return area().text().byteOffset(static_cast<std::size_t>(std::max(unit, 0)));
    }

    int unitAt(std::size_t byte) const { return static_cast<int>(area().text().utf16Offset(byte)); }
};

} // namespace

QAccessibleInterface* newTextInterface(TextArea* area) {
    return new TextInterface(area);
}

} // namespace korvane
