/// The shortcuts of tools, and the installation of shortcuts in a window.
#pragma once

#include "Models/Tool.h"

#include <QKeySequence>

#include <functional>

class QWidget;

namespace korvane {

/// Ctrl and the tool's digit; empty for a tool without a shortcut.
QKeySequence shortcutKeys(Tool tool);

/// Makes `keys` run `action` anywhere in `window`, also while an editor has the focus; while they are held,
/// again and again if `repeats`.
void installShortcut(QWidget* window, const QKeySequence& keys, std::function<void()> action,
                     bool repeats = true);

} // namespace korvane
