#include "Desktop/Text/SelectableText.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Text/SecretText.h"
#include "Utilities/Text/Lines.h"

#include <QEvent>
#include <QFocusEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace korvane {

SelectableText::SelectableText(SelectableTextOptions options) : m_options(std::move(options)) {
    setReadOnly(true);
    setFocusPolicy(m_options.isTabStop ? Qt::StrongFocus : Qt::ClickFocus);
    setHasCaret(false);
    if (m_options.isTabStop)
        giveFocusRing(this, this, Theme::Size::radiusBadge);
    setAlignment(m_options.alignment);
    setBreaksValuesAnywhere();
    setPlaceholder(qString(m_options.placeholder));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    viewport()->setCursor(Qt::IBeamCursor);
    applyTheme();
}

void SelectableText::display(const std::string& text) {
    if (this->text() == text)
        return;
    setText(text);
    updateGeometry();
}

QSize SelectableText::sizeHint() const {
    const QFontMetricsF metrics(Theme::font(m_options.style));
    auto widest = metrics.horizontalAdvance(text().empty() ? placeholder() : QString());
    const auto text = this->text().string();
    const auto lines = linesOf(text);
    for (const auto line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(qString(line)));
    const auto width = static_cast<int>(std::ceil(widest)) + 2;
    return {width, static_cast<int>(lines.size()) * Theme::lineHeight(m_options.style)};
}

QSize SelectableText::minimumSizeHint() const {
    return {0, Theme::lineHeight(m_options.style)};
}

int SelectableText::heightForWidth(int width) const {
    return rowCount(width) * Theme::lineHeight(m_options.style);
}

/// The Tab key selects the whole text, as in a field, for copying.
void SelectableText::focusInEvent(QFocusEvent* event) {
    TextArea::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        selectAll();
}

/// Leaving by the Tab key clears the selection.
void SelectableText::focusOutEvent(QFocusEvent* event) {
    TextArea::focusOutEvent(event);
    if (event->reason() != Qt::TabFocusReason && event->reason() != Qt::BacktabFocusReason)
        return;
    select({selection().caret, selection().caret});
}

void SelectableText::changeEvent(QEvent* event) {
    TextArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_applying)
        applyTheme();
}

void SelectableText::wheelEvent(QWheelEvent* event) {
    event->ignore(); // nothing scrolls in here; the parent may scroll
}

QMimeData* SelectableText::newMimeData(const Rope& text) const {
    return m_options.isSecret ? secretText(qString(text.string())) : TextArea::newMimeData(text);
}

void SelectableText::applyTheme() {
    m_applying = true;
    setStyle({.font = Theme::font(m_options.style),
              .lineHeight = Theme::lineHeight(m_options.style),
              .text = Theme::color(m_options.ink),
              .placeholder = Theme::color(m_options.placeholderInk),
              .number = {},
              .selection = Theme::color(Theme::Role::selection)});
    m_applying = false;
}

QWidget* selectableText(Store& store, std::string_view name, const Reader<std::string>& text,
                        SelectableTextOptions options) {
    auto* widget = new SelectableText(std::move(options));
    widget->setAccessibleName(qString(name));
    store.onRefresh([widget, text = text.of(store)] { widget->display(text()); });
    return widget;
}

} // namespace korvane
