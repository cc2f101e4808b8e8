#include "Desktop/Controls/Editors.h"

#include "Desktop/Access/Editing.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/FindBar.h"
#include "Desktop/Layout/OverlayScrollBar.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Text/TextZoom.h"

#include <QBoxLayout>
#include <QEvent>

#include <algorithm>
#include <cstddef>
#include <map>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int gutterPadding = 8;
constexpr int editorInset = 8;
constexpr int editorInsetRight = 12;
constexpr int simpleEditorInset = 12;
constexpr int proseInset = 16;

/// In bytes. A longer text is not laid out to determine its height; its panel has the maximum height.
constexpr std::size_t maxFittedText = 2000;

std::map<TextMarkKind, TextMarkStyle> markStyles() {
    const auto underline = [](PaletteColor color) { return TextMarkStyle{.underline = Theme::hue(color)}; };
    return {
        {TextMarkKind::oddMatch, {.background = Theme::color(Role::oddMatch)}},
        {TextMarkKind::evenMatch, {.background = Theme::color(Role::evenMatch)}},
        {TextMarkKind::selectedMatch, {.outline = Theme::color(Role::matchEdge)}},
        {TextMarkKind::group1, underline(PaletteColor::orange)},
        {TextMarkKind::group2, underline(PaletteColor::purple)},
        {TextMarkKind::group3, underline(PaletteColor::blue)},
        {TextMarkKind::group4, underline(PaletteColor::pink)},
        {TextMarkKind::hit, {.background = Theme::color(Role::hit)}},
        {TextMarkKind::currentHit,
         {.background = Theme::color(Role::currentHit), .outline = Theme::color(Role::hitEdge)}},
        {TextMarkKind::error, {.wave = Theme::color(Role::errorMark)}},
    };
}

/// Applies the theme's look to its text area, again whenever that changes.
class EditorPanel final : public Panel, public Searchable {
public:
    EditorPanel(Services& services, TextArea* area, const CodeEditorOptions& options)
        : Panel(area),
          m_services(services),
          m_area(area),
          m_options(options),
          m_height(Theme::px(options.minHeight)) {
        if (m_options.maxHeight)
            setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        applyTheme();
        new OverlayScrollBar(Qt::Vertical, area, this);
        TextZoom::follow(area, [this] {
            applyTheme();
            fitHeight();
        });
    }

    void display(const Rope& text) {
        m_area->setText(text);
        if (m_findBar)
            m_findBar->followText();
        m_isFitted = text.size() <= maxFittedText;
        fitHeight();
    }

    void find() override {
        if (!m_findBar) {
            m_findBar = new FindBar(m_services, *m_area, *this);
            static_cast<QBoxLayout*>(layout())->insertWidget(0, m_findBar);
        }
        m_findBar->open();
    }

    void setMarks(TextMarkLayer layer, const TextMarks& marks) {
        auto& shown = m_marks[layer];
        if (marks == shown)
            return;
        shown = marks;
        m_area->setMarks(layer, marks);
    }

    void show(const TextPlace& place) {
        if (place.request == m_shownRequest)
            return;
        m_shownRequest = place.request;
        m_area->select(place.selection);
        if (place.takesFocus)
            m_area->setFocus(Qt::OtherFocusReason);
    }

    void setStale(bool isStale) {
        if (isStale == m_area->isBusy())
            return;
        m_area->setBusy(isStale);
        applyTheme();
    }

