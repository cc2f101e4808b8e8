#include "Desktop/Kit/Editing.h"

#include "Desktop/Kit/MatchList.h"
#include "Desktop/Kit/RowList.h"

#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMetaObject>

namespace korvane {

bool holdsText(const QWidget* control) {
    const bool isNumber = qobject_cast<const QAbstractSpinBox*>(control) != nullptr;
    return isNumber || control->metaObject()->indexOfMethod("undo()") >= 0; // lists have some other slots
}

bool answersTo(const QWidget* control, QKeySequence::StandardKey command) {
    const bool isCopy = command == QKeySequence::Copy;
    const bool isSelectAll = command == QKeySequence::SelectAll;
    if (holdsText(control))
        return isCopy || isSelectAll || !control->property("readOnly").toBool();
    if (const auto* list = dynamic_cast<const RowList*>(control))
        return isCopy || (isSelectAll && list->hasTexts());
    return isCopy && dynamic_cast<const MatchList*>(control) != nullptr;
}

void pressKeys(QWidget* control, QKeySequence::StandardKey command) {
    const auto keys = QKeySequence(command)[0];
    QKeyEvent press(QEvent::KeyPress, keys.key(), keys.keyboardModifiers());
    QCoreApplication::sendEvent(control, &press);
}

} // namespace korvane
