/// The context menus of texts and rows.
#pragma once

#include <QKeySequence>
#include <QString>

#include <functional>
#include <vector>

class QPoint;
class QWidget;

namespace korvane {

struct MenuCommand {
    QString title{};
    QKeySequence keys{}; ///< shown beside the title; the control handles them
    std::function<void()> run{};
    bool isEnabled = true;
    bool endsGroup = false; ///< a separator follows
};

/// Opens a menu of `commands` at `place` on the screen. The commands run only while `owner` exists.
void showContextMenu(QWidget& owner, QPoint place, const std::vector<MenuCommand>& commands);

/// What a command of a text does, and whether it can.
struct TextCommand {
    std::function<void()> run{};
    bool isEnabled = true;
};

/// The commands of a text that can be edited.
struct EditingCommands {
    TextCommand undo;
    TextCommand redo;
    TextCommand cut;
    TextCommand copy;
    TextCommand paste;
    TextCommand remove;
    TextCommand selectAll;
};

std::vector<MenuCommand> editingCommands(const EditingCommands& commands);

/// The commands of a read-only text. Without a selection, `copy` must copy the whole text.
std::vector<MenuCommand> readingCommands(std::function<void()> copy, std::function<void()> selectAll,
                                         bool isEnabled);

} // namespace korvane
