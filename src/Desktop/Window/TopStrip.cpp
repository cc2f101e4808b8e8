#include "Desktop/Window/TopStrip.h"
#include "Desktop/Window/Sidebar.h"

#include "Desktop/Controls/Buttons.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <functional>
#include <string_view>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int windowButtonSize = 28;
constexpr int windowButtonGap = 4;
constexpr int windowGlyphMinimise = 13;
constexpr int windowGlyphMaximise = 11;
constexpr int windowGlyphClose = 12;

/// One of the window's three buttons. `glyph` is called at every paint.
class WindowButton final : public GlyphButton {
public:
    WindowButton(std::string_view name, std::function<std::string_view()> glyph, int glyphSize)
        : GlyphButton(name, glyph()), m_glyph(std::move(glyph)) {
        setToolTip(text());
        setMetrics({.style = Theme::TextStyle::quiet,
                    .height = windowButtonSize,
                    .padding = (windowButtonSize - glyphSize) / 2,
                    .glyph = glyphSize,
                    .gap = 0,
                    .radius = Size::radiusMedium});
        setFixedSize(Theme::px(windowButtonSize), Theme::px(windowButtonSize));
    }

protected:
    bool showsTitle() const override { return false; }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        m_icon = m_glyph();
        if (underMouse() || isDown())
            paintBackground(painter, Theme::color(isDown() ? Role::controlPressed : Role::controlHover));
        paintContent(painter, Theme::color(underMouse() ? Role::primary : Role::secondary));
    }

private:
    std::function<std::string_view()> m_glyph;
};

QWidget* windowButton(std::string_view name, std::function<std::string_view()> glyph, int glyphSize,
                      std::function<void()> action) {
    auto* button = new WindowButton(name, std::move(glyph), glyphSize);
    QObject::connect(button, &QAbstractButton::clicked, button, std::move(action));
    return button;
}

} // namespace

TopStrip::TopStrip() {
    setFixedHeight(Theme::px(stripHeight));
}

void TopStrip::mousePressEvent(QMouseEvent* event) {
    m_isPressed = event->button() == Qt::LeftButton;
    m_pressedAt = event->position().toPoint();
}

void TopStrip::mouseMoveEvent(QMouseEvent* event) {
    const auto distance = (event->position().toPoint() - m_pressedAt).manhattanLength();
    if (!m_isPressed || distance < QApplication::startDragDistance())
        return;
    m_isPressed = false; // the window system grabs the pointer, so no release event follows
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
         {.spacing = 0, .padding = {sidebarTextInset - Size::stripMenuPadding, 0, 0, 0}},
         {menuBar, stretch()});
    return strip;
}

QWidget* windowButtonStrip(QWidget* window) {
    auto* strip = new TopStrip;
    fill(
        strip, Qt::Horizontal, {.spacing = windowButtonGap, .padding = {0, 0, windowButtonGap, 0}},
        {
            stretch(),
            windowButton(
                "Minimize", [] { return "window.minimise"; }, windowGlyphMinimise,
                [window] { window->showMinimized(); }),
            windowButton(
                "Maximize", [window] { return window->isMaximized() ? "window.restore" : "window.maximise"; },
                windowGlyphMaximise, [window] { toggleMaximized(window); }),
            windowButton(
                "Close", [] { return "window.close"; }, windowGlyphClose, [window] { window->close(); }),
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
