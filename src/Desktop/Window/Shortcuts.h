/// The keys that select tools.
#pragma once

#include "Models/Tool.h"

#include <QKeySequence>

#include <functional>

class QWidget;

namespace korvane {

/// Control and the tool's digit; no keys for a tool without a shortcut.
QKeySequence shortcutKeys(Tool tool);

/// Has `keys` run `action` anywhere in `window`, also while an editor has the focus.
void installShortcut(QWidget* window, const QKeySequence& keys, std::function<void()> action);

} // namespace korvane
