#include "Desktop/Kit/IntegerField.h"

#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/LineEdit.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/TabStops.h"
#include "Desktop/Kit/ViewCore.h"

#include <QRegularExpressionValidator>

namespace korvane {

using Theme::Role;
using Theme::Size;

QWidget* integerField(ViewCore& view, IntegerFieldParts parts) {
    auto* edit = new LineEdit(Theme::TextStyle::body);
    edit->setAccessibleName(qString(parts.name));
    neverBeginWith(edit);
    // Line breaks may come with what is pasted; the editor drops them by itself.
    edit->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("(?:[0-9][\\r\\n]*){0,9}")), edit));
    auto* field = new Surface([] { return Theme::color(Role::panelFill); }, Size::radiusSmall,
                              [] { return Theme::color(Role::outline); });
    field->setFocusProxy(edit);
    field->setFixedSize(Theme::px(parts.width), Theme::px(Size::quietHeight));
    fill(field, Qt::Horizontal, {.padding = {Size::fieldPadding, 0, Size::fieldPadding, 0}}, {edit});
    giveFocusRing(edit, field, Size::radiusSmall);
    const auto typed = [edit] { return edit->text().toInt(); };
    const auto show = [edit, value = parts.value] { edit->display(std::to_string(value())); };
    edit->onEdit = [set = parts.setValue, typed](const std::string&) { set(typed()); };
    QObject::connect(edit, &QLineEdit::editingFinished, edit, show);
    view.onRefresh([value = parts.value, typed, show] {
        if (typed() != value())
            show();
    });
    show();
    return field;
}

} // namespace korvane
