/// The program's only window: sidebar and detail, without the window system's frame.
#pragma once

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Window/FocusKeeper.h"
#include "Views/ContentView.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class QMenuBar;
class QVBoxLayout;

namespace korvane {

class MainWindow final : public QWidget, public AccessibleControl {
public:
    explicit MainWindow(Services& services, const ContentView& state = {});
    ~MainWindow() override;

    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    Store& store() { return m_store; }

    /// Applies a colour scheme to the window and the tool tips.
    void showScheme(Theme::Scheme scheme);

    QAccessibleInterface* newAccessibleInterface() override;

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addShortcuts();
    void pressFirstAction();
    void showSelectedTool();
    void enterScreen();
    bool isInScreen(const QWidget* control) const;
    bool moveFocus(bool next);

    Store m_store;
    QMenuBar* m_menus;
    QWidget* m_sidebar;
    QWidget* m_windowButtons;
    QVBoxLayout* m_detail;
    QWidget* m_screen = nullptr;
    QPointer<QWidget> m_lastInScreen; ///< the last focused control of the screen
    FocusKeeper m_focusKeeper{};
    std::optional<Tool> m_shownTool;
};

} // namespace korvane
