#include "Desktop/Access/AccessibleButton.h"

#include "Desktop/Access/AccessibleRows.h"

#include <QAbstractButton>
#include <QAccessibleWidget>

namespace korvane {

namespace {

/// Unlike Qt's own interface it always clicks, as the user does: Qt's only toggles a checkable button,
/// without notifying the screen.
class ButtonInterface : public QAccessibleWidget {
public:
    explicit ButtonInterface(QAbstractButton* button) : QAccessibleWidget(button) {}

    QAccessible::Role role() const override {
        if (!button().isCheckable())
            return QAccessible::Button;
        // Determined on request: this interface may be created before the button is set up completely.
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

    /// Omits a tool tip that only repeats the name.
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
        // The caller waits for the reply, and a click may open a modal dialog.
        QMetaObject::invokeMethod(&button(), &QAbstractButton::click, Qt::QueuedConnection);
    }

private:
    QAbstractButton& button() const { return *static_cast<QAbstractButton*>(widget()); }

    QString click() const { return button().isCheckable() ? toggleAction() : pressAction(); }
};

class LinkInterface final : public ButtonInterface {
public:
    using ButtonInterface::ButtonInterface;

    QAccessible::Role role() const override { return QAccessible::Link; }
};

} // namespace

QAccessibleInterface* newLinkInterface(QAbstractButton* button) {
    return new LinkInterface(button);
}

QAccessibleInterface* newButtonInterface(QAbstractButton* button) {
    return new ButtonInterface(button);
}

} // namespace korvane
