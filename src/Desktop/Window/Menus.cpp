#include "Desktop/Window/Menus.h"

#include "Desktop/Kit/Editors.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Window/Shortcuts.h"
#include "Views/ContentView.h"
#include "Views/Services.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QWidget>

#include <array>
#include <memory>

namespace korvane {

namespace {

/// A command of the Edit menu: the slot of that name is the toolkit's, in every widget that edits text.
struct EditCommand {
    const char* title;
    QKeySequence::StandardKey key;
    const char* slot;
    bool isChange; ///< of no use in an editor that only shows its text
    bool startsGroup = false;
};

constexpr std::array editCommands{
    EditCommand{"&Undo", QKeySequence::Undo, "undo", true},
    EditCommand{"&Redo", QKeySequence::Redo, "redo", true},
    EditCommand{"Cu&t", QKeySequence::Cut, "cut", true, true},
    EditCommand{"&Copy", QKeySequence::Copy, "copy", false},
    EditCommand{"&Paste", QKeySequence::Paste, "paste", true},
    EditCommand{"Select &All", QKeySequence::SelectAll, "selectAll", false, true},
};

/// Shows `keys` beside the action without answering to them: the shortcut belongs to the menu alone, which
/// never has the focus, so it cannot stand in the way of whoever does answer.
void showShortcut(QAction* action, const QKeySequence& keys) {
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
}

QMenu* addMenu(QMenuBar* bar, const QString& title) {
    auto* menu = bar->addMenu(title);
    menu->setWindowFlags(menu->windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    menu->setAttribute(Qt::WA_TranslucentBackground); // for its rounded corners
    return menu;
}

QAction* addLabel(QMenu* menu, std::string_view text) {
    auto* action = menu->addAction(qString(text));
    action->setEnabled(false);
    return action;
}

void addFileMenu(QMenuBar* bar, QWidget* window, Services& services) {
    auto* menu = addMenu(bar, QMenuBar::tr("&File"));
    addLabel(menu, MenuTexts::tools)->setFont(Theme::font(Theme::TextStyle::caption));
    for (const auto tool : allCases<Tool>) {
        auto* action = menu->addAction(qString(rawValue(tool)));
        showShortcut(action, shortcutKeys(tool));
        QObject::connect(action, &QAction::triggered, window,
                         [tool, &services] { postSelectTool(tool, services); });
    }
    menu->addSeparator();
    menu->addAction(QMenuBar::tr("&Close"), QKeySequence(QKeySequence::Close), window, &QWidget::close);
    menu->addAction(QMenuBar::tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), window,
                    [] { QApplication::quit(); });
}

void addEditMenu(QMenuBar* bar, QWidget* window) {
    auto* menu = addMenu(bar, QMenuBar::tr("&Edit"));
    // The menu bar takes the focus when it is used by keyboard, so the editor that had it is remembered.
    auto editor = std::make_shared<QPointer<QWidget>>();
    QObject::connect(qApp, &QApplication::focusChanged, menu, [editor, window](QWidget*, QWidget* now) {
        if (now && now->window() == window && !qobject_cast<QMenuBar*>(now))
            *editor = holdsText(now) ? now : nullptr;
    });
    std::vector<std::pair<QAction*, bool>> actions;
    for (const auto& command : editCommands) {
        if (command.startsGroup)
            menu->addSeparator();
        auto* action = menu->addAction(QMenuBar::tr(command.title));
        showShortcut(action, QKeySequence(command.key));
        QObject::connect(action, &QAction::triggered, window, [editor, slot = command.slot] {
            if (*editor)
                QMetaObject::invokeMethod(*editor, slot);
        });
        actions.emplace_back(action, command.isChange);
    }
    QObject::connect(menu, &QMenu::aboutToShow, menu, [editor, actions] {
        const bool canChange = *editor && !(*editor)->property("readOnly").toBool();
        for (const auto& [action, isChange] : actions)
            action->setEnabled(*editor && (canChange || !isChange));
    });
}

void addHelpMenu(QMenuBar* bar) {
    auto* menu = addMenu(bar, QMenuBar::tr("&Help"));
    menu->addAction(qString(MenuTexts::help));
    menu->addSeparator();
    addLabel(menu, MenuTexts::version);
    addLabel(menu, MenuTexts::localProcessing);
}

} // namespace

QMenuBar* menuBar(QWidget* window, Services& services) {
    auto* bar = new QMenuBar;
    bar->setNativeMenuBar(false);
    bar->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    addFileMenu(bar, window, services);
    addEditMenu(bar, window);
    addHelpMenu(bar);
    return bar;
}

} // namespace korvane
