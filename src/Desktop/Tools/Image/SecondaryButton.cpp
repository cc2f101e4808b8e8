#include "Desktop/Tools/Image/SecondaryButton.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Look/Theme.h"

#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int glyphSize = 13;

class SecondaryButton final : public GlyphButton {
public:
    SecondaryButton(std::string_view title, std::string_view icon, bool isProminent)
        : GlyphButton(title, icon), m_isProminent(isProminent) {
        setMetrics({.style = m_isProminent ? Theme::TextStyle::button : Theme::TextStyle::bodyMedium,
                    .height = Size::actionHeight,
                    .padding = Size::actionPadding,
                    .glyph = m_isProminent ? Size::actionGlyph : glyphSize,
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

QWidget* secondaryButton(Store& store, std::string_view title, std::string_view icon, const Action<>& action,
                         const SecondaryButtonOptions& options) {
    auto* button = new SecondaryButton(title, icon, options.isProminent);
    store.onRefresh(
        [button, isDisabled = options.isDisabled.of(store)] { button->setEnabled(!isDisabled()); });
    QObject::connect(button, &QAbstractButton::clicked, button, action.on(store));
    return button;
}

} // namespace korvane
