#include "Desktop/Text/AccessibleText.h"

#include "Desktop/Text/LineBreaks.h"
#include "Desktop/Text/TextArea.h"

#include <QAccessibleWidget>
#include <QTextDocument>

namespace korvane {

namespace {

/// Offsets are in UTF-16 units of the exact text. Qt's own interface counts positions of the document, where
/// a CR LF is one character and a seam within a long line is an extra one.
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
        if (kind == QAccessible::Description && document().isEmpty())
            return area().placeholderText();
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.editable = !area().isReadOnly();
        state.readOnly = area().isReadOnly();
        state.selectableText = true;
        state.multiLine = true;
        return state;
    }

    QString text(int start, int end) const override {
        return exactText(document(), position(start), position(end));
    }

    int characterCount() const override { return offset(document().characterCount() - 1); }

    int selectionCount() const override { return area().textCursor().hasSelection() ? 1 : 0; }

    void selection(int, int* start, int* end) const override {
        const auto cursor = area().textCursor();
        *start = cursor.hasSelection() ? offset(cursor.selectionStart()) : 0;
        *end = cursor.hasSelection() ? offset(cursor.selectionEnd()) : 0;
    }

    void addSelection(int start, int end) override { setSelection(0, start, end); }

    void removeSelection(int) override { setCursorPosition(cursorPosition()); }

    void setSelection(int, int start, int end) override {
        auto cursor = cursorAt(start);
        cursor.setPosition(position(end), QTextCursor::KeepAnchor);
        area().setTextCursor(cursor);
    }

    int cursorPosition() const override { return offset(area().textCursor().position()); }

    void setCursorPosition(int offset) override { area().setTextCursor(cursorAt(offset)); }

    QRect characterRect(int offset) const override {
        auto place = area().cursorRect(cursorAt(offset));
        const auto next = area().cursorRect(cursorAt(offset + 1));
        if (next.top() == place.top())
            place.setRight(next.left() - 1);
        return {area().viewport()->mapToGlobal(place.topLeft()), place.size()};
    }

    int offsetAtPoint(const QPoint& point) const override {
        return offset(area().cursorForPosition(area().viewport()->mapFromGlobal(point)).position());
    }

    void scrollToSubstring(int start, int) override {
        const auto before = area().textCursor();
        area().setTextCursor(cursorAt(start));
        area().setTextCursor(before);
    }

    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

    void deleteText(int start, int end) override { replaceText(start, end, {}); }

    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }

    void replaceText(int start, int end, const QString& text) override {
        area().replace(position(start), position(end), text);
    }

private:
    TextArea& area() const { return *static_cast<TextArea*>(widget()); }

    const QTextDocument& document() const { return *area().document(); }

    int position(int offset) const { return positionAt(document(), offset); }

    int offset(int position) const { return offsetOf(document(), position); }

    QTextCursor cursorAt(int offset) const {
        QTextCursor cursor(area().document());
        cursor.setPosition(position(offset));
        return cursor;
    }
};

} // namespace

QAccessibleInterface* newTextInterface(TextArea* area) {
    return new TextInterface(area);
}

} // namespace korvane