    QSize sizeHint() const override { return {Panel::sizeHint().width(), m_height}; }

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
        if (!m_options.maxHeight)
            return;
        const auto inset = Theme::px(textInset());
        const auto minHeight = Theme::px(m_options.minHeight);
        const auto maxHeight = Theme::px(*m_options.maxHeight);
        const auto room = width() - inset - Theme::px(endInset());
        const auto height =
            m_isFitted ? m_area->rowCount(room) * TextZoom::lineHeight(textStyle()) + 2 * inset : maxHeight;
        if (const auto fitting = std::clamp(height, minHeight, maxHeight); fitting != m_height) {
            m_height = fitting;
            updateGeometry();
        }
    }

    void applyTheme() {
        // Insets count from the panel's edge; its outline is outside the text area.
        const auto inset = textInset() - Size::panelOutline;
        const auto left = m_options.lineNumbers ? 0 : inset; // the gutter includes its own distance
        const auto style = textStyle();
        m_area->setStyle({.font = TextZoom::font(style),
                          .lineHeight = TextZoom::lineHeight(style),
                          .text = Theme::color(m_area->isBusy() ? Role::secondary : Role::primary),
                          .placeholder = Theme::color(m_options.placeholderInk),
                          .number = Theme::color(Role::placeholder),
                          .selection = Theme::color(Role::selection),
                          .markedLine = Theme::withTint(PaletteColor::red, Theme::Tint::row),
                          .markedNumber = Theme::color(Role::errorMark),
                          .marks = markStyles(),
                          .inset = Theme::margins(left, inset, endInset() - Size::panelOutline, inset),
                          .numberGap = Theme::px(gutterPadding)});
    }

    Theme::TextStyle textStyle() const {
        if (m_options.isProse)
            return Theme::TextStyle::prose;
        return m_options.isSmall ? Theme::TextStyle::codeSmall : Theme::TextStyle::code;
    }

    int textInset() const {
        if (m_options.isProse)
            return proseInset;
        return m_options.lineNumbers ? editorInset : simpleEditorInset;
    }

    int endInset() const {
        if (m_options.buttonRoom > 0)
            return m_options.buttonRoom;
        return m_options.isProse ? proseInset : editorInsetRight;
    }

    Services& m_services;
    TextArea* m_area;
    FindBar* m_findBar = nullptr; ///< until it is first opened
    CodeEditorOptions m_options;
    std::map<TextMarkLayer, TextMarks> m_marks{};
    std::size_t m_shownRequest = 0;
    int m_height;
    bool m_isFitted = true;
};

TextArea* newTextArea(const Rope& text, const CodeEditorOptions& options) {
    auto* area = new TextArea;
    area->setLineNumbers(options.lineNumbers);
    // The initial text is not an edit: it is shown from its start, and undo does not remove it.
    area->setReadOnly(true);
    area->setText(text);
    return area;
}

EditorPanel* editorPanel(Store& store, TextArea* area, std::function<Rope()> text,
                         const Reader<std::string>& placeholder, const CodeEditorOptions& options) {
    auto* panel = new EditorPanel(store.services(), area, options);
    store.onRefresh([panel, area, text = std::move(text), placeholder = placeholder.of(store),
                     marks = options.marks.of(store), chosen = options.chosenMarks.of(store),
                     place = options.place.of(store)] {
        panel->display(text());
        panel->setMarks(TextMarkLayer::content, marks());
        panel->setMarks(TextMarkLayer::chosen, chosen());
        panel->show(place());
        area->setPlaceholder(qString(placeholder()));
    });
    area->onSelect = options.onSelect.on(store);
    return panel;
}

} // namespace

QWidget* codeEditor(Store& store, const Reader<Rope>& text, const Action<Rope>& setText,
                    const Reader<std::string>& placeholder, const CodeEditorOptions& options) {
    auto read = text.of(store);
    auto* area = newTextArea(read(), options);
    area->setReadOnly(false);
    area->onEdit = setText.on(store);
    return editorPanel(store, area, std::move(read), placeholder, options);
}

QWidget* readOnlyEditor(Store& store, const Reader<Rope>& text, const Reader<std::string>& placeholder,
                        const CodeEditorOptions& options, const Reader<bool>& isStale) {
    auto read = text.of(store);
    auto* area = newTextArea(read(), options);
    auto* panel = editorPanel(store, area, std::move(read), placeholder, options);
    store.onRefresh([panel, stale = isStale.of(store)] { panel->setStale(stale()); });
    return panel;
}

} // namespace korvane
