#include "Desktop/Window/Shortcuts.h"

#include <QShortcut>
#include <QWidget>

namespace korvane {

QKeySequence shortcutKeys(Tool tool) {
    const auto digit = keyboardShortcut(tool);
    return digit ? QKeySequence(Qt::CTRL | static_cast<Qt::Key>(*digit)) : QKeySequence();
}

void installShortcut(QWidget* window, const QKeySequence& keys, std::function<void()> action, bool repeats) {
    auto* shortcut = new QShortcut(keys, window);
    shortcut->setAutoRepeat(repeats);
    QObject::connect(shortcut, &QShortcut::activated, window, std::move(action));
}

} // namespace korvane
