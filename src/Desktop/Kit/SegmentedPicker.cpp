#include "Desktop/Kit/SegmentedPicker.h"

#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <QBoxLayout>
#include <QPainter>
#include <QRadioButton>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

class Segment final : public QRadioButton {
public:
    explicit Segment(const std::string& title) {
        setText(qString(title));
        setAccessibleName(text());
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    QSize sizeHint() const override {
        return {QFontMetrics(Theme::font(TextStyle::quietStrong)).horizontalAdvance(text()),
                Theme::lineHeight(TextStyle::quiet)};
    }

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

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
        painter.setFont(Theme::font(isChecked() ? TextStyle::quietStrong : TextStyle::quiet));
        painter.setPen(Theme::color(isLit ? Role::primary : Role::secondary));
        painter.drawText(rect(), Qt::AlignCenter, text());
    }
};

} // namespace

QWidget* segmentedPicker(ViewCore& view, SegmentedPickerParts parts) {
    auto* track = new Surface([] { return Theme::color(Role::controlFill); }, Size::radiusMedium);
    track->setAccessibleName(qString(parts.label));
    track->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); // however much its segments would grow
    track->setFixedSize(Theme::px(parts.width), Theme::px(Size::segmentedHeight));
    constexpr auto inset = Size::segmentedInset;
    fill(track, Qt::Horizontal, {.spacing = 0, .padding = {inset, inset, inset, inset}, .equalShares = true},
         {});
    for (int index = 0; index < static_cast<int>(parts.titles.size()); ++index) {
        auto* segment = new Segment(parts.titles[static_cast<std::size_t>(index)]);
        static_cast<QBoxLayout*>(track->layout())->addWidget(segment, 1);
        giveFocusRing(segment, track, Size::radiusMedium);
        QObject::connect(segment, &QRadioButton::toggled, segment, [select = parts.select, index](bool isOn) {
            if (isOn)
                select(index);
        });
        // The Tab key stops at the chosen segment only; the arrow keys go on from there.
        view.onRefresh([segment, index, selected = parts.selected] {
            const bool isChosen = selected() == index;
            segment->setChecked(isChosen);
            segment->setFocusPolicy(isChosen ? Qt::TabFocus : Qt::NoFocus);
        });
    }
    return track;
}

} // namespace korvane
