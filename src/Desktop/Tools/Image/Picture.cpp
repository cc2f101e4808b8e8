#include "Desktop/Tools/Image/Picture.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QAccessibleWidget>
#include <QImage>
#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int minPictureSize = 150;

/// `image` as a QImage. The samples are not copied: `image` must outlive the result.
QImage qImage(const Image& image) {
    return {reinterpret_cast<const uchar*>(image.samples.get()), image.width, image.height,
            static_cast<qsizetype>(image.rowBytes()), QImage::Format_RGBA8888};
}

class Picture final : public QWidget, public AccessibleControl {
public:
    explicit Picture(bool hasCheckerboard) : m_hasCheckerboard(hasCheckerboard) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    QSize sizeHint() const override { return minimumSizeHint(); }

    QSize minimumSizeHint() const override { return {Theme::px(minPictureSize), Theme::px(minPictureSize)}; }

    void display(const std::optional<Image>& image) {
        if (image == m_image)
            return;
        m_image = image;
        m_scaled = {};
        update();
    }

    QAccessibleInterface* newAccessibleInterface() override {
        return new QAccessibleWidget(this, QAccessible::Graphic);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const auto radius = Theme::px(Size::radiusMedium);
        if (m_hasCheckerboard) {
            clipToSurface(painter, rect(), radius);
            paintCheckerboard(painter, rect());
        }
        if (m_image)
            paintImage(painter);
        painter.setClipping(false);
        if (m_hasCheckerboard)
            paintSurface(painter, rect(), radius, Qt::transparent, Theme::color(Role::outline));
    }

private:
    void paintImage(QPainter& painter) {
        const auto size = QSize(m_image->width, m_image->height).scaled(this->size(), Qt::KeepAspectRatio);
        const auto pixels = size.expandedTo({1, 1}) * devicePixelRatioF();
        if (m_scaled.size() != pixels)
            m_scaled = qImage(*m_image).scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QRect place(QPoint(), size.expandedTo({1, 1}));
        place.moveCenter(rect().center());
        painter.drawImage(place, m_scaled);
    }

    bool m_hasCheckerboard;
    std::optional<Image> m_image{};
    QImage m_scaled{}; ///< in the size of the last painting
};

} // namespace

QWidget* picture(Store& store, std::string_view name, const Reader<std::optional<Image>>& image,
                 bool hasCheckerboard) {
    auto* widget = new Picture(hasCheckerboard);
    widget->setAccessibleName(qString(name));
    store.onRefresh([widget, image = image.of(store)] { widget->display(image()); });
    return widget;
}

QWidget* picturePlaceholder(std::string_view text) {
    auto* panel = new Panel(
        stack(Qt::Vertical, {},
              {stretch(), centered(new Label(text, Theme::TextStyle::body, Role::secondary)), stretch()}));
    panel->setMinimumHeight(Theme::px(minPictureSize));
    return panel;
}

} // namespace korvane
