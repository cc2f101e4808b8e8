#include "Desktop/Kit/TextField.h"

#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/LineEdit.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/TabStops.h"
#include "Desktop/Kit/ViewCore.h"

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

/// A fixed part of the field, or none.
QWidget* affix(ViewCore& view, const std::function<std::string()>& text, Theme::TextStyle style) {
    auto* label = new Label({}, style, Role::secondary);
    label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    view.onRefresh([label, text] {
        label->display(text ? text() : std::string());
        setShown(label, !label->text().isEmpty());
    });
    return label;
}

} // namespace

QWidget* textField(ViewCore& view, TextFieldParts parts) {
    const auto& options = parts.options;
    auto* edit = new LineEdit(options.style);
    edit->setAccessibleName(qString(parts.name));
    edit->setPlaceholderText(qString(options.placeholder));
    const auto radius = options.height < Size::fieldHeight ? Size::radiusSmall : Size::radiusMedium;
    auto* field = new Surface([fill = options.fill] { return Theme::color(fill); }, radius,
                              [] { return Theme::color(Role::outline); });
    field->setFocusProxy(edit);
    field->setFixedHeight(Theme::px(options.height));
    if (options.width > 0)
        field->setFixedWidth(Theme::px(options.width));
    else
        field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    fill(field, Qt::Horizontal,
         {.spacing = Size::fieldGap, .padding = {Size::fieldPadding, 0, Size::fieldPadding, 0}},
         {affix(view, options.leading, options.style), edit, affix(view, options.trailing, options.style)});
    giveFocusRing(edit, field, radius);
    edit->onEdit = parts.setText;
    if (options.isDetail)
        neverBeginWith(edit);
    if (options.submit)
        QObject::connect(edit, &QLineEdit::returnPressed, edit, options.submit);
    view.onRefresh([edit, text = parts.text, placeholder = options.changingPlaceholder] {
        edit->display(text());
        if (placeholder)
            edit->setPlaceholderText(qString(placeholder()));
    });
    return field;
}

} // namespace korvane
