#include "Desktop/Tools/Color/ColorWell.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QColorDialog>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int swatchHeight = 150;
constexpr int wellWidth = 44;
constexpr int wellHeight = 28;
constexpr int wellInset = 4;
constexpr int wellRadius = 3;

/// `color` in sRGB; black if it is outside sRGB, as in the texts.
QColor qColor(const Color& color) {
    const auto shown = color.sRGB().value_or(Color());
    return QColor::fromRgbF(static_cast<float>(shown.red), static_cast<float>(shown.green),
                            static_cast<float>(shown.blue));
}

/// The dialog uses integer channels from 0 to 255, although a QColor has higher precision.
Color colorOf(const QColor& color) {
    return Color::fromChannels(color.red(), color.green(), color.blue());
}

class WellButton final : public QAbstractButton {
public:
    WellButton(std::string_view label, std::function<void(Color)> setColor)
        : m_setColor(std::move(setColor)) {
        setText(qString(label));
        setAccessibleName(text());
        setToolTip(text());
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
        setFixedSize(Theme::px(wellWidth), Theme::px(wellHeight));
        giveFocusRing(this, this, Size::radiusSmall);
        connect(this, &QAbstractButton::clicked, this, [this] { openDialog(); });
    }

    QSize sizeHint() const override { return minimumSize(); }

    void display(const Color& color) {
        if (color == m_color)
            return;
        m_color = color;
        // If the dialog already shows the colour, its own may hold more, such as the hue of a gray.
        if (m_dialog && colorOf(m_dialog->currentColor()) != color) {
            m_restored = color;
            m_dialog->setCurrentColor(qColor(color));
        }
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const auto fill = isDown()       ? Role::controlPressed
                          : underMouse() ? Role::controlHover
                                         : Role::controlFill;
        paintSurface(painter, rect(), Theme::px(Size::radiusSmall), Theme::color(fill),
                     Theme::color(Role::outline));
        const auto inset = Theme::px(wellInset);
        paintSurface(painter, rect().adjusted(inset, inset, -inset, -inset), Theme::px(wellRadius),
                     qColor(m_color));
    }

private:
    void openDialog() {
        if (!m_dialog)
            m_dialog = newDialog();
        m_dialog->show();
        m_dialog->raise();
        m_dialog->activateWindow();
    }

    QColorDialog* newDialog() {
        auto* dialog = new QColorDialog(qColor(m_color), this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setAttribute(Qt::WA_WindowPropagation); // inherits the window's palette
        dialog->setOption(QColorDialog::DontUseNativeDialog);
        dialog->setWindowTitle(text());
        connect(dialog, &QColorDialog::currentColorChanged, this,
                [this](const QColor& color) { m_setColor(colorOf(color)); });
        m_restored = m_color;
        connect(dialog, &QDialog::rejected, this, [this] { m_setColor(m_restored); });
        return dialog;
    }

    std::function<void(Color)> m_setColor;
    Color m_color{};
    Color m_restored{}; // the colour to restore when the dialog is cancelled
    QPointer<QColorDialog> m_dialog{};
};

class Swatch final : public QWidget, public AccessibleControl {
public:
    explicit Swatch(std::string_view label) {
        setAccessibleName(qString(label));
        setFixedHeight(Theme::px(swatchHeight));
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    void display(const Color& color, double opacity) {
        auto shown = qColor(color);
        shown.setAlphaF(static_cast<float>(opacity));
        if (shown == m_color)
            return;
        m_color = shown;
        update();
    }

    QAccessibleInterface* newAccessibleInterface() override {
        return new QAccessibleWidget(this, QAccessible::Graphic);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const auto radius = Theme::px(Size::radiusExtraLarge);
        clipToSurface(painter, rect(), radius);
        paintCheckerboard(painter, rect());
        painter.fillRect(rect(), m_color);
        painter.setClipping(false);
        painter.setPen(Theme::color(Role::outline));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    }

private:
    QColor m_color{};
};

} // namespace

QWidget* colorWell(Store& store, std::string_view label, const Reader<Color>& color,
                   const Action<Color>& setColor) {
    auto* well = new WellButton(label, setColor.on(store));
    store.onRefresh([well, color = color.of(store)] { well->display(color()); });
    return well;
}

QWidget* colorSwatch(Store& store, std::string_view label, const Reader<Color>& color,
                     const Reader<double>& opacity) {
    auto* swatch = new Swatch(label);
    store.onRefresh([swatch, color = color.of(store), opacity = opacity.of(store)] {
        swatch->display(color(), opacity());
    });
    return swatch;
}

} // namespace korvane
