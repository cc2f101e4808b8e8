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
        if (command.endsGroup)
            menu->addSeparator();
    }
    menu->popup(place);
}

std::vector<MenuCommand> editingCommands(const EditingCommands& commands) {
    const auto row = [](const QString& title, QKeySequence::StandardKey keys, const TextCommand& command,
                        bool endsGroup = false) {
        return MenuCommand{.title = title,
                           .keys = keys,
                           .run = command.run,
                           .isEnabled = command.isEnabled,
                           .endsGroup = endsGroup};
    };
    return {row(QMenu::tr("&Undo"), QKeySequence::Undo, commands.undo),
            row(QMenu::tr("&Redo"), QKeySequence::Redo, commands.redo, true),
            row(QMenu::tr("Cu&t"), QKeySequence::Cut, commands.cut),
            row(QMenu::tr("&Copy"), QKeySequence::Copy, commands.copy),
            row(QMenu::tr("&Paste"), QKeySequence::Paste, commands.paste),
            row(QMenu::tr("Delete"), QKeySequence::UnknownKey, commands.remove, true),
            row(QMenu::tr("Select All"), QKeySequence::SelectAll, commands.selectAll)};
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
