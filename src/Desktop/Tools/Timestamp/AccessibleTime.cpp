#include "Desktop/Tools/Timestamp/AccessibleTime.h"

#include <QAccessibleWidget>
#include <QLineEdit>
#include <QTimeEdit>

#include <algorithm>

namespace korvane {

namespace {

constexpr int secondsOfMinute = 60;
constexpr int lastMinute = 24 * 60 - 1;

/// The text can be read and selected; changes are made through the value.
class TimeInterface final : public QAccessibleWidget,
                            public QAccessibleValueInterface,
                            public QAccessibleTextInterface {
public:
    TimeInterface(QTimeEdit* edit, QLineEdit* field)
        : QAccessibleWidget(edit, QAccessible::SpinBox), m_field(field) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? m_field->text() : QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return QTime(0, 0).secsTo(edit().time()) / secondsOfMinute; }

    void setCurrentValue(const QVariant& value) override {
        const auto minute = std::clamp(value.toInt(), 0, lastMinute);
        edit().setTime(QTime(0, 0).addSecs(minute * secondsOfMinute));
    }

    QVariant minimumValue() const override { return 0; }

    QVariant maximumValue() const override { return lastMinute; }

    QVariant minimumStepSize() const override { return 1; }

    QString text(int start, int end) const override { return m_field->text().mid(start, end - start); }

    int characterCount() const override { return static_cast<int>(m_field->text().size()); }

    int selectionCount() const override { return m_field->hasSelectedText() ? 1 : 0; }

    void selection(int, int* start, int* end) const override {
        *start = std::max(0, m_field->selectionStart());
        *end = std::max(0, m_field->selectionEnd());
    }

    void addSelection(int start, int end) override { setSelection(0, start, end); }

    void removeSelection(int) override { m_field->deselect(); }

    void setSelection(int, int start, int end) override { m_field->setSelection(start, end - start); }

    int cursorPosition() const override { return m_field->cursorPosition(); }

    void setCursorPosition(int position) override { m_field->setCursorPosition(position); }

    QRect characterRect(int) const override { return rect(); }

    int offsetAtPoint(const QPoint& point) const override {
        return m_field->cursorPositionAt(m_field->mapFromGlobal(point));
    }

    void scrollToSubstring(int, int) override {}

    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    QTimeEdit& edit() const { return *static_cast<QTimeEdit*>(widget()); }

    QLineEdit* m_field; // lives as long as the edit
};

} // namespace

QAccessibleInterface* newTimeInterface(QTimeEdit* edit, QLineEdit* field) {
    return new TimeInterface(edit, field);
}

} // namespace korvane
