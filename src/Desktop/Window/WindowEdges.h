/// The edges and corners that resize the frameless window, and the one-pixel line along them.
#pragma once

#include <QObject>

#include <vector>

class QWidget;

namespace korvane {

class WindowEdges final : public QObject {
public:
    explicit WindowEdges(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QWidget* m_window;
    QWidget* m_outline;
    std::vector<QWidget*> m_grips;
};

} // namespace korvane
