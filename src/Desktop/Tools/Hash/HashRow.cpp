#include "Desktop/Tools/Hash/HashRow.h"

#include "Desktop/Access/AccessibleButton.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/BusyLabel.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Hash/ElidedField.h"

#include <QAbstractButton>
#include <QGraphicsOpacityEffect>
#include <QPainter>

#include <string>
#include <string_view>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int padding = 12;
constexpr int gap = 12;
constexpr int lengthWidth = 62;
constexpr int lengthHeight = 21;

/// The row's surface, in the colour of its algorithm while it is chosen.
class HashRowButton final : public QAbstractButton, public ChoiceButton {
public:
    HashRowButton(std::string_view name, PaletteColor color) : m_color(color) {
        setText(qString(name));
        setAccessibleName(text());
        setCheckable(true);
        setFocusPolicy(Qt::TabFocus);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        giveFocusRing(this, this, Size::radiusMedium);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const auto radius = Theme::px(Size::radiusMedium);
        if (isChecked())
            paintSurface(painter, rect(), radius, Theme::withTint(m_color, Theme::Tint::row),
                         Theme::withTint(m_color, Theme::Tint::outline));
        else
            paintSurface(painter, rect(), radius, Qt::transparent, Theme::color(Role::controlFill));
    }

private:
    PaletteColor m_color;
};

/// `label`, centred on a plate of fixed size, so that the plates of all rows line up.
QWidget* lengthPlate(Label* label) {
    auto* plate = new Surface([] { return Theme::color(Role::controlFill); }, Size::radiusBadge);
    plate->setFixedSize(Theme::px(lengthWidth), Theme::px(lengthHeight));
    label->setAlignment(Qt::AlignCenter);
    fill(plate, Qt::Vertical, {.spacing = 0}, {label});
    return plate;
}

} // namespace

QWidget* hashRow(Store& store, HashGenerator::HashAlgorithm algorithm, const Reader<HashResultRow>& row,
                 const Action<>& select) {
    const auto read = row.of(store);
    const std::string name(rawValue(algorithm));
    auto* button = new HashRowButton(name, color(algorithm));
    auto* digest = new ElidedField(name, HashResultRow::placeholder);
    digest->onPress = select.on(store);
    auto* ring = new BusyRing(BusyRing::smallSize);
    auto* length = new Label({}, TextStyle::caption, Role::secondary);
    auto* plate = lengthPlate(length);
    auto* copy =
        copyButton(store, [read] { return read().hash; }, {.look = {.showLabel = false, .subject = name}});
    auto* fading = new QGraphicsOpacityEffect(copy);
    copy->setGraphicsEffect(fading);
    fill(button, Qt::Horizontal, {.spacing = gap, .padding = {padding, padding, padding, padding}},
         {tag(name, color(algorithm)), ring, digest, plate, copy});
    store.onRefresh([=] {
        const auto current = read();
        button->setChecked(current.isSelected);
        digest->display(current.hash);
        length->display(current.lengthText());
        digest->setPlaceholderText(qString(current.prompt()));
        plate->setVisible(current.showsLength());
        ring->setVisible(current.isBusy);
        copy->setEnabled(!current.isComputing); // a disabled button is painted faint
        fading->setOpacity(current.hasHash() || current.isComputing ? 1 : Theme::idleOpacity);
    });
    QObject::connect(button, &QAbstractButton::clicked, button, select.on(store));
    return button;
}

} // namespace korvane
