#include "Desktop/Window/MainWindow.h"

#include "Desktop/Kit/Editors.h"
#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Tools/Screens.h"
#include "Desktop/Window/Menus.h"
#include "Desktop/Window/Shortcuts.h"
#include "Desktop/Window/Sidebar.h"
#include "Desktop/Window/TopStrip.h"
#include "Desktop/Window/WelcomeScreen.h"
#include "Desktop/Window/WindowEdges.h"

#include <QAbstractSpinBox>
#include <QAccessibleWidget>
#include <QEvent>
#include <QMenuBar>
#include <QPainter>
#include <QSplitter>
#include <QToolTip>
#include <QVBoxLayout>

namespace korvane {

namespace {

/// The control of `screen` that takes the text which the tool works on. A text that is only shown is none,
/// nor is the number in a stepper.
QWidget* firstEditor(QWidget* screen) {
    for (auto* child : screen->findChildren<QWidget*>()) {
        const bool isNumber = qobject_cast<QAbstractSpinBox*>(child->parentWidget()) != nullptr;
        if (holdsText(child) && !isNumber && !child->property("readOnly").toBool())
            return child;
    }
    return nullptr;
}

} // namespace

MainWindow::MainWindow(Services& services) : m_view(services) {
    setWindowTitle(QStringLiteral("Korvane"));
    setWindowFlag(Qt::FramelessWindowHint);
    setMinimumSize(Theme::px(WindowMetrics::minimumWidth), Theme::px(WindowMetrics::minimumHeight));
    resize(Theme::px(WindowMetrics::defaultWidth), Theme::px(WindowMetrics::defaultHeight));

    auto* side = sidebar(m_view, menuStrip(menuBar(this, services)));
    side->setMinimumWidth(Theme::px(WindowMetrics::sidebarMinimumWidth));
    side->setMaximumWidth(Theme::px(WindowMetrics::sidebarMaximumWidth));
    auto* detail = new QWidget;
    m_detail = new QVBoxLayout(detail);
    m_detail->setContentsMargins({});
    m_detail->setSpacing(0);
    m_detail->addWidget(windowButtonStrip(this));

    auto* columns = new QSplitter;
    columns->setHandleWidth(0);
    columns->setChildrenCollapsible(false);
    columns->addWidget(side);
    columns->addWidget(detail);
    side->lower(); // it is read first
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
    m_view.onRefresh([this] { showSelectedTool(); });
}

void MainWindow::showScheme(Theme::Scheme scheme) {
    Theme::setScheme(scheme);
    if (const auto look = Theme::palette(); look != palette()) {
        setPalette(look);
        QToolTip::setPalette(look);
    }
    const auto sheet = Theme::menuStyleSheet();
    for (auto* bar : findChildren<QMenuBar*>()) {
        if (sheet != bar->styleSheet())
            bar->setStyleSheet(sheet); // the menus below it take it over
    }
}

QAccessibleInterface* MainWindow::newAccessibleInterface() {
    return new QAccessibleWidget(this,
                                 QAccessible::Window); // without a frame the toolkit does not know it as one
}

void MainWindow::addShortcuts() {
    for (const auto tool : allCases<Tool>) {
        if (const auto keys = shortcutKeys(tool); !keys.isEmpty())
            keyboardShortcut(this, keys, [this, tool] { m_view.perform(&ContentView::select, tool); });
    }
}

void MainWindow::showSelectedTool() {
    const auto tool = m_view.state().selectedTool;
    if (m_screen && tool == m_shownTool)
        return;
    // Whoever worked in the old screen goes on in the new one; whoever is in the sidebar stays there.
    const bool takesFocus = !focusWidget() || (m_screen && m_screen->isAncestorOf(focusWidget()));
    m_shownTool = tool;
    delete m_screen;
    m_screen = tool ? toolView(*tool, m_view.services()) : welcomeScreen();
    m_detail->addWidget(m_screen, 1);
    m_screen->setAccessibleName(tool ? qString(rawValue(*tool)) : QString());
    m_screen->show();
    if (!takesFocus)
        return;
    // Where there is nothing to type into, the next Tab goes to the screen's first control.
    auto* editor = firstEditor(m_screen);
    (editor ? editor : m_screen)->setFocus(Qt::OtherFocusReason);
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
