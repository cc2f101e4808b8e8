#include "Desktop/Kit/Stepper.h"

#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Glyph.h"
#include "Desktop/Kit/LineEdit.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/TabStops.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QSpinBox>
#include <QStyleOptionSpinBox>

#include <algorithm>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

/// Puts the buttons of a spin box at its two ends.
class StepperStyle final : public QProxyStyle {
public:
    StepperStyle() : QProxyStyle(QStringLiteral("fusion")) {}

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override {
        if (control != CC_SpinBox)
            return QProxyStyle::subControlRect(control, option, part, widget);
        const auto whole = option->rect;
        const auto button = std::min(Theme::px(Size::stepperButton), whole.width() / 2);
        switch (part) {
        case SC_SpinBoxDown:
            return {whole.left(), whole.top(), button, whole.height()};
        case SC_SpinBoxUp:
            return {whole.right() + 1 - button, whole.top(), button, whole.height()};
        case SC_SpinBoxEditField:
            return whole.adjusted(button + 1, 1, -button - 1, -1);
        default:
            return whole;
        }
    }
};

class Stepper final : public QSpinBox {
public:
    explicit Stepper(const StepperOptions& options) {
        auto* look = new StepperStyle;
        look->setParent(this); // widgets do not own their style
        setStyle(look);
        auto* edit = new LineEdit(Theme::TextStyle::bodyMedium);
        edit->setObjectName("qt_spinbox_lineedit"); // by which the toolkit knows it as a part of the whole
        setLineEdit(edit);
        setRange(options.minimum, options.maximum);
        setSingleStep(options.step);
        setAlignment(Qt::AlignCenter);
        setGroupSeparatorShown(false);
        setMouseTracking(true);
        setFixedSize(Theme::px(options.width), Theme::px(Size::stepperHeight));
        lineEdit()->setVisible(options.showsValue);
        setFocusPolicy(Qt::StrongFocus);
        neverBeginWith(this);
        giveFocusRing(this, this, Size::radiusSmall);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (!isEnabled())
            painter.setOpacity(Theme::disabledOpacity);
        paintSurface(painter, rect(), Theme::px(Size::radiusSmall), Theme::color(Role::controlFill),
                     Theme::color(Role::outline));
        paintButton(painter, QStyle::SC_SpinBoxDown, "minus", value() > minimum());
        paintButton(painter, QStyle::SC_SpinBoxUp, "stepper.plus", value() < maximum());
        const auto field = part(QStyle::SC_SpinBoxEditField);
        for (const auto x : {field.left() - 1, field.right() + 1})
            painter.fillRect(x, 1, 1, height() - 2, Theme::color(Role::outline));
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        QSpinBox::mouseMoveEvent(event);
        update();
    }

private:
    QRect part(QStyle::SubControl subControl) const {
        QStyleOptionSpinBox option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_SpinBox, &option, subControl, this);
    }

    void paintButton(QPainter& painter, QStyle::SubControl button, const char* glyph, bool canStep) const {
        const auto area = part(button);
        const bool isHovered = canStep && underMouse() && area.contains(mapFromGlobal(QCursor::pos()));
        if (isHovered)
            paintSurface(painter, area.adjusted(1, 1, -1, -1), Theme::px(Size::radiusSmall) - 1,
                         Theme::color(Role::controlFill));
        const auto size = Theme::px(Size::stepperGlyph);
        QRectF place(0, 0, size, size);
        place.moveCenter(QRectF(area).center());
        const auto ink = isHovered ? Role::primary : (canStep ? Role::secondary : Role::placeholder);
        Glyph::paint(painter, glyph, place, Theme::color(ink));
    }
};

} // namespace

QWidget* stepper(ViewCore& view, StepperParts parts) {
    auto* control = new Stepper(parts.options);
    control->setAccessibleName(qString(parts.name));
    QObject::connect(control, &QSpinBox::valueChanged, control, parts.setValue);
    view.onRefresh([control, value = parts.value] { control->setValue(value()); });
    return control;
}

} // namespace korvane
