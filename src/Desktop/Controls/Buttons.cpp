#include "Desktop/Controls/Buttons.h"

#include "Desktop/Access/TabStops.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Binding/WidthClass.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Surface.h"
#include "Views/Components/CopyButton.h"
#include "Views/Components/PasteButton.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

#include <memory>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int gapQuiet = 4;
constexpr int quietPadding = 10;
constexpr int iconButton = 24;

} // namespace

bool pressByReturn(QWidget* control, const QKeyEvent& event) {
    auto* button = qobject_cast<QAbstractButton*>(control);
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!button || !isReturn || !isPlain)
        return false;
    if (!event.isAutoRepeat())
        button->click();
    return true;
}

GlyphButton::GlyphButton(std::string_view title, std::string_view icon) : m_icon(icon) {
    setTitle(title);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void GlyphButton::setMetrics(const Metrics& metrics) {
    m_metrics = metrics;
    giveFocusRing(this, this, metrics.radius);
}

void GlyphButton::setTitle(std::string_view title) {
    const auto text = qString(title);
    if (text == this->text())
        return;
    setText(text);
    setShortcut({}); // Qt would derive one from an ampersand in the title
    updateAccessibleName();
    updateGeometry();
}

void GlyphButton::updateAccessibleName() {
    const auto subject = qString(this->subject());
    korvane::setAccessibleName(*this, subject.isEmpty() ? text() : text() + QLatin1Char(' ') + subject);
}

void GlyphButton::setIconName(std::string_view icon) {
    if (icon == m_icon)
        return;
    m_icon = icon;
    update();
}

void GlyphButton::setRow(AccessibleRows& list, std::function<int()> row) {
    m_rows = &list;
    m_row = std::move(row);
}

QAccessibleInterface* GlyphButton::accessibleRow() const {
    const auto row = m_row ? m_row() : -1;
    return row < 0 ? nullptr : m_rows->rowInterface(row);
}

QSize GlyphButton::sizeHint() const {
    int width = 2 * Theme::px(m_metrics.padding);
    if (!m_icon.empty())
        width += Theme::px(m_metrics.glyph);
    if (showsTitle()) {
        width += QFontMetrics(Theme::font(m_metrics.style)).horizontalAdvance(text());
        if (!m_icon.empty())
            width += Theme::px(m_metrics.gap);
    }
    return {width, Theme::px(m_metrics.height)};
}

void GlyphButton::paintBackground(QPainter& painter, const QColor& fill, const QColor& outline) const {
    paintSurface(painter, rect(), Theme::px(m_metrics.radius), fill, outline);
}

void GlyphButton::paintContent(QPainter& painter, const QColor& color) const {
    const auto font = Theme::font(m_metrics.style);
    const auto glyph = m_icon.empty() ? 0 : Theme::px(m_metrics.glyph);
    const auto textWidth = showsTitle() ? QFontMetrics(font).horizontalAdvance(text()) : 0;
    const auto gap = glyph > 0 && textWidth > 0 ? Theme::px(m_metrics.gap) : 0;
    const auto left = (width() - glyph - gap - textWidth) / 2;
    Glyph::paint(painter, m_icon, QRectF(left, (height() - glyph) / 2.0, glyph, glyph), color);
    if (textWidth == 0)
        return;
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(QRect(left + glyph + gap, 0, textWidth + 1, height()), Qt::AlignVCenter | Qt::AlignLeft,
                     text());
}

void GlyphButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void GlyphButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}

ActionButton::ActionButton() : GlyphButton({}, {}) {
    markPrimaryAction(this);
    setMetrics({.style = Theme::TextStyle::button,
                .height = Size::actionHeight,
                .padding = Size::actionPadding,
                .glyph = Size::actionGlyph,
                .gap = Size::gapBadge,
                .radius = Size::radiusMedium});
}

void ActionButton::setColor(PaletteColor color) {
    if (color == m_color)
        return;
    m_color = color;
    update();
}

void ActionButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(Theme::disabledActionOpacity);
    paintBackground(painter, isEnabled() ? Theme::solid(m_color) : Theme::color(Role::disabledFill));
    if (isDown())
        paintBackground(painter, Theme::color(Role::pressedOnColor));
    else if (underMouse() && isEnabled())
        paintBackground(painter, Theme::color(Role::hoverOnColor));
    paintContent(painter, isEnabled() ? Theme::onSolid(m_color) : Theme::color(Role::onAccent));
}

