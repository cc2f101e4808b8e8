/// The buttons of the kit. All of them are painted here, from the theme, and are real buttons to keyboard and
/// assistive technology.
#pragma once

#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/Transition.h"
#include "Models/PaletteColor.h"

#include <QAbstractButton>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

class QAccessibleInterface;

namespace korvane {

class AccessibleRows;
class ViewCore;
struct CopyButton;

/// Presses `control` if it is a button and `event` one of the keys that press it beside Space, which the
/// toolkit knows; returns whether it is. To be called for a key that `control` itself has no use for.
bool pressByReturn(QWidget* control, const QKeyEvent& event);

/// A button with a glyph and a title; how it looks is its subclass's matter.
class GlyphButton : public QAbstractButton {
public:
    GlyphButton(std::string_view title, std::string_view icon);

    void setTitle(std::string_view title);
    void setIconName(std::string_view icon);

    const std::string& iconName() const { return m_icon; }

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

    /// To assistive technology the button is a part of a row of `list`, over which it lies; `row` tells of
    /// which, or -1.
    void setRow(AccessibleRows& list, std::function<int()> row);

    QAccessibleInterface* accessibleRow() const;

protected:
    /// How glyph and title are set. Sizes are in pixels at a 13-pixel body text.
    struct Metrics {
        Theme::TextStyle style;
        int height;
        int padding;
        int glyph;
        int gap;
        int radius;
    };

    void setMetrics(const Metrics& metrics);

    virtual bool showsTitle() const { return true; }

    /// What the button acts on, added to its title for its accessible name.
    virtual std::string subject() const { return {}; }

    void updateAccessibleName();

    /// Paints the rounded background, with an outline where one is given.
    void paintBackground(QPainter& painter, const QColor& fill, const QColor& outline = {}) const;
    void paintContent(QPainter& painter, const QColor& color) const;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

    Metrics m_metrics{};
    std::string m_icon;

private:
    AccessibleRows* m_rows = nullptr; ///< its ancestor's, if any
    std::function<int()> m_row{};
};

/// The primary action of a screen: white on a filled colour.
class ActionButton final : public GlyphButton {
public:
    ActionButton();
    void setColor(PaletteColor color);

    PaletteColor color() const { return m_color; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PaletteColor m_color = PaletteColor::blue;
};

struct QuietButtonOptions {
    bool showLabel = true;   ///< without its label it is a small square
    bool dropsLabel = false; ///< in a narrow screen, where it keeps its height
    bool isOverlay = false;  ///< lies over text, so it is opaque
    bool isPlain = false;    ///< no background until the pointer is over it
    std::string subject{};   ///< what it acts on, where the title alone does not say; for the name only
};

/// A secondary action, in the secondary colour on a faint background.
class QuietButton final : public GlyphButton {
public:
    QuietButton(std::string_view title, std::string_view icon, QuietButtonOptions options = {});

    /// Drops the label, or brings it back, of a button whose label may be dropped.
    void setCompact(bool compact);

    bool isCompact() const { return m_compact; }

    /// Names what it acts on, which may change; see `QuietButtonOptions`.
    void setSubject(std::string subject);

    /// The colour of glyph and title, or none for the secondary colour. Changes are animated.
    void setHighlight(std::optional<PaletteColor> color);

    QSize sizeHint() const override;

protected:
    bool showsTitle() const override { return m_options.showLabel && !m_compact; }

    std::string subject() const override { return m_options.subject; }

    void paintEvent(QPaintEvent* event) override;

private:
    QColor background() const;

    QuietButtonOptions m_options;
    bool m_compact = false;
    PaletteColor m_highlight = PaletteColor::green;
    Transition m_highlighted{this};
};

/// A switch drawn as a push button.
class PushToggle final : public GlyphButton {
public:
    PushToggle(std::string_view title, std::string_view icon, PaletteColor color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PaletteColor m_color;
};

struct ActionButtonParts {
    std::function<std::string()> title;
    std::function<std::string()> icon; ///< an empty name shows the title alone
    std::function<PaletteColor()> color;
    std::function<bool()> isDisabled;
    std::function<void()> action;
};

QWidget* actionButton(ViewCore& view, ActionButtonParts parts);

struct CopyButtonOptions {
    std::string label = "Copy";
    std::string_view icon = "doc.on.doc";
    QuietButtonOptions look{};
    bool isSecret = false; ///< the text is marked as one that is not to be kept
};

/// Copies what `text` reads at the time of the press.
QWidget* copyButton(ViewCore& view, std::function<std::string()> text, const CopyButtonOptions& options);

/// The parts of a copy button whose feedback is kept in the screen's own state.
struct CopyActionParts {
    std::function<bool()> copied;
    std::function<void()> copy;
    QuietButtonOptions look{};
};

QWidget* copyButton(ViewCore& view, CopyActionParts parts);

/// Shows the state of a copy button, and has assistive technology read out that something was copied.
void display(QuietButton& button, const CopyButton& state);

struct QuietButtonParts {
    std::function<std::string()> title;
    std::string icon;
    std::function<bool()> isDisabled;
    std::function<void()> action;
    QuietButtonOptions look{};
};

QWidget* quietButton(ViewCore& view, QuietButtonParts parts);

struct PushToggleParts {
    std::string title;
    std::string icon;
    PaletteColor color;
    std::function<bool()> isOn;
    std::function<void(bool)> setOn;
};

QWidget* pushToggle(ViewCore& view, PushToggleParts parts);

} // namespace korvane
