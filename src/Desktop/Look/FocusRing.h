/// The ring around the control that has the keyboard focus. It lies outside the control, so it is a widget of
/// its own that follows the focus.
#pragma once

#include <QPointer>
#include <QWidget>

namespace korvane {

/// Has the ring drawn around `frame` with rounded corners while `control` has the focus. `radius` is the
/// frame's own, in pixels at a 13-pixel body text.
void giveFocusRing(QWidget* control, QWidget* frame, int radius);

/// What the ring is drawn around while `control` has the focus; `control` itself if it has none.
QWidget* ringFrame(QWidget* control);

class FocusRing final : public QWidget {
public:
    /// The ring of one window, which it follows for as long as the window lives.
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
