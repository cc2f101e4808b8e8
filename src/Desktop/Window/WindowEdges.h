/// The edges and corners of the frameless window: they resize it, and a line of one pixel is painted along
/// them.
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
