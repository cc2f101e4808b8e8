#include "Desktop/Access/AccessibleButton.h"

#include "Desktop/Access/AccessibleRows.h"

#include <QAbstractButton>
#include <QAccessibleWidget>

namespace korvane {

namespace {

/// Unlike the toolkit's own interface it always clicks, as the user does: the toolkit's merely turns a button
/// of two states over, which tells the screen nothing.
class ButtonInterface final : public QAccessibleWidget {
public:
    explicit ButtonInterface(QAbstractButton* button) : QAccessibleWidget(button) {}

    QAccessible::Role role() const override {
        if (!button().isCheckable())
            return QAccessible::Button;
        // The button may not have been complete yet when this interface was made.
        const bool isChoice = button().autoExclusive() || dynamic_cast<const ChoiceButton*>(&button());
        return isChoice ? QAccessible::RadioButton : QAccessible::CheckBox;
    }

    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.checkable = button().isCheckable();
        state.checked = button().isChecked();
        state.pressed = button().isDown();
        return state;
    }

    QAccessibleInterface* parent() const override {
        const auto* inRow = dynamic_cast<const RowPart*>(&button());
        auto* row = inRow ? inRow->accessibleRow() : nullptr;
        return row ? row : QAccessibleWidget::parent();
    }

    /// The tool tip of a button without a visible title says no more than its name.
    QString text(QAccessible::Text kind) const override {
        const auto text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Description && text == button().text() ? QString() : text;
    }

    QStringList actionNames() const override {
        auto names = QAccessibleWidget::actionNames();
        if (button().isEnabled())
            names.prepend(click());
        return names;
    }

    void doAction(const QString& name) override {
        if (name != click()) {
            QAccessibleWidget::doAction(name);
            return;
        }
        // Who asks waits for the answer, and a click may open a dialog that runs for long.
        QMetaObject::invokeMethod(&button(), &QAbstractButton::click, Qt::QueuedConnection);
    }

private:
    QAbstractButton& button() const { return *static_cast<QAbstractButton*>(widget()); }

    QString click() const { return button().isCheckable() ? toggleAction() : pressAction(); }
};

} // namespace

QAccessibleInterface* newButtonInterface(QAbstractButton* button) {
    return new ButtonInterface(button);
}

} // namespace korvane
