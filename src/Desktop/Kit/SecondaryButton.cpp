#include "Desktop/Kit/SecondaryButton.h"

#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

class SecondaryButton final : public GlyphButton {
public:
    explicit SecondaryButton(const SecondaryButtonParts& parts)
        : GlyphButton(parts.title, parts.icon), m_isProminent(parts.isProminent) {
        setMetrics({.style = m_isProminent ? Theme::TextStyle::button : Theme::TextStyle::bodyMedium,
                    .height = Size::actionHeight,
                    .padding = Size::actionPadding,
                    .glyph = m_isProminent ? Size::actionGlyph : Size::secondaryGlyph,
                    .gap = Size::gapBadge,
                    .radius = Size::radiusMedium});
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (!isEnabled())
            painter.setOpacity(Theme::disabledOpacity);
        const bool isHovered = underMouse() && isEnabled();
        const auto fill =
            isDown() ? Role::controlPressed : (isHovered ? Role::controlHover : Role::controlFill);
        paintBackground(painter, Theme::color(fill));
        const bool isLit = m_isProminent || isHovered || isDown();
        paintContent(painter, Theme::color(isLit ? Role::primary : Role::secondary));
    }

private:
    bool m_isProminent;
};

} // namespace

QWidget* secondaryButton(ViewCore& view, SecondaryButtonParts parts) {
    auto* button = new SecondaryButton(parts);
    view.onRefresh([button, isDisabled = parts.isDisabled] { button->setEnabled(!isDisabled()); });
    QObject::connect(button, &QAbstractButton::clicked, button, parts.action);
    return button;
}

} // namespace korvane
