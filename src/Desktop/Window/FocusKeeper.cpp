#include "Desktop/Window/FocusKeeper.h"

#include "Desktop/Access/TabStops.h"

#include <QEvent>

namespace korvane {

bool FocusKeeper::moveFocusFrom(QWidget* lost, QWidget* part) {
    stopWatching();
    QWidget* successor = nullptr;
    for (auto* around = lost; !successor && around != part;) {
        around = around->parentWidget();
        auto order = readingOrder(*around);
        std::erase_if(order,
                      [&](const QWidget* widget) { return widget != lost && !canTakeFocusOver(widget); });
        successor = nextStop(order, lost);
        successor = successor ? successor : previousStop(order, lost);
    }
    if (!successor)
        return false;
    if (!lost->isEnabled() && lost->isVisible())
        watch(lost, successor);
    successor->setFocus(Qt::OtherFocusReason);
    return true;
}

void FocusKeeper::watch(QWidget* lost, QWidget* successor) {
    m_lost = lost;
    m_successor = successor;
    lost->installEventFilter(this);
    successor->installEventFilter(this);
}

void FocusKeeper::stopWatching() {
    for (const auto& widget : {m_lost, m_successor}) {
        if (widget)
            widget->removeEventFilter(this);
    }
    m_lost.clear();
    m_successor.clear();
}

bool FocusKeeper::eventFilter(QObject* watched, QEvent* event) {
    const bool isBack = watched == m_lost && event->type() == QEvent::EnabledChange && m_lost->isEnabled();
    const bool isUsed = watched == m_successor && event->type() == QEvent::KeyPress;
    const bool isLeft = watched == m_successor && event->type() == QEvent::FocusOut;
    if (isBack)
        m_lost->setFocus(Qt::OtherFocusReason);
    if (isBack || isUsed || isLeft)
        stopWatching();
    return false;
}

} // namespace korvane
