/// What a screen shows but does not change: texts, headings, the header tile, badges.
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

/// A line of text in one of the theme's styles. Its text may be shortened at the end when it does not fit,
/// and then a tool tip shows it whole.
class Label final : public QLabel {
public:
    Label(std::string_view text, Theme::TextStyle style, Theme::Ink ink = Theme::Role::primary);

    void display(std::string_view text);
    void setInk(Theme::Ink ink);

    /// Takes the height of so many lines, over which the text is wrapped before it is shortened.
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

/// A glyph that stands for nothing by itself, painted in a role's colour, a named colour, or the brand's
/// gradient.
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

/// The colours of a status on its tint, around a message that wraps when it is long.
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

/// A badge while `badge` reads one. Each new message is announced and brought into view.
QWidget* statusBadge(Store& store, const Reader<std::optional<StatusBadge>>& badge);

/// A message in red while `message` reads one, which is announced and brought into view too.
QWidget* errorMessage(Store& store, const Reader<std::optional<std::string>>& message);

struct LabelOptions {
    int width = 0; ///< in pixels at a 13-pixel body text; 0: as wide as the text, or less where room is short
    Qt::Alignment alignment = Qt::AlignLeft;
    std::string_view asWideAs{}; ///< a text whose width it has instead, such as the widest in a column
    int lineCount = 1;           ///< over how many lines the text may be wrapped
};

/// A line of text, shortened with an ellipsis where room is short.
QWidget* textLabel(Store& store, const Reader<std::string>& text, Theme::TextStyle style,
                   Theme::Ink ink = Theme::Role::primary, const LabelOptions& options = {});

/// A line in small secondary text.
QWidget* caption(Store& store, const Reader<std::string>& text);

/// A short title in white on a badge of a colour. A small one is for dense rows.
QWidget* tag(std::string_view title, PaletteColor color, bool isSmall = false);

/// What an empty place says instead of its content: a glyph above a text, in the middle.
QWidget* emptyPrompt(Store& store, std::string_view icon, const Reader<std::string>& text,
                     Theme::TextStyle style = Theme::TextStyle::body);

/// `widget`; what `text` reads is announced whenever it has changed.
QWidget* announcing(Store& store, const Reader<std::string>& text, QWidget* widget);

/// `widget`; what `text` reads is its description for assistive technology.
QWidget* described(Store& store, const Reader<std::string>& text, QWidget* widget);

} // namespace korvane
