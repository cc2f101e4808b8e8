/// The shared buttons. They are painted with the theme, and are real buttons to keyboard and assistive
/// technology.
#pragma once

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Access/AccessibleRows.h"
#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Look/Transition.h"
#include "Models/PaletteColor.h"
#include "Utilities/Text/Rope.h"

#include <QAbstractButton>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

class QAccessibleInterface;

namespace korvane {

class WidthClass;
struct CopyButton;

/// Presses `control` if it is a button and `event` is Return or Enter without modifiers; returns whether it
/// is. Qt itself handles Space. To be called for a key that `control` has not accepted.
bool pressByReturn(QWidget* control, const QKeyEvent& event);

/// A button with a glyph and a title, painted by its subclasses.
class GlyphButton : public QAbstractButton, public RowPart {
public:
    GlyphButton(std::string_view title, std::string_view icon);

    void setTitle(std::string_view title);
    void setIconName(std::string_view icon);

    const std::string& iconName() const { return m_icon; }

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

    /// Makes the button the accessible child of a row of `list`, over which it is placed; `row` returns the
    /// row, or -1 for none.
    void setRow(AccessibleRows& list, std::function<int()> row);

    QAccessibleInterface* accessibleRow() const override;

protected:
    /// The arrangement of glyph and title. Sizes are in pixels at a 13-pixel body text.
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

    /// The object that the button acts on, appended to its title in its accessible name.
    virtual std::string subject() const { return {}; }

    void updateAccessibleName();

    /// Paints the rounded background, with an outline if `outline` is valid.
    void paintBackground(QPainter& painter, const QColor& fill, const QColor& outline = {}) const;
    void paintContent(QPainter& painter, const QColor& color) const;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

    Metrics m_metrics{};
    std::string m_icon;

private:
    AccessibleRows* m_rows = nullptr; ///< the list of its row, if any
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
    bool showLabel = true;   ///< a button without a label is a small square
    bool dropsLabel = false; ///< in a narrow screen; the height does not change
    bool isOverlay = false;  ///< is over text and therefore opaque
    bool isPlain = false;    ///< no background until the pointer is over it
    std::string subject{};   ///< the object that it acts on, for the accessible name
};

/// A secondary action, in the secondary colour on a faint background.
class QuietButton final : public GlyphButton, public Named {
public:
    QuietButton(std::string_view title, std::string_view icon, QuietButtonOptions options = {});

    /// Drops or restores the label, if it may be dropped.
    void setCompact(bool compact);

    bool isCompact() const { return m_compact; }

    /// Sets `QuietButtonOptions::subject`.
    void setName(const std::string& subject) override;

    /// The colour of glyph and title, or none for the secondary colour. Changes are animated.
    void setHighlight(std::optional<PaletteColor> color);

    QSize sizeHint() const override;

    /// The width of a button with a glyph and this title, which a compact button drops.
    static int width(std::string_view title, bool isCompact);

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

/// The main action of a screen. While `isDisabled` is true it is gray and does not react; an empty icon name
/// leaves only the title.
QWidget* actionButton(Store& store, const Reader<std::string>& title, const Reader<std::string>& icon,
                      const Reader<PaletteColor>& color, const Action<>& action,
                      const Reader<bool>& isDisabled = false);

QWidget* quietButton(Store& store, const Reader<std::string>& title, std::string_view icon,
                     const Action<>& action, QuietButtonOptions look = {});

/// Calls `setText` with the text on the clipboard.
QWidget* pasteButton(Store& store, const Action<Rope>& setText,
                     QuietButtonOptions look = {.dropsLabel = true});

/// Calls `setText` with an empty text.
QWidget* clearButton(Store& store, const Action<Rope>& setText);

struct CopyButtonOptions {
    std::string label = "Copy";
    std::string_view icon = "doc.on.doc";
    QuietButtonOptions look{};
    bool isSecret = false; ///< the copied text is marked as not to be stored
};

/// Copies the value of `text` at the time of the press.
QWidget* copyButton(Store& store, const Reader<Rope>& text, const CopyButtonOptions& options = {});

/// Copies by an operation; the feedback is part of the screen's state.
QWidget* copyButton(Store& store, const Reader<bool>& copied, const Action<>& copy,
                    const QuietButtonOptions& look = {});

/// Shows the state of a copy button, and announces a copy.
void display(QuietButton& button, const CopyButton& state);

/// Makes `button` drop its label, if it may, while the screen is narrow.
void followWidth(QuietButton& button, const WidthClass& widthClass);

/// A switch drawn as a push button.
QWidget* pushToggle(Store& store, std::string_view title, std::string_view icon, PaletteColor color,
                    const Reader<bool>& isOn, const Action<bool>& setOn);

} // namespace korvane
