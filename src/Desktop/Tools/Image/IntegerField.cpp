#include "Desktop/Tools/Image/IntegerField.h"

#include "Desktop/Access/TabStops.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Text/LineEdit.h"

#include <QRegularExpressionValidator>

namespace korvane {

using Theme::Role;
using Theme::Size;

QWidget* integerField(Store& store, std::string_view name, const Reader<int>& value,
                      const Action<int>& setValue, int width) {
    auto* edit = new LineEdit(Theme::TextStyle::body);
    edit->setAccessibleName(qString(name));
    excludeFromInitialFocus(edit);
    // Pasted text may contain line breaks, which the editor itself removes.
    edit->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("(?:[0-9][\\r\\n]*){0,9}")), edit));
    auto* field = new Surface([] { return Theme::color(Role::panelFill); }, Size::radiusSmall,
                              [] { return Theme::color(Role::outline); });
    field->setFocusProxy(edit);
    field->setFixedSize(Theme::px(width), Theme::px(Size::quietHeight));
    fill(field, Qt::Horizontal, {.padding = {Size::fieldPadding, 0, Size::fieldPadding, 0}}, {edit});
    giveFocusRing(edit, field, Size::radiusSmall);
    const auto typed = [edit] { return edit->text().toInt(); };
    const auto read = value.of(store);
    const auto show = [edit, read] { edit->display(std::to_string(read())); };
    edit->onEdit = [set = setValue.on(store), typed](const std::string&) { set(typed()); };
    QObject::connect(edit, &QLineEdit::editingFinished, edit, show);
    store.onRefresh([read, typed, show] {
        if (typed() != read())
            show();
    });
    show();
    return field;
}

} // namespace korvane
