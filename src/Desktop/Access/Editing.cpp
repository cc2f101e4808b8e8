#include "Desktop/Access/Editing.h"

#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMetaObject>

namespace korvane {

bool find(QWidget* control) {
    for (; control; control = control->parentWidget()) {
        if (auto* searchable = dynamic_cast<Searchable*>(control)) {
            searchable->find();
            return true;
        }
    }
    return false;
}

bool holdsText(const QWidget* control) {
    const bool isNumber = qobject_cast<const QAbstractSpinBox*>(control) != nullptr;
    return isNumber || control->metaObject()->indexOfMethod("undo()") >= 0; // lists have other editing slots
}

bool answersTo(const QWidget* control, QKeySequence::StandardKey command) {
    const bool isCopy = command == QKeySequence::Copy;
    const bool isSelectAll = command == QKeySequence::SelectAll;
    if (holdsText(control))
        return isCopy || isSelectAll || !control->property("readOnly").toBool();
    const auto* target = dynamic_cast<const CommandTarget*>(control);
    return target && target->answersTo(command);
}

void pressKeys(QWidget* control, QKeySequence::StandardKey command) {
    const auto keys = QKeySequence(command)[0];
    QKeyEvent press(QEvent::KeyPress, keys.key(), keys.keyboardModifiers());
    QCoreApplication::sendEvent(control, &press);
}

} // namespace korvane
