#include "Desktop/Access/ContextMenu.h"

#include <QAction>
#include <QMenu>

#include <utility>

namespace korvane {

void showContextMenu(QWidget& owner, QPoint place, const std::vector<MenuCommand>& commands) {
    auto* menu = new QMenu(&owner);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& command : commands) {
        auto* action = menu->addAction(command.title, &owner, command.run);
        action->setShortcut(command.keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setShortcutVisibleInContextMenu(true);
        action->setEnabled(command.isEnabled);
    }
    menu->popup(place);
}

std::vector<MenuCommand> readingCommands(std::function<void()> copy, std::function<void()> selectAll,
                                         bool isEnabled) {
    return {{.title = QMenu::tr("&Copy"),
             .keys = QKeySequence::Copy,
             .run = std::move(copy),
             .isEnabled = isEnabled},
            {.title = QMenu::tr("Select &All"),
             .keys = QKeySequence::SelectAll,
             .run = std::move(selectAll),
             .isEnabled = isEnabled}};
}

} // namespace korvane
