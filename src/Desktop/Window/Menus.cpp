#include "Desktop/Window/Menus.h"

#include "Desktop/Access/Editing.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Window/Shortcuts.h"
#include "Views/ContentView.h"
#include "Views/Services.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

namespace korvane {

namespace {

struct EditCommand {
    const char* title;
    QKeySequence::StandardKey key;
    bool startsGroup = false;
};

constexpr std::array editCommands{
    EditCommand{"&Undo", QKeySequence::Undo},     EditCommand{"&Redo", QKeySequence::Redo},
    EditCommand{"Cu&t", QKeySequence::Cut, true}, EditCommand{"&Copy", QKeySequence::Copy},
    EditCommand{"&Paste", QKeySequence::Paste},   EditCommand{"Select &All", QKeySequence::SelectAll, true},
};

/// Escape also leaves the menu bar, to which Qt would give the focus.
class Menu final : public QMenu {
public:
    Menu(const QString& title, QMenuBar* bar) : QMenu(title, bar), m_bar(bar) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        QMenu::keyPressEvent(event);
        if (event->matches(QKeySequence::Cancel))
            pressKeys(m_bar, QKeySequence::Cancel);
    }

private:
    QMenuBar* m_bar;
};

/// Shows `keys` beside the action without handling them. The action has them only while its menu is open:
/// otherwise it would conflict with their actual handler while the menu bar has the focus.
void showShortcut(const QMenu* menu, QAction* action, const QKeySequence& keys) {
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(menu, &QMenu::aboutToShow, action, [action, keys] { action->setShortcut(keys); });
    QObject::connect(menu, &QMenu::aboutToHide, action, [action] { action->setShortcut({}); });
}

QMenu* addMenu(QMenuBar* bar, const QString& title) {
    auto* menu = new Menu(title, bar);
    bar->addMenu(menu);
    return menu;
}

QAction* addLabel(QMenu* menu, std::string_view text) {
    auto* action = menu->addAction(qString(text));
    action->setEnabled(false);
    return action;
}

void addFileMenu(QMenuBar* bar, QWidget* window, Services& services) {
    auto* menu = addMenu(bar, QMenuBar::tr("&File"));
    menu->setSeparatorsCollapsible(false); // keeps the separator above the tools
    menu->addSeparator();
    addLabel(menu, MenuTexts::tools)->setFont(Theme::font(Theme::TextStyle::caption));
    for (const auto tool : allCases<Tool>) {
        auto* action = menu->addAction(qString(rawValue(tool)));
        showShortcut(menu, action, shortcutKeys(tool));
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
    // The menu bar takes the focus when it is used by keyboard, so the control that had it is remembered.
    auto control = std::make_shared<QPointer<QWidget>>();
    QObject::connect(qApp, &QApplication::focusChanged, menu, [control, window](QWidget*, QWidget* now) {
        if (now && now->window() == window && !qobject_cast<QMenuBar*>(now))
            *control = now;
    });
    std::vector<std::pair<QAction*, QKeySequence::StandardKey>> actions;
    for (const auto& command : editCommands) {
        if (command.startsGroup)
            menu->addSeparator();
        auto* action = menu->addAction(QMenuBar::tr(command.title));
        showShortcut(menu, action, QKeySequence(command.key));
        QObject::connect(action, &QAction::triggered, window, [control, key = command.key] {
            if (*control && answersTo(*control, key))
                pressKeys(*control, key);
        });
        actions.emplace_back(action, command.key);
    }
    QObject::connect(menu, &QMenu::aboutToShow, menu, [control, actions] {
        for (const auto& [action, key] : actions)
            action->setEnabled(*control && answersTo(*control, key));
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

void openContextMenu(QWidget* control) {
    if (!control)
        return;
    const auto place = control->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, control->mapToGlobal(place));
    QApplication::sendEvent(control, &event);
}

void openFirstMenu(QMenuBar* bar) {
    bar->setActiveAction(bar->actions().front());
    auto* menu = bar->activeAction()->menu();
    const auto items = menu->actions();
    const auto first = std::ranges::find_if(
        items, [](const QAction* item) { return item->isEnabled() && !item->isSeparator(); });
    if (first != items.end())
        menu->setActiveAction(*first);
}

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
