/// The read-only parts of a screen: texts, headings, the header tile, badges.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Desktop/Look/Theme.h"
#include "Models/Tool.h"
#include "Views/Components/StatusBadge.h"

#include <QLabel>

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace korvane {

/// A line of text in one of the theme's styles. A text that does not fit is elided at the end, and a tool tip
/// shows it in full.
class Label final : public QLabel {
public:
    Label(std::string_view text, Theme::TextStyle style, Theme::Ink ink = Theme::Role::primary);

    void display(std::string_view text);
    void setInk(Theme::Ink ink);

    /// Sets the height in lines, over which the text is wrapped before it is elided.
    void setLineCount(int lines);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Theme::TextStyle m_style;
    Theme::Ink m_ink;
    int m_lineCount = 1;
};

/// A decorative glyph, painted in a role's colour, a named colour, or the brand's gradient.
class GlyphLabel final : public QWidget {
public:
    struct Brand {};

    using Color = std::variant<Theme::Role, PaletteColor, Brand>;

    /// `size` is in pixels at a 13-pixel body text.
    GlyphLabel(std::string_view name, int size, Color color, double opacity = 1);

    void setName(std::string_view name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_name;
    Color m_color;
    double m_opacity;
};

/// A message with a status glyph, on a tint of the status colour. Long messages wrap.
class StatusBadgeLabel final : public QLabel {
public:
    StatusBadgeLabel();

    void display(const StatusBadge& badge);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int textLeft() const;
    QRect textRect(int width) const;

    StatusBadge m_badge;
};

QWidget* toolHeader(Tool tool);

/// A badge, visible while `badge` has a value. Each new message is announced and scrolled into view.
QWidget* statusBadge(Store& store, const Reader<std::optional<StatusBadge>>& badge);

/// A red message, visible while `message` has a value; also announced and scrolled into view.
QWidget* errorMessage(Store& store, const Reader<std::optional<std::string>>& message);

struct LabelOptions {
    int width = 0; ///< in pixels at a 13-pixel body text; 0: the text's width, or less if space is short
    Qt::Alignment alignment = Qt::AlignLeft;
    std::string_view asWideAs{}; ///< a text that determines the width instead, such as the widest in a column
    int lineCount = 1;           ///< the number of lines over which the text may wrap
};

/// A line of text, elided at the end where space is short.
QWidget* textLabel(Store& store, const Reader<std::string>& text, Theme::TextStyle style,
                   Theme::Ink ink = Theme::Role::primary, const LabelOptions& options = {});

/// A line in small secondary text.
QWidget* caption(Store& store, const Reader<std::string>& text);

/// A short title on a filled badge. A small one is for dense rows.
QWidget* tag(std::string_view title, PaletteColor color, bool isSmall = false);

/// The placeholder of empty content: a centred glyph above a text.
QWidget* emptyPrompt(Store& store, std::string_view icon, const Reader<std::string>& text,
                     Theme::TextStyle style = Theme::TextStyle::body);

/// `widget`; the value of `text` is announced whenever it has changed.
QWidget* announcing(Store& store, const Reader<std::string>& text, QWidget* widget);

/// `widget`; the value of `text` is its accessible description.
QWidget* described(Store& store, const Reader<std::string>& text, QWidget* widget);

} // namespace korvane
