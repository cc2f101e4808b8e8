#include "Desktop/Controls/Labels.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Messages.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Text/SelectableText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int headerTile = 44;
constexpr int headerGlyph = 21;
constexpr int tagWidth = 70;
constexpr int tagHeight = 28;
constexpr int tagSmallHeight = 24;
constexpr int promptGlyph = 28;
constexpr int badgePaddingX = 12;
constexpr int badgePaddingY = 8;
constexpr int badgeGlyph = 14;
constexpr int badgeLine = 16;

/// The tile at the left of a screen's header.
class HeaderTile final : public QWidget {
public:
    explicit HeaderTile(Tool tool) : m_tool(tool) {
        setFixedSize(Theme::px(headerTile), Theme::px(headerTile));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const auto color = accentColor(m_tool);
        QLinearGradient gradient(rect().topLeft(), rect().bottomRight());
        gradient.setColorAt(0, Theme::withTint(color, Theme::Tint::headerFrom));
        gradient.setColorAt(1, Theme::withTint(color, Theme::Tint::headerTo));
        painter.setPen(Qt::NoPen);
        painter.setBrush(gradient);
        const auto radius = Theme::px(Size::radiusExtraLarge);
        painter.drawRoundedRect(rect(), radius, radius);
        const auto glyph = Theme::px(headerGlyph);
        const auto inset = (width() - glyph) / 2.0;
        Glyph::paint(painter, icon(m_tool), QRectF(inset, inset, glyph, glyph), Theme::hue(color));
    }

private:
    Tool m_tool;
};

class Tag final : public QLabel {
public:
    Tag(std::string_view title, PaletteColor color, bool isSmall) : m_color(color), m_isSmall(isSmall) {
        setText(qString(title));
        setFixedSize(Theme::px(tagWidth), Theme::px(isSmall ? tagSmallHeight : tagHeight));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintSurface(painter, rect(), Theme::px(Size::radiusSmall), Theme::solid(m_color));
        painter.setFont(Theme::font(m_isSmall ? TextStyle::tagSmall : TextStyle::tag));
        painter.setPen(Theme::onSolid(m_color));
        painter.drawText(rect(), Qt::AlignCenter, text());
    }

private:
    PaletteColor m_color;
    bool m_isSmall;
};

/// The wrapping flag for the label's text in `width`. Qt alone would wrap a text even where only the overhang
/// of its last letter exceeds the width.
int wrapping(const QLabel& label, int width) {
    return width < label.sizeHint().width() ? Qt::TextWordWrap : Qt::TextSingleLine;
}

} // namespace

Label::Label(std::string_view text, TextStyle style, Theme::Ink ink) : m_style(style), m_ink(ink) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    display(text);
}

void Label::display(std::string_view text) {
    const auto string = qString(text);
    if (string == this->text())
        return;
    setText(string);
    setAccessibleName(string);
}

void Label::setInk(Theme::Ink ink) {
    if (ink == m_ink)
        return;
    m_ink = ink;
    update();
}

void Label::setLineCount(int lines) {
    m_lineCount = lines;
    updateGeometry();
}

QSize Label::sizeHint() const {
    return {QFontMetrics(Theme::font(m_style)).horizontalAdvance(text()) + 1,
            m_lineCount * Theme::lineHeight(m_style)};
}

QSize Label::minimumSizeHint() const {
    return {0, m_lineCount * Theme::lineHeight(m_style)};
}

QWidget* textLabel(Store& store, const Reader<std::string>& text, TextStyle style, Theme::Ink ink,
                   const LabelOptions& options) {
    auto* line = new Label({}, style, ink);
    line->setAlignment(options.alignment | Qt::AlignVCenter);
    line->setLineCount(options.lineCount);
    if (options.width > 0)
        line->setFixedWidth(Theme::px(options.width));
    if (!options.asWideAs.empty())
        line->setFixedWidth(Label(options.asWideAs, style).sizeHint().width());
    store.onRefresh([line, text = text.of(store)] { line->display(text()); });
    return line;
}

QWidget* tag(std::string_view title, PaletteColor color, bool isSmall) {
    return new Tag(title, color, isSmall);
}

QWidget* emptyPrompt(Store& store, std::string_view icon, const Reader<std::string>& text, TextStyle style) {
    constexpr double glyphOpacity = 0.6;
    auto* message = textLabel(store, text, style, Role::secondary);
    return stack(Qt::Vertical, {},
                 {stretch(), centered(new GlyphLabel(icon, promptGlyph, Role::secondary, glyphOpacity)),
                  centered(message), stretch()});
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto font = Theme::font(m_style);
    painter.setFont(font);
    painter.setPen(Theme::color(m_ink));
    QTextOption option((alignment() & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter);
    option.setWrapMode(m_lineCount > 1 ? QTextOption::WordWrap : QTextOption::NoWrap);
    const auto shown = QFontMetrics(font).elidedText(text(), Qt::ElideRight, m_lineCount * width());
    painter.drawText(rect(), shown, option);
}

void Label::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    setToolTip(width() < sizeHint().width() ? text() : QString());
}

