/// The one window: sidebar and detail, without the window system's frame.
#pragma once

#include "Desktop/Kit/Accessibility.h"
#include "Desktop/Kit/View.h"
#include "Views/ContentView.h"

#include <QWidget>

#include <optional>

class QVBoxLayout;

namespace korvane {

class MainWindow final : public QWidget, public AccessibleControl {
public:
    explicit MainWindow(Services& services);

    View<ContentView>& view() { return m_view; }

    /// Shows everything in light or in dark.
    void showScheme(Theme::Scheme scheme);

    QAccessibleInterface* newAccessibleInterface() override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addShortcuts();
    void showSelectedTool();

    View<ContentView> m_view;
    QVBoxLayout* m_detail;
    QWidget* m_screen = nullptr;
    std::optional<Tool> m_shownTool;
};

} // namespace korvane
