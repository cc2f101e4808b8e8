#include "Desktop/Window/TopStrip.h"

#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Glyph.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <functional>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

/// One of the three buttons at the window's corner.
class WindowButton final : public QAbstractButton {
public:
    WindowButton(const char* name, std::function<std::string_view()> glyph, int glyphSize)
        : m_glyph(std::move(glyph)), m_glyphSize(glyphSize) {
        setAccessibleName(tr(name));
        setToolTip(accessibleName());
        setFocusPolicy(Qt::TabFocus);
        setFixedSize(Theme::px(Size::windowButton), Theme::px(Size::windowButton));
        giveFocusRing(this, this, Size::radiusMedium);
    }

protected:
    void enterEvent(QEnterEvent* event) override {
        QAbstractButton::enterEvent(event);
        update();
    }

    void leaveEvent(QEvent* event) override {
        QAbstractButton::leaveEvent(event);
        update();
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (underMouse() || isDown()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(Theme::color(isDown() ? Role::controlPressed : Role::controlHover));
            const auto radius = Theme::px(Size::radiusMedium);
            painter.drawRoundedRect(rect(), radius, radius);
        }
        const auto size = Theme::px(m_glyphSize);
        Glyph::paint(painter, m_glyph(), QRectF((width() - size) / 2.0, (height() - size) / 2.0, size, size),
                     Theme::color(underMouse() ? Role::primary : Role::secondary));
    }

private:
    std::function<std::string_view()> m_glyph;
    int m_glyphSize;
};

QWidget* windowButton(const char* name, std::function<std::string_view()> glyph, int glyphSize,
                      std::function<void()> action) {
    auto* button = new WindowButton(name, std::move(glyph), glyphSize);
    QObject::connect(button, &QAbstractButton::clicked, button, std::move(action));
    return button;
}

} // namespace

TopStrip::TopStrip() {
    setFixedHeight(Theme::px(Size::stripHeight));
}

void TopStrip::mousePressEvent(QMouseEvent* event) {
    m_isPressed = event->button() == Qt::LeftButton;
    m_pressedAt = event->position().toPoint();
}

void TopStrip::mouseMoveEvent(QMouseEvent* event) {
    const auto distance = (event->position().toPoint() - m_pressedAt).manhattanLength();
    if (!m_isPressed || distance < QApplication::startDragDistance())
        return;
    m_isPressed = false; // the window system takes the pointer, and the release with it
    if (auto* handle = window()->windowHandle())
        handle->startSystemMove();
}

void TopStrip::mouseDoubleClickEvent(QMouseEvent* event) {
    m_isPressed = false;
    if (event->button() == Qt::LeftButton)
        toggleMaximized(window());
}

QWidget* menuStrip(QWidget* menuBar) {
    auto* strip = new TopStrip;
    fill(strip, Qt::Horizontal,
         {.spacing = 0, .padding = {Size::sidebarTextInset - Size::stripMenuPadding, 0, 0, 0}},
         {menuBar, stretch()});
    return strip;
}

QWidget* windowButtonStrip(QWidget* window) {
    auto* strip = new TopStrip;
    fill(
        strip, Qt::Horizontal,
        {.spacing = Size::windowButtonGap, .padding = {0, 0, Size::windowButtonGap, 0}},
        {
            stretch(),
            windowButton(
                "Minimize", [] { return "window.minimise"; }, Size::windowGlyphMinimise,
                [window] { window->showMinimized(); }),
            windowButton(
                "Maximize", [window] { return window->isMaximized() ? "window.restore" : "window.maximise"; },
                Size::windowGlyphMaximise, [window] { toggleMaximized(window); }),
            windowButton(
                "Close", [] { return "window.close"; }, Size::windowGlyphClose,
                [window] { window->close(); }),
        });
    return strip;
}

void toggleMaximized(QWidget* window) {
    if (window->isMaximized())
        window->showNormal();
    else
        window->showMaximized();
}

} // namespace korvane