GlyphLabel::GlyphLabel(std::string_view name, int size, Color color, double opacity)
    : m_name(name), m_color(color), m_opacity(opacity) {
    setFixedSize(Theme::px(size), Theme::px(size));
}

void GlyphLabel::setName(std::string_view name) {
    if (name == m_name)
        return;
    m_name = name;
    update();
}

void GlyphLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    const QRectF area = rect();

    struct Brush {
        QRectF area;

        QBrush operator()(Role role) const { return Theme::color(role); }

        QBrush operator()(PaletteColor color) const { return Theme::hue(color); }

        QBrush operator()(Brand) const { return Glyph::brandBrush(area); }
    };

    Glyph::paint(painter, m_name, area, std::visit(Brush{area}, m_color));
}

StatusBadgeLabel::StatusBadgeLabel() {
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void StatusBadgeLabel::display(const StatusBadge& badge) {
    if (badge == m_badge)
        return;
    m_badge = badge;
    setText(qString(badge.message));
    setAccessibleName(text());
    updateGeometry();
    update();
}

int StatusBadgeLabel::textLeft() const {
    return Theme::px(badgePaddingX) + Theme::px(badgeGlyph) + Theme::px(Size::gapBadge);
}

QRect StatusBadgeLabel::textRect(int width) const {
    const QFontMetrics metrics(Theme::font(TextStyle::body));
    const QRect room(textLeft(), Theme::px(badgePaddingY),
                     std::max(1, width - textLeft() - Theme::px(badgePaddingX)), QWIDGETSIZE_MAX);
    return metrics.boundingRect(room, wrapping(*this, width) | Qt::AlignLeft, text());
}

QSize StatusBadgeLabel::sizeHint() const {
    const auto width = QFontMetrics(Theme::font(TextStyle::body)).horizontalAdvance(text());
    return {textLeft() + width + Theme::px(badgePaddingX) + 1,
            Theme::px(badgeLine) + 2 * Theme::px(badgePaddingY)};
}

QSize StatusBadgeLabel::minimumSizeHint() const {
    return {2 * textLeft(), sizeHint().height()};
}

int StatusBadgeLabel::heightForWidth(int width) const {
    return std::max(sizeHint().height(), textRect(width).height() + 2 * Theme::px(badgePaddingY));
}

void StatusBadgeLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::withTint(color(m_badge.status), Theme::Tint::row));
    const auto radius = Theme::px(Size::radiusMedium);
    painter.drawRoundedRect(rect(), radius, radius);
    const auto glyph = Theme::px(badgeGlyph);
    const auto lineCenter = Theme::px(badgePaddingY) + Theme::px(badgeLine) / 2.0;
    Glyph::paint(painter, icon(m_badge.status),
                 QRectF(Theme::px(badgePaddingX), lineCenter - glyph / 2.0, glyph, glyph),
                 Theme::hue(color(m_badge.status)));
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(Theme::color(Role::primary));
    const QRect area(textLeft(), 0, width() - textLeft() - Theme::px(badgePaddingX), height());
    painter.drawText(area, wrapping(*this, width()) | Qt::AlignVCenter | Qt::AlignLeft, text());
}

QWidget* toolHeader(Tool tool) {
    auto* texts = stack(Qt::Vertical, {.spacing = 0},
                        {new Label(rawValue(tool), TextStyle::title2),
                         new Label(description(tool), TextStyle::subheadline, Role::secondary)});
    return stack(Qt::Horizontal, {.spacing = Size::gapHeader},
                 {new HeaderTile(tool), stack(Qt::Vertical, {.spacing = 0}, {stretch(), texts, stretch()})});
}

QWidget* statusBadge(Store& store, const Reader<std::optional<StatusBadge>>& badge) {
    auto* label = new StatusBadgeLabel;
    auto* line = stack(Qt::Horizontal, {.spacing = 0}, {label, stretch()});
    const auto read = badge.of(store);
    reportMessages(store, *line, [read] {
        const auto current = read();
        return current ? current->message : std::string();
    });
    store.onRefresh([label, line, read] {
        const auto current = read();
        if (current)
            label->display(*current);
        line->setVisible(current.has_value());
    });
    return line;
}

QWidget* errorMessage(Store& store, const Reader<std::optional<std::string>>& message) {
    const auto read = message.of(store);
    const auto text = [read] { return read().value_or(std::string()); };
    auto* label = selectableText(store, "Error", text, {.ink = PaletteColor::red, .isTabStop = true});
    store.onRefresh([label, read] { label->setVisible(read().has_value()); });
    reportMessages(store, *label, text);
    return label;
}

QWidget* caption(Store& store, const Reader<std::string>& text) {
    return textLabel(store, text, TextStyle::caption, Role::secondary);
}

QWidget* announcing(Store& store, const Reader<std::string>& text, QWidget* widget) {
    announceChanges(store, *widget, text);
    return widget;
}

QWidget* described(Store& store, const Reader<std::string>& text, QWidget* widget) {
    store.onRefresh([widget, text = text.of(store)] { setAccessibleDescription(*widget, text()); });
    return widget;
}

} // namespace korvane
