#include "Desktop/Window/MainWindow.h"

#include "Desktop/Access/Editing.h"
#include "Desktop/Access/TabStops.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextZoom.h"
#include "Desktop/Tools/Screens.h"
#include "Desktop/Window/Menus.h"
#include "Desktop/Window/Shortcuts.h"
#include "Desktop/Window/Sidebar.h"
#include "Desktop/Window/TopStrip.h"
#include "Desktop/Window/WelcomeScreen.h"
#include "Desktop/Window/WindowBounds.h"
#include "Desktop/Window/WindowEdges.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPainter>
#include <QSplitter>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <vector>

namespace korvane {

MainWindow::MainWindow(Services& services, const ContentView& state) : m_store(services, state) {
    setWindowTitle(QStringLiteral("Korvane"));
    setWindowFlag(Qt::FramelessWindowHint);
    new WindowBounds(this);

    m_menus = menuBar(this, services);
    m_sidebar = sidebar(m_store, menuStrip(m_menus), [this] { enterScreen(); });
    m_sidebar->setMinimumWidth(Theme::px(WindowMetrics::sidebarMinWidth));
    m_sidebar->setMaximumWidth(Theme::px(WindowMetrics::sidebarMaxWidth));
    auto* detail = new QWidget;
    m_detail = new QVBoxLayout(detail);
    m_detail->setContentsMargins({});
    m_detail->setSpacing(0);
    m_windowButtons = windowButtonStrip(this);
    m_detail->addWidget(m_windowButtons);

    auto* columns = new QSplitter;
    columns->setHandleWidth(0);
    columns->setChildrenCollapsible(false);
    columns->addWidget(m_sidebar);
    columns->addWidget(detail);
    m_sidebar->lower(); // screen readers read it first
    columns->setStretchFactor(1, 1);
    columns->setSizes({Theme::px(WindowMetrics::sidebarWidth),
                       Theme::px(WindowMetrics::defaultWidth - WindowMetrics::sidebarWidth)});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(columns);

    showScheme(Theme::scheme());
    addShortcuts();
    new FocusRing(this);
    new WindowEdges(this);
    connect(qApp, &QApplication::focusChanged, &m_focusKeeper, [this](QWidget*, QWidget* now) {
        if (isInScreen(now))
            m_lastInScreen = now;
    });
    m_store.onRefresh([this] { showSelectedTool(); });
}

MainWindow::~MainWindow() {
    m_store.close();
    delete m_screen; // the controls are destroyed before the state that they read
    delete m_sidebar;
}

void MainWindow::showScheme(Theme::Scheme scheme) {
    Theme::setScheme(scheme);
    if (const auto look = Theme::palette(); look != palette()) {
        setPalette(look);
        QToolTip::setPalette(look);
    }
}

QAccessibleInterface* MainWindow::newAccessibleInterface() {
    return new QAccessibleWidget(this,
                                 QAccessible::Window); // Qt does not report it as a window without a frame
}

void MainWindow::addShortcuts() {
    for (const auto tool : allCases<Tool>) {
        if (const auto keys = shortcutKeys(tool); !keys.isEmpty())
            installShortcut(this, keys, [this, tool] { m_store.perform(&ContentView::select, tool); });
    }
    const auto searchTools = [this] { m_sidebar->setFocus(Qt::ShortcutFocusReason); };
    installShortcut(this, Qt::CTRL | Qt::SHIFT | Qt::Key_F, searchTools);
    installShortcut(this, QKeySequence::Find, [this, searchTools] {
        if (!korvane::find(focusWidget()))
            searchTools();
    });
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter})
        installShortcut(this, Qt::CTRL | key, [this] { pressFirstAction(); }, false);
    installShortcut(this, Qt::Key_F10, [this] { openFirstMenu(m_menus); });
    installShortcut(this, Qt::SHIFT | Qt::Key_F10, [this] { openContextMenu(focusWidget()); });
    // Moves out of any control, including those that use the Tab key.
    installShortcut(this, Qt::CTRL | Qt::Key_Tab, [this] { moveFocus(true); });
    installShortcut(this, Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, [this] { moveFocus(false); });
    // The key of the plus sign, with or without Shift.
    installShortcut(this, Qt::CTRL | Qt::Key_Plus, TextZoom::zoomIn);
    installShortcut(this, Qt::CTRL | Qt::Key_Equal, TextZoom::zoomIn);
    installShortcut(this, Qt::CTRL | Qt::Key_Minus, TextZoom::zoomOut);
}

void MainWindow::pressFirstAction() {
    if (auto* action = qobject_cast<QAbstractButton*>(firstAction(*m_screen)))
        action->click();
}

void MainWindow::showSelectedTool() {
    const auto tool = m_store.state<ContentView>().selectedTool;
    if (m_screen && tool == m_shownTool)
        return;
    // Focus in the old screen moves to the new one; focus in the sidebar stays.
    const bool takesFocus = !m_sidebar->isAncestorOf(focusWidget());
    m_shownTool = tool;
    delete m_screen;
    m_screen = tool ? toolScreen(*tool, m_store.services()) : welcomeScreen();
    m_detail->addWidget(m_screen, 1);
    m_screen->setAccessibleName(tool ? qString(rawValue(*tool)) : QString());
    m_screen->show();
    if (auto* action = firstAction(*m_screen))
        action->setToolTip(QKeySequence(Qt::CTRL | Qt::Key_Return).toString(QKeySequence::NativeText));
    if (takesFocus)
        enterScreen();
}

/// Restores the last focus in the screen, or focuses its first control.
void MainWindow::enterScreen() {
    const bool isKnown = isInScreen(m_lastInScreen) && isTabStop(m_lastInScreen);
    auto* control = isKnown ? m_lastInScreen.get() : firstControl(*m_screen);
    (control ? control : m_screen)->setFocus(Qt::OtherFocusReason);
}

bool MainWindow::isInScreen(const QWidget* control) const {
    return m_screen && control && (control == m_screen || m_screen->isAncestorOf(control));
}

/// Qt also calls this when the focused control is hidden or disabled.
bool MainWindow::focusNextPrevChild(bool next) {
    auto* focused = focusWidget();
    const bool isLost = isInScreen(focused) && !(focused->isEnabled() && focused->isVisibleTo(this));
    if (isLost && m_focusKeeper.moveFocusFrom(focused, m_screen))
        return true;
    return moveFocus(next);
}

/// Cycles through the sidebar, the screen and the window's buttons.
bool MainWindow::moveFocus(bool next) {
    std::vector<QWidget*> order;
    for (auto* part : {m_sidebar, m_screen, m_windowButtons})
        std::ranges::copy(readingOrder(*part), std::back_inserter(order));
    const auto* from = focusWidget();
    auto* stop = next ? nextStop(order, from) : previousStop(order, from);
    if (!stop)
        stop = next ? nextStop(order, nullptr) : previousStop(order, nullptr);
    stop->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

/// Handles the keys that no control has accepted.
void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (!pressByReturn(focusWidget(), *event))
        QWidget::keyPressEvent(event);
}

void MainWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        update();
}

void MainWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Theme::color(Theme::Role::windowBackground));
}

} // namespace korvane
