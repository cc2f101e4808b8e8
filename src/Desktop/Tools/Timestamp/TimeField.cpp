#include "Desktop/Tools/Timestamp/TimeField.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Access/TabStops.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Timestamp/AccessibleTime.h"
#include "Utilities/CalendarText.h"
#include "Utilities/Text/Text.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimeEdit>
#include <QWheelEvent>

#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int timeFieldHeight = 28;
constexpr int timeFieldLeft = 10;
constexpr int timeFieldRight = 6;
constexpr int timeFieldGap = 4;
constexpr int timeFieldGlyph = 11;

QTime wholeMinute(QTime time) {
    return {time.hour(), time.minute()};
}

class Edit final : public QTimeEdit, public AccessibleControl {
public:
    Edit() {
        setDisplayFormat(CalendarText::usesTwelveHourClock() ? QStringLiteral("h:mm AP")
                                                             : QStringLiteral("HH:mm"));
        setButtonSymbols(NoButtons);
        setFrame(false);
        setWrapping(true);
        setAlignment(Qt::AlignRight);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        setFocusPolicy(Qt::StrongFocus);
        applyTheme();
    }

    /// Steps beyond a time that the clocks skip on the chosen day, which would otherwise be reverted.
    void stepBy(int steps) override {
        constexpr int fullTurn = 60; // after which the minutes repeat
        const auto before = time();
        for (int reach = 1; time() == before && reach < fullTurn; ++reach)
            QTimeEdit::stepBy(reach * steps);
    }

    QAccessibleInterface* newAccessibleInterface() override { return newTimeInterface(this, lineEdit()); }

protected:
    QValidator::State validate(QString& text, int& position) const override {
        text = qString(onOneLine(utf8String(text)));
        return QTimeEdit::validate(text, position);
    }

    void wheelEvent(QWheelEvent* event) override {
        if (!hasFocus())
            return event->ignore(); // an unfocused field must not intercept scrolling
        QTimeEdit::wheelEvent(event);
    }

    void changeEvent(QEvent* event) override {
        QTimeEdit::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && !m_applying)
            applyTheme();
    }

private:
    void applyTheme() {
        m_applying = true;
        QPalette look; // sets only what differs, so that the rest still follows the window
        look.setColor(QPalette::Base, Qt::transparent);
        setPalette(look);
        setFont(Theme::font(TextStyle::codeSmall));
        m_applying = false;
    }

    bool m_applying = false;
};

/// The two chevrons: the upper half increases the time, the lower half decreases it.
class Chevrons final : public QWidget {
public:
    explicit Chevrons(QTimeEdit* edit) : m_edit(edit) {
        setFixedSize(Theme::px(timeFieldGlyph), Theme::px(timeFieldHeight));
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        m_edit->setFocus();
        m_edit->stepBy(event->position().y() < height() / 2.0 ? 1 : -1);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Glyph::paint(painter, "menu.chevrons", QRectF(0, (height() - width()) / 2.0, width(), width()),
                     Theme::color(underMouse() ? Role::primary : Role::secondary));
    }

private:
    QTimeEdit* m_edit;
};

} // namespace

TimeField::TimeField(std::string_view name, std::function<void(QTime)> set) : m_edit(new Edit) {
    m_edit->setAccessibleName(qString(name));
    excludeFromInitialFocus(m_edit);
    setFocusProxy(m_edit);
    setFixedHeight(Theme::px(timeFieldHeight));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* chevrons = new Chevrons(m_edit);
    chevrons->setAttribute(Qt::WA_Hover);
    fill(this, Qt::Horizontal, {.spacing = timeFieldGap, .padding = {timeFieldLeft, 0, timeFieldRight, 0}},
         {m_edit, chevrons});
    giveFocusRing(m_edit, this, Size::radiusSmall);
    connect(m_edit, &QTimeEdit::timeChanged, this,
            [set = std::move(set)](QTime time) { set(wholeMinute(time)); });
}

void TimeField::display(QTime time) {
    if (wholeMinute(time) != wholeMinute(m_edit->time()))
        m_edit->setTime(wholeMinute(time));
}

void TimeField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSurface(painter, rect(), Theme::px(Size::radiusSmall), Theme::color(Role::panelFill),
                 Theme::color(Role::outline));
}

TimeField* timeField(std::string_view name, std::function<void(QTime)> set) {
    return new TimeField(name, std::move(set));
}

} // namespace korvane
