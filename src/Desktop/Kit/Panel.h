/// The rounded surfaces that controls and contents lie on.
#pragma once

#include <QColor>
#include <QWidget>

#include <functional>

namespace korvane {

/// A surface of one colour, without an outline.
class Surface : public QWidget {
public:
    /// `color` is asked for whenever the surface is painted, so that it follows the theme; `radius` is in
    /// pixels at a 13-pixel body text.
    Surface(std::function<QColor()> color, int radius) : m_color(std::move(color)), m_radius(radius) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<QColor()> m_color;
    int m_radius;
};

/// The outlined surface of editors, lists and previews.
class Panel : public QWidget {
public:
    /// A panel around `content`, which fills it up to the outline and takes the focus for it.
    explicit Panel(QWidget* content);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace korvane
