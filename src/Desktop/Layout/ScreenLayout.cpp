#include "Desktop/Layout/ScreenLayout.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Theme.h"

#include <QApplication>
#include <QScrollArea>
#include <QTimer>

namespace korvane {

using Theme::Size;

namespace {

constexpr int headerTop = 4;
constexpr int headerBottom = 16;
constexpr int bodyTop = 4;

/// The part of a screen below its header.
class ScreenBody final : public QScrollArea {
public:
    ScreenBody(Store& store, QWidget* content) : m_store(store) {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setFocusPolicy(Qt::NoFocus);
        viewport()->setAutoFillBackground(false);
        setWidget(content);
        content->setAutoFillBackground(false);
        new OverlayScrollBar(Qt::Vertical, this, this);
        new OverlayScrollBar(Qt::Horizontal, this, this);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (now && widget()->isAncestorOf(now))
                revealFocus(now);
        });
    }

    QSize minimumSizeHint() const override { return {0, 0}; }

    /// Scrolls to make `part` visible, or the start of it if it does not fit.
    void reveal(const QWidget* part) {
        const auto margin = Theme::px(bodyTop);
        const QSize room = viewport()->size() - QSize(2 * margin, 2 * margin);
        const QRect place(part->mapTo(widget(), QPoint()), part->size().boundedTo(room));
        ensureVisible(place.right(), place.bottom(), margin, margin);
        ensureVisible(place.left(), place.top(), margin, margin);
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        m_store.widthClass().setNarrow(width() < Theme::px(narrowWidth));
        QScrollArea::resizeEvent(event);
    }

private:
    /// Scrolls to make `control` and its focus ring visible, from whatever source the focus came.
    void revealFocus(QWidget* control) {
        const auto margin = Theme::px(bodyTop);
        auto* frame = ringFrame(control);
        const bool fits = frame->height() + 2 * margin <= viewport()->height();
        ensureWidgetVisible(fits ? frame : control, margin, margin);
    }

    Store& m_store;
};

/// The scrolling part of the screen around `widget`, or null outside of screens.
ScreenBody* bodyAround(const QWidget* widget) {
    auto* around = widget->parentWidget();
    while (around && !dynamic_cast<ScreenBody*>(around))
        around = around->parentWidget();
    return static_cast<ScreenBody*>(around);
}

} // namespace

QWidget* screen(Store& store, QWidget* header, std::initializer_list<Item> items) {
    auto* content =
        stack(Qt::Vertical,
              {.spacing = Size::gapSection,
               .padding = {Size::screenPadding, bodyTop, Size::screenPadding, Size::screenPadding}},
              items);
    auto* head =
        stack(Qt::Vertical,
              {.spacing = 0, .padding = {Size::screenPadding, headerTop, Size::screenPadding, headerBottom}},
              {header});
    head->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return stack(Qt::Vertical, {.spacing = 0}, {head, new ScreenBody(store, content)});
}

void bringIntoView(QWidget* widget) {
    QTimer::singleShot(0, widget, [widget] {
        auto* body = bodyAround(widget);
        if (body && widget->isVisible())
            body->reveal(widget);
    });
}

} // namespace korvane
