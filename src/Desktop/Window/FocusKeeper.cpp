#include "Desktop/Window/FocusKeeper.h"

#include "Desktop/Access/TabStops.h"

#include <QEvent>

namespace korvane {

bool FocusKeeper::handOn(QWidget* lost, QWidget* part) {
    forget();
    QWidget* heir = nullptr;
    for (auto* around = lost; !heir && around != part;) {
        around = around->parentWidget();
        auto order = readingOrder(*around);
        std::erase_if(order, [&](const QWidget* widget) { return widget != lost && !isSuccessor(widget); });
        heir = nextStop(order, lost);
        heir = heir ? heir : previousStop(order, lost);
    }
    if (!heir)
        return false;
    if (!lost->isEnabled() && lost->isVisible())
        await(lost, heir);
    heir->setFocus(Qt::OtherFocusReason);
    return true;
}

void FocusKeeper::await(QWidget* lost, QWidget* heir) {
    m_lost = lost;
    m_heir = heir;
    lost->installEventFilter(this);
    heir->installEventFilter(this);
}

void FocusKeeper::forget() {
    for (const auto& widget : {m_lost, m_heir}) {
        if (widget)
            widget->removeEventFilter(this);
    }
    m_lost.clear();
    m_heir.clear();
}

bool FocusKeeper::eventFilter(QObject* watched, QEvent* event) {
    const bool isBack = watched == m_lost && event->type() == QEvent::EnabledChange && m_lost->isEnabled();
    const bool isUsed = watched == m_heir && event->type() == QEvent::KeyPress;
    const bool isLeft = watched == m_heir && event->type() == QEvent::FocusOut;
    if (isBack)
        m_lost->setFocus(Qt::OtherFocusReason);
    if (isBack || isUsed || isLeft)
        forget();
    return false;
}

} // namespace korvane
