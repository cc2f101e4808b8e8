/// The ring around the control that has the keyboard focus. It is outside the control and therefore a
/// separate widget, which follows the focus.
#pragma once

#include <QPointer>
#include <QWidget>

namespace korvane {

/// Makes the ring appear around `frame`, with rounded corners, while `control` has the focus. `radius` is the
/// frame's own, in pixels at a 13-pixel body text.
void giveFocusRing(QWidget* control, QWidget* frame, int radius);

/// The widget that the ring surrounds while `control` has the focus; `control` itself by default.
QWidget* ringFrame(QWidget* control);

class FocusRing final : public QWidget {
public:
    /// The ring of `window`, which owns it.
    explicit FocusRing(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow(QWidget* control);
    void place();

    QWidget* m_window;
    QPointer<QWidget> m_frame;
    int m_radius = 0;
};

} // namespace korvane
