#include "Desktop/Tools/Image/DropTarget.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/Theme.h"

#include <QBuffer>
#include <QDropEvent>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

/// The length of the dashes around a drop zone, and of the gaps, in line widths.
constexpr double dropDash = 2.5;

/// Whether the drag contains what `droppedItems` finds, without fetching data from the other program.
bool canBeDropped(const QMimeData& data) {
    for (const auto& url : data.urls()) {
        if (url.isLocalFile())
            return true;
    }
    for (const auto format : allCases<ImageFormat>) {
        if (data.hasFormat(qString(factsOf(format).mediaType)))
            return true;
    }
    return data.hasImage();
}

SharedBytes shared(const QByteArray& bytes) {
    return SharedBytes::copyOf({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

/// `image` as a PNG file.
SharedBytes encoded(const QImage& image) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return shared(buffer.data());
}

class DropTarget final : public QWidget {
public:
    DropTarget(std::function<void(bool)> setTargeted, std::function<void(DroppedItems)> drop,
               QWidget* content)
        : m_setTargeted(std::move(setTargeted)), m_drop(std::move(drop)) {
        setAcceptDrops(true);
        fill(this, Qt::Vertical, {.spacing = 0}, {content});
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (!canBeDropped(*event->mimeData()))
            return;
        event->setDropAction(Qt::CopyAction); // even if the other program proposes a move, its file stays
        event->accept();
        m_setTargeted(true);
    }

    void dragLeaveEvent(QDragLeaveEvent*) override { m_setTargeted(false); }

    void dropEvent(QDropEvent* event) override {
        event->setDropAction(Qt::CopyAction);
        event->accept();
        m_drop(droppedItems(*event->mimeData()));
    }

private:
    std::function<void(bool)> m_setTargeted;
    std::function<void(DroppedItems)> m_drop;
};

class DropZone final : public QWidget {
public:
    DropZone() { setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding); }

    void setTargeted(bool isTargeted) {
        if (isTargeted == m_isTargeted)
            return;
        m_isTargeted = isTargeted;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Theme::color(m_isTargeted ? Role::dropFill : Role::panelFill));
        QPen pen(Theme::color(m_isTargeted ? Role::accent : Role::outlineStrong), 1);
        pen.setDashPattern({dropDash, dropDash});
        painter.setPen(pen);
        constexpr double inset = 0.5;
        const auto radius = Theme::px(Size::radiusExtraLarge);
        painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
    }

private:
    bool m_isTargeted = false;
};

} // namespace

DroppedItems droppedItems(const QMimeData& data) {
    DroppedItems items;
    for (const auto& url : data.urls()) {
        if (url.isLocalFile())
            items.files.push_back(utf8String(url.toLocalFile()));
    }
    if (!items.files.empty())
        return items;
    for (const auto format : allCases<ImageFormat>) {
        items.data = shared(data.data(qString(factsOf(format).mediaType)));
        if (!items.data.empty())
            return items;
    }
    if (data.hasImage())
        items.data = encoded(qvariant_cast<QImage>(data.imageData()));
    return items;
}

QWidget* dropTarget(Store& store, const Action<bool>& setTargeted, const Action<DroppedItems>& drop,
                    QWidget* content) {
    return new DropTarget(setTargeted.on(store), drop.on(store), content);
}

QWidget* dropZone(Store& store, const Reader<bool>& isTargeted, std::initializer_list<Item> items) {
    auto* zone = new DropZone;
    fill(zone, Qt::Vertical, {}, items);
    store.onRefresh([zone, isTargeted = isTargeted.of(store)] { zone->setTargeted(isTargeted()); });
    return zone;
}

} // namespace korvane
