/// Opens context menus of controls, reads them, and chooses from them.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QWidget>

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

class ContextMenu {
public:
    /// Opens the menu of `control` as the menu key does or, given a position, as the right mouse button
    /// does there. In a control that scrolls, positions are in its viewport.
    explicit ContextMenu(QWidget& control, std::optional<QPoint> place = {}) {
        auto* area = qobject_cast<QAbstractScrollArea*>(&control);
        auto& target = area && place ? *area->viewport() : control;
        const auto position = place.value_or(control.rect().center());
        if (place) {
            QMouseEvent press(QEvent::MouseButtonPress, position, target.mapToGlobal(position),
                              Qt::RightButton, Qt::RightButton, Qt::NoModifier);
            QApplication::sendEvent(&target, &press);
        }
        QContextMenuEvent event(place ? QContextMenuEvent::Mouse : QContextMenuEvent::Keyboard, position,
                                target.mapToGlobal(position));
        QApplication::sendEvent(&target, &event);
        m_menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }

    ContextMenu(const ContextMenu&) = delete;
    ContextMenu& operator=(const ContextMenu&) = delete;

    ~ContextMenu() {
        if (m_menu)
            m_menu->close();
    }

    bool isOpen() const { return m_menu != nullptr; }

    /// Where its top left corner is on the screen.
    QPoint place() const { return m_menu ? m_menu->pos() : QPoint(); }

    /// The titles without mnemonics, each followed by "; ". Those that are disabled are in brackets.
    std::string items() const {
        std::string titles;
        for (const auto* action : m_menu ? m_menu->actions() : QList<QAction*>()) {
            const auto title = titleOf(*action);
            titles += (action->isEnabled() ? title : "(" + title + ")") + "; ";
        }
        return titles;
    }

    void choose(std::string_view title) const {
        for (auto* action : m_menu ? m_menu->actions() : QList<QAction*>()) {
            if (titleOf(*action) == title)
                return action->trigger();
        }
        ADD_FAILURE() << "no item " << title;
    }

private:
    static std::string titleOf(const QAction& action) {
        return action.text().remove('&').section('\t', 0, 0).toStdString();
    }

    QMenu* m_menu = nullptr;
};

} // namespace korvane