QuietButton::QuietButton(std::string_view title, std::string_view icon, QuietButtonOptions options)
    : GlyphButton({}, icon), m_options(std::move(options)) {
    setTitle(title);
    setMetrics({.style = Theme::TextStyle::quiet,
                .height = m_options.showLabel ? Size::quietHeight : iconButton,
                .padding = quietPadding,
                .glyph = Size::quietGlyph,
                .gap = gapQuiet,
                .radius = Size::radiusSmall});
    if (!m_options.showLabel)
        setToolTip(text());
}

void QuietButton::setCompact(bool compact) {
    if (compact == m_compact || !m_options.showLabel || !m_options.dropsLabel)
        return;
    m_compact = compact;
    setToolTip(compact ? text() : QString());
    updateGeometry();
}

void QuietButton::setName(const std::string& subject) {
    m_options.subject = subject;
    updateAccessibleName();
}

void QuietButton::setHighlight(std::optional<PaletteColor> color) {
    if (color)
        m_highlight = *color;
    m_highlighted.setOn(color.has_value());
}

QSize QuietButton::sizeHint() const {
    if (showsTitle())
        return GlyphButton::sizeHint();
    const auto side = Theme::px(m_options.showLabel ? Size::quietCompact : iconButton);
    return {side, side};
}

int QuietButton::width(std::string_view title, bool isCompact) {
    if (isCompact)
        return Theme::px(Size::quietCompact);
    const auto text = QFontMetrics(Theme::font(Theme::TextStyle::quiet)).horizontalAdvance(qString(title));
    return 2 * Theme::px(quietPadding) + Theme::px(Size::quietGlyph) + Theme::px(gapQuiet) + text;
}

QColor QuietButton::background() const {
    if (isDown())
        return Theme::color(Role::controlPressed);
    const bool isHighlighted = m_highlighted.progress() > 0; // readable only on the normal background
    if (underMouse() && isEnabled() && !isHighlighted)
        return Theme::color(m_options.isOverlay ? Role::overlayHover : Role::controlHover);
    if (m_options.isPlain)
        return Qt::transparent;
    return Theme::color(m_options.isOverlay ? Role::overlayFill : Role::controlFill);
}

void QuietButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(Theme::disabledOpacity);
    if (m_options.isOverlay && isDown()) // the text below it must not show through
        paintBackground(painter, Theme::color(Role::overlayFill));
    paintBackground(painter, background());
    const bool isHovered = underMouse() && isEnabled();
    const auto quiet = Theme::color(isHovered || isDown() ? Role::primary : Role::secondary);
    paintContent(painter, isDown()
                              ? quiet
                              : Theme::mixed(quiet, Theme::textTone(m_highlight), m_highlighted.progress()));
}

PushToggle::PushToggle(std::string_view title, std::string_view icon, PaletteColor color)
    : GlyphButton(title, icon), m_color(color) {
    setCheckable(true);
    setMetrics({.style = Theme::TextStyle::quiet,
                .height = Size::quietHeight,
                .padding = quietPadding,
                .glyph = Size::quietGlyph,
                .gap = Size::gapBadge,
                .radius = Size::radiusSmall});
}

void PushToggle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(Theme::disabledOpacity);
    const bool isHovered = underMouse() && isEnabled();
    const bool isLit = isHovered || isDown(); // this background needs the strongest text colour
    if (isChecked()) {
        const auto tint = isDown() ? Theme::Tint::togglePressed
                                   : (isHovered ? Theme::Tint::toggleHover : Theme::Tint::toggle);
        paintBackground(painter, Theme::withTint(m_color, tint),
                        Theme::withTint(m_color, Theme::Tint::toggleOutline));
        paintContent(painter, isLit ? Theme::color(Role::primary) : Theme::textTone(m_color));
        return;
    }
    const auto fill = isDown() ? Role::controlPressed : (isHovered ? Role::controlHover : Role::controlFill);
    paintBackground(painter, Theme::color(fill), Theme::color(Role::outline));
    paintContent(painter, Theme::color(isLit ? Role::primary : Role::secondary));
}

