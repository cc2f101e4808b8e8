#include "Desktop/Kit/ResultPanel.h"

#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/OverlayScrollBar.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/TextArea.h"
#include "Desktop/Kit/TextZoom.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <QEvent>

#include <algorithm>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

/// A longer text, in bytes, fills the panel whatever its lines; it need not be laid out to know that.
constexpr std::size_t shortText = 2000;

class ResultPanel final : public Panel {
public:
    explicit ResultPanel(TextArea* area) : Panel(area), m_area(area) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        applyTheme();
        new OverlayScrollBar(Qt::Vertical, area, this);
        TextZoom::follow(area, [this] {
            applyTheme();
            fitHeight();
        });
    }

    void display(const std::string& text) {
        m_area->setText(text);
        m_isShort = text.size() <= shortText;
        fitHeight();
    }

    QSize sizeHint() const override { return {Theme::px(Size::editorMinimumHeight), m_height}; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        Panel::resizeEvent(event);
        fitHeight();
    }

    void changeEvent(QEvent* event) override {
        Panel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationFontChange)
            applyTheme();
    }

private:
    void fitHeight() {
        const auto inset = 2 * Theme::px(Size::simpleEditorInset);
        const auto room = width() - Theme::px(Size::simpleEditorInset) - Theme::px(Size::resultReserve);
        const auto lowest = Theme::px(Size::resultMinimum);
        const auto highest = Theme::px(Size::resultMaximum);
        const auto height =
            m_isShort ? m_area->rowCount(room) * TextZoom::lineHeight(TextStyle::code) + inset : highest;
        if (const auto fitting = std::clamp(height, lowest, highest); fitting != m_height) {
            m_height = fitting;
            updateGeometry();
        }
    }

    void applyTheme() {
        const auto inset = Size::simpleEditorInset - Size::panelOutline;
        m_area->setStyle(
            {.font = TextZoom::font(TextStyle::code),
             .lineHeight = TextZoom::lineHeight(TextStyle::code),
             .text = Theme::color(Role::primary),
             .placeholder = Theme::color(Role::secondary),
             .number = {},
             .selection = Theme::color(Role::selection),
             .inset = Theme::margins(inset, inset, Size::resultReserve - Size::panelOutline, inset)});
    }

    TextArea* m_area;
    int m_height = Theme::px(Size::resultMinimum);
    bool m_isShort = true;
};

} // namespace

QWidget* resultPanel(ViewCore& view, std::string name, std::function<const std::string&()> text,
                     std::string placeholder) {
    auto* area = new TextArea;
    area->setReadOnly(true);
    area->setAccessibleName(qString(name));
    area->setPlaceholder(qString(placeholder));
    auto* panel = new ResultPanel(area);
    view.onRefresh([panel, text] { panel->display(text()); });
    auto* button =
        copyButton(view, text, {.look = {.dropsLabel = true, .isOverlay = true, .subject = std::move(name)}});
    return overlay(panel, button);
}

} // namespace korvane
