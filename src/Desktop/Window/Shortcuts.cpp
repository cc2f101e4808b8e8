#include "Desktop/Window/Shortcuts.h"

#include <QShortcut>
#include <QWidget>

namespace korvane {

QKeySequence shortcutKeys(Tool tool) {
    const auto digit = keyboardShortcut(tool);
    return digit ? QKeySequence(Qt::CTRL | static_cast<Qt::Key>(*digit)) : QKeySequence();
}

void installShortcut(QWidget* window, const QKeySequence& keys, std::function<void()> action) {
    QObject::connect(new QShortcut(keys, window), &QShortcut::activated, window, std::move(action));
}

} // namespace korvane
