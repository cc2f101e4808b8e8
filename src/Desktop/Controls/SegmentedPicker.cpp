#include "Desktop/Controls/SegmentedPicker.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QAccessibleWidget>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QRadioButton>

#include <algorithm>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int pickerHeight = 32;
constexpr int pickerInset = 2;
constexpr int segmentGap = 5;
constexpr int segmentPadding = 10;

class Segment final : public QRadioButton {
public:
    /// `padding` is the free space on either side of the title.
    Segment(const std::string& title, std::string icon, int padding)
        : m_icon(std::move(icon)), m_padding(Theme::px(padding)) {
        setText(qString(title));
        setAccessibleName(text());
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    QSize sizeHint() const override {
        return {iconWidth() + 2 * m_padding +
                    QFontMetrics(Theme::font(TextStyle::quietStrong)).horizontalAdvance(text()),
                Theme::lineHeight(TextStyle::quiet)};
    }

    QSize minimumSizeHint() const override { return {iconWidth(), sizeHint().height()}; }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

    /// Qt handles the arrow keys; Home and End go to the first and the last segment.
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Home && event->key() != Qt::Key_End)
            return QRadioButton::keyPressEvent(event);
        const auto segments = parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly);
        auto* end = event->key() == Qt::Key_Home ? segments.front() : segments.back();
        end->click();
        end->setFocus(Qt::TabFocusReason);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (!isEnabled())
            painter.setOpacity(Theme::disabledOpacity);
        const auto radius = Theme::px(Size::radiusSmall);
        const bool isLit = isChecked() || underMouse() || isDown();
        if (isChecked()) {
            painter.setBrush(Theme::color(Role::segmentSelected));
            painter.setPen(Theme::color(Role::segmentOutline));
            painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5,
                                    radius - 0.5);
        } else if (isDown()) {
            painter.setBrush(Theme::color(Role::controlFill));
            painter.setPen(Qt::NoPen);
            painter.drawRoundedRect(rect(), radius, radius);
        }
        const auto font = Theme::font(isChecked() ? TextStyle::quietStrong : TextStyle::quiet);
        const auto ink = Theme::color(isLit ? Role::primary : Role::secondary);
        const auto textWidth = QFontMetrics(font).horizontalAdvance(text());
        const auto left = (width() - iconWidth() - textWidth) / 2;
        const auto glyph = Theme::px(Size::quietGlyph);
        if (!m_icon.empty())
            Glyph::paint(painter, m_icon, QRectF(left, (height() - glyph) / 2.0, glyph, glyph), ink);
        painter.setFont(font);
        painter.setPen(ink);
        painter.drawText(rect().adjusted(left + iconWidth(), 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         text());
    }

private:
    int iconWidth() const { return m_icon.empty() ? 0 : Theme::px(Size::quietGlyph) + Theme::px(segmentGap); }

    std::string m_icon;
    int m_padding;
};

/// The background of the segments, which is the picker for assistive technology.
class Track final : public Surface, public AccessibleControl {
public:
    Track() : Surface([] { return Theme::color(Role::controlFill); }, Size::radiusMedium) {}

    QAccessibleInterface* newAccessibleInterface() override {
        return new QAccessibleWidget(this, QAccessible::Grouping);
    }
};

} // namespace

QWidget* segmentedPicker(Store& store, std::string_view name, const Segments& segments,
                         const Reader<int>& selected, const Action<int>& select, int width,
                         SegmentLook look) {
    auto* track = new Track;
    track->setAccessibleName(qString(name));
    track->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); // its segments would grow
    track->setFixedHeight(Theme::px(pickerHeight));
    constexpr auto inset = pickerInset;
    fill(track, Qt::Horizontal, {.spacing = 0, .padding = {inset, inset, inset, inset}}, {});
    auto* layout = static_cast<QBoxLayout*>(track->layout());
    const bool isEven = look == SegmentLook::even;
    for (int index = 0; index < static_cast<int>(segments.titles.size()); ++index) {
        const auto position = static_cast<std::size_t>(index);
        auto* segment = new Segment(segments.titles[position],
                                    segments.icons.empty() ? std::string() : segments.icons[position],
                                    isEven && width > 0 ? 0 : segmentPadding);
        layout->addWidget(segment, isEven ? 1 : 0);
        giveFocusRing(segment, track, Size::radiusMedium);
        QObject::connect(segment, &QRadioButton::toggled, segment,
                         [select = select.on(store), index](bool isOn) {
                             if (isOn)
                                 select(index);
                         });
        // The Tab key stops only at the chosen segment; the arrow keys continue from there.
        store.onRefresh([segment, index, selected = selected.of(store)] {
            const bool isChosen = selected() == index;
            segment->setChecked(isChosen);
            segment->setFocusPolicy(isChosen ? Qt::TabFocus : Qt::NoFocus);
        });
    }
    if (width > 0) // or wider, so that titles are not cut off in any font
        track->setFixedWidth(std::max(Theme::px(width), layout->sizeHint().width()));
    return track;
}

} // namespace korvane