QWidget* actionButton(Store& store, const Reader<std::string>& title, const Reader<std::string>& icon,
                      const Reader<PaletteColor>& color, const Action<>& action,
                      const Reader<bool>& isDisabled) {
    auto* button = new ActionButton;
    store.onRefresh([button, title = title.of(store), icon = icon.of(store), color = color.of(store),
                     isDisabled = isDisabled.of(store)] {
        button->setTitle(title());
        button->setIconName(icon());
        button->setColor(color());
        button->setEnabled(!isDisabled());
    });
    QObject::connect(button, &QAbstractButton::clicked, button, action.on(store));
    return button;
}

QWidget* quietButton(Store& store, const Reader<std::string>& title, std::string_view icon,
                     const Action<>& action, QuietButtonOptions look) {
    auto* button = new QuietButton({}, icon, std::move(look));
    followWidth(*button, store.widthClass());
    store.onRefresh([button, title = title.of(store)] { button->setTitle(title()); });
    QObject::connect(button, &QAbstractButton::clicked, button, action.on(store));
    return button;
}

QWidget* pasteButton(Store& store, const Action<Rope>& setText, QuietButtonOptions look) {
    const auto paste = [&clipboard = store.services().clipboard, set = setText.on(store)] {
        PasteButton::paste(clipboard, set);
    };
    return quietButton(store, "Paste", PasteButton::icon, paste, std::move(look));
}

QWidget* clearButton(Store& store, const Action<Rope>& setText) {
    return quietButton(store, "Clear", ClearButton::icon,
                       [set = setText.on(store)] { ClearButton::clear(set); }, {.dropsLabel = true});
}

void display(QuietButton& button, const CopyButton& state) {
    if (state.copied && button.text() != qString(state.title()))
        announce(button, qString(state.title()));
    button.setTitle(state.title());
    button.setIconName(state.icon());
    button.setHighlight(state.color());
}

void followWidth(QuietButton& button, const WidthClass& widthClass) {
    button.setCompact(widthClass.isNarrow());
    QObject::connect(&widthClass, &WidthClass::changed, &button, &QuietButton::setCompact);
}

QWidget* copyButton(Store& store, const Reader<Rope>& text, const CopyButtonOptions& options) {
    auto state = std::make_shared<CopyButton>(CopyButton{.label = options.label,
                                                         .showLabel = options.look.showLabel,
                                                         .idleIcon = options.icon,
                                                         .isSecret = options.isSecret});
    auto* button = new QuietButton(state->title(), state->icon(), options.look);
    followWidth(*button, store.widthClass());
    const auto show = [button, state] { display(*button, *state); };
    const Context<CopyButton> context{
        store.services(),
        [weakState = std::weak_ptr(state), target = QPointer(button), show](const auto& change) {
            if (const auto locked = weakState.lock(); locked && target) {
                change(*locked);
                show();
            }
        }};
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [state, text = text.of(store), context, show] {
                         state->text = text();
                         state->copyToClipboard(context);
                         state->text.clear(); // it may be large or secret
                         show();
                     });
    return button;
}

QWidget* copyButton(Store& store, const Reader<bool>& copied, const Action<>& copy,
                    const QuietButtonOptions& look) {
    CopyButton state{.label = "Copy", .showLabel = look.showLabel};
    auto* button = new QuietButton(state.title(), state.icon(), look);
    followWidth(*button, store.widthClass());
    store.onRefresh([button, state, copied = copied.of(store)]() mutable {
        state.copied = copied();
        display(*button, state);
    });
    QObject::connect(button, &QAbstractButton::clicked, button, copy.on(store));
    return button;
}

QWidget* pushToggle(Store& store, std::string_view title, std::string_view icon, PaletteColor color,
                    const Reader<bool>& isOn, const Action<bool>& setOn) {
    auto* button = new PushToggle(title, icon, color);
    store.onRefresh([button, isOn = isOn.of(store)] { button->setChecked(isOn()); });
    QObject::connect(button, &QAbstractButton::clicked, button, setOn.on(store));
    return button;
}

} // namespace korvane
