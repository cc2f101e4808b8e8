#include "Desktop/Controls/TextField.h"

#include "Desktop/Access/TabStops.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Text/LineEdit.h"

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int fieldGap = 6;

/// A fixed text in the field, hidden while it is empty.
QWidget* affix(Store& store, const Reader<std::string>& text, Theme::TextStyle style) {
    auto* label = new Label({}, style, Role::secondary);
    label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    store.onRefresh([label, text = text.of(store)] {
        label->display(text());
        setShown(label, !label->text().isEmpty());
    });
    return label;
}

Surface* newField(const TextFieldOptions& options, int radius) {
    auto* field = new Surface([fill = options.fill] { return Theme::color(fill); }, radius,
                              [] { return Theme::color(Role::outline); });
    field->setFixedHeight(Theme::px(options.height));
    if (options.width > 0)
        field->setFixedWidth(Theme::px(options.width));
    else
        field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return field;
}

} // namespace

QWidget* textField(Store& store, std::string_view name, const Reader<std::string>& text,
                   const Action<std::string>& setText, const TextFieldOptions& options) {
    auto* edit = new LineEdit(options.style);
    edit->setAccessibleName(qString(name));
    edit->onEdit = setText.on(store);
    if (options.isDetail)
        excludeFromInitialFocus(edit);
    if (options.submit)
        QObject::connect(edit, &QLineEdit::returnPressed, edit, options.submit->on(store));
    store.onRefresh([edit, text = text.of(store), placeholder = options.placeholder.of(store)] {
        edit->display(text());
        if (const auto current = qString(placeholder()); current != edit->placeholderText())
            edit->setPlaceholderText(current);
    });
    const auto radius = options.height < fieldHeight ? Size::radiusSmall : Size::radiusMedium;
    auto* field = newField(options, radius);
    field->setFocusProxy(edit);
    fill(field, Qt::Horizontal,
         {.spacing = fieldGap, .padding = {Size::fieldPadding, 0, Size::fieldPadding, 0}},
         {affix(store, options.leading, options.style), edit, affix(store, options.trailing, options.style)});
    giveFocusRing(edit, field, radius);
    return field;
}

} // namespace korvane
