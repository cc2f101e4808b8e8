#include "Desktop/Controls/Stepper.h"

#include "Desktop/Access/TabStops.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/LineEdit.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QSpinBox>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int stepperHeight = 28;
constexpr int stepperButton = 28;
constexpr int stepperGlyph = 11;

/// Places the buttons of a spin box at its left and right ends.
class StepperStyle final : public QProxyStyle {
public:
    StepperStyle() : QProxyStyle(QStringLiteral("fusion")) {}

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override {
        if (control != CC_SpinBox)
            return QProxyStyle::subControlRect(control, option, part, widget);
        const auto whole = option->rect;
        const auto button = std::min(Theme::px(stepperButton), whole.width() / 2);
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

class NumberEdit final : public LineEdit {
public:
    using LineEdit::LineEdit;

    /// To be called when it gets the focus by a press.
    void selectOnRelease() { m_selectsOnRelease = true; }

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        LineEdit::mouseReleaseEvent(event);
        if (std::exchange(m_selectsOnRelease, false) && !hasSelectedText())
            selectAll();
    }

private:
    bool m_selectsOnRelease = false;
};

class Stepper final : public QSpinBox {
public:
    explicit Stepper(const StepperOptions& options) : m_edit(new NumberEdit(Theme::TextStyle::bodyMedium)) {
        auto* look = new StepperStyle;
        look->setParent(this); // widgets do not own their style
        setStyle(look);
        m_edit->setObjectName(
            "qt_spinbox_lineedit"); // the name by which Qt recognises it as part of the spin box
        setLineEdit(m_edit);
        setRange(options.minimum, options.maximum);
        setSingleStep(options.step);
        setAlignment(Qt::AlignCenter);
        setGroupSeparatorShown(false);
        setMouseTracking(true);
        setFixedSize(Theme::px(options.width), Theme::px(stepperHeight));
        setFocusPolicy(Qt::StrongFocus);
        excludeFromInitialFocus(this);
        giveFocusRing(this, this, Size::radiusSmall);
    }

    void hideValue() { m_edit->hide(); }

protected:
    /// The first click into the number selects it, as the Tab key does, so that typing replaces it.
    void focusInEvent(QFocusEvent* event) override {
        QSpinBox::focusInEvent(event);
        if (event->reason() == Qt::MouseFocusReason)
            m_edit->selectOnRelease();
    }

    void wheelEvent(QWheelEvent* event) override {
        if (!hasFocus())
            return event->ignore(); // an unfocused stepper must not intercept scrolling
        QSpinBox::wheelEvent(event);
    }

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
        const auto size = Theme::px(stepperGlyph);
        QRectF place(0, 0, size, size);
        place.moveCenter(QRectF(area).center());
        const auto ink = isHovered ? Role::primary : (canStep ? Role::secondary : Role::placeholder);
        Glyph::paint(painter, glyph, place, Theme::color(ink));
    }

    NumberEdit* m_edit;
};

/// Contains a stepper, to which it forwards presses beside it.
class LabelledStepper final : public QWidget {
public:
    explicit LabelledStepper(Stepper* stepper) : m_stepper(stepper) { m_stepper->hideValue(); }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton)
            return event->ignore();
        m_stepper->setFocus(Qt::MouseFocusReason);
        m_stepper->selectAll();
    }

private:
    Stepper* m_stepper;
};

Stepper* newStepper(Store& store, std::string_view name, const Reader<int>& value,
                    const Action<int>& setValue, const StepperOptions& options) {
    auto* control = new Stepper(options);
    control->setAccessibleName(qString(name));
    QObject::connect(control, &QSpinBox::valueChanged, control, setValue.on(store));
    store.onRefresh([control, value = value.of(store)] { control->setValue(value()); });
    return control;
}

} // namespace

QWidget* stepper(Store& store, std::string_view name, const Reader<int>& value, const Action<int>& setValue,
                 const StepperOptions& options) {
    return newStepper(store, name, value, setValue, options);
}

QWidget* labelledStepper(Store& store, std::string_view name, const Reader<int>& value,
                         const Action<int>& setValue, const StepperLabel& label,
                         const StepperOptions& options) {
    auto* control = newStepper(store, name, value, setValue, options);
    auto* text = textLabel(store, label.text, Theme::TextStyle::body, Role::primary, {.width = label.width});
    text->setCursor(Qt::IBeamCursor);
    auto* whole = new LabelledStepper(control);
    fill(whole, Qt::Horizontal, {.spacing = 0}, {text, control});
    return whole;
}

} // namespace korvane
