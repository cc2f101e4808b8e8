/// The menus that open in texts and rows: one way to show them, whatever they offer.
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
    QKeySequence keys{}; ///< shown beside the title; it is the control that answers them
    std::function<void()> run{};
    bool isEnabled = true;
};

/// Opens a menu of `commands` at `place` on the screen. The commands run only while `owner` lives.
void showContextMenu(QWidget& owner, QPoint place, const std::vector<MenuCommand>& commands);

/// The commands of a text that can be read and selected, but not changed. What `copy` copies without a
/// selection is the whole text.
std::vector<MenuCommand> readingCommands(std::function<void()> copy, std::function<void()> selectAll,
                                         bool isEnabled);

} // namespace korvane
