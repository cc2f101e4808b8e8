#include "Desktop/Kit/Editors.h"

#include "Desktop/Kit/OverlayScrollBar.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/TextArea.h"
#include "Desktop/Kit/TextZoom.h"
#include "Desktop/Kit/ViewCore.h"

#include <QEvent>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

/// Gives its text area the theme's look, again whenever that changes.
class EditorPanel final : public Panel {
public:
    EditorPanel(TextArea* area, CodeEditorOptions options) : Panel(area), m_area(area), m_options(options) {
        applyTheme();
        new OverlayScrollBar(Qt::Vertical, area, this);
        TextZoom::follow(area, [this] { applyTheme(); });
    }

    QSize sizeHint() const override {
        return {Panel::sizeHint().width(), Theme::px(m_options.minimumHeight)};
    }

protected:
    void changeEvent(QEvent* event) override {
        Panel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationFontChange)
            applyTheme();
    }

private:
    void applyTheme() {
        // Insets count from the panel's edge; its outline is outside the text area.
        const auto inset = textInset() - Size::panelOutline;
        const auto left = m_options.lineNumbers ? 0 : inset; // the gutter brings its own distance
        const auto reserve = m_options.overlayHasLabel ? Size::overlayReserveLabelled : Size::overlayReserve;
        const auto right = (m_options.hasOverlayButton ? reserve : endInset()) - Size::panelOutline;
        const auto style = textStyle();
        m_area->setStyle({.font = TextZoom::font(style),
                          .lineHeight = TextZoom::lineHeight(style),
                          .text = Theme::color(Role::primary),
                          .placeholder = Theme::color(Role::placeholder),
                          .number = Theme::color(Role::placeholder),
                          .selection = Theme::color(Role::selection),
                          .inset = Theme::margins(left, inset, right, inset),
                          .numberGap = Theme::px(Size::gutterPadding)});
    }

    Theme::TextStyle textStyle() const {
        if (m_options.isProse)
            return Theme::TextStyle::prose;
        return m_options.isSmall ? Theme::TextStyle::codeSmall : Theme::TextStyle::code;
    }

    int textInset() const {
        if (m_options.isProse)
            return Size::proseInset;
        return m_options.lineNumbers ? Size::editorInset : Size::simpleEditorInset;
    }

    int endInset() const { return m_options.isProse ? Size::proseInset : Size::editorInsetRight; }

    TextArea* m_area;
    CodeEditorOptions m_options;
};

} // namespace

QWidget* codeEditor(ViewCore& view, CodeEditorParts parts) {
    auto* area = new TextArea;
    area->setLineNumbers(parts.options.lineNumbers);
    // The text that a screen begins with is no edit: it is seen from its start, and undo does not take it
    // away.
    area->setReadOnly(true);
    area->setText(parts.text());
    area->setReadOnly(parts.setText == nullptr);
    auto* panel = new EditorPanel(area, parts.options);
    area->onEdit = std::move(parts.setText);
    view.onRefresh([area, text = std::move(parts.text), placeholder = std::move(parts.placeholder)] {
        area->setText(text());
        area->setPlaceholder(qString(placeholder()));
    });
    return panel;
}

} // namespace korvane
