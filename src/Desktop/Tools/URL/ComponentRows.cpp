#include "Desktop/Tools/URL/ComponentRows.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Lists/RowText.h"
#include "Desktop/Look/Theme.h"

#include <QLayout>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int rowHeight = 36;
constexpr int minNameWidth = 88;
constexpr int gap = 12;
constexpr int chipPaddingX = 6;
constexpr int chipHeight = 22;

/// The maximum share of long names in a row's width, in percent.
constexpr int maxNamesShare = 40;

/// The name of a row, elided where its column is narrow.
QWidget* nameCell(const ComponentRow& row, ComponentLook look) {
    auto* name = look == ComponentLook::chip
                     ? new Label(row.label, TextStyle::subheadline, Role::secondary)
                     : new Label(shortenedLine(row.label), TextStyle::codeSmall, Role::secondary);
    return stack(Qt::Horizontal, {.spacing = 0}, {name});
}

QWidget* valueLabel(const ComponentRow& row, ComponentLook look) {
    if (row.value && row.value->empty())
        return new Label("(empty)", TextStyle::subheadline, Role::secondary);
    const auto text = row.value ? std::string_view(*row.value) : std::string_view();
    auto* value = new Label(shortenedLine(text), TextStyle::codeSmall, row.color);
    if (!row.value || look == ComponentLook::plain)
        return value;
    const QMargins padding(chipPaddingX, 0, chipPaddingX, 0);
    return withHeight(chipHeight, card({.orientation = Qt::Horizontal,
                                        .padding = padding,
                                        .radius = Size::radiusBadge,
                                        .hasOutline = false,
                                        .tint = row.color},
                                       {value}));
}

QWidget* rowWidget(Store& store, QWidget* name, const std::shared_ptr<const ComponentRow>& row,
                   ComponentLook look) {
    const bool isPlain = look == ComponentLook::plain;
    auto* copy = copyButton(store, [row] { return row->value.value_or(""); },
                            {.look = {.showLabel = isPlain, .dropsLabel = isPlain, .subject = row->label}});
    return withHeight(
        rowHeight, stack(Qt::Horizontal, {.spacing = gap}, {name, valueLabel(*row, look), stretch(), copy}));
}

/// Recreates its rows whenever they change.
class ComponentRows final : public QWidget {
public:
    ComponentRows(Store& store, ComponentLook look) : m_store(store), m_look(look) {
        fill(this, Qt::Vertical, {.spacing = 0}, {});
    }

    void display(const SharedComponentRows& rows) {
        if (rows == m_rows)
            return;
        m_rows = rows;
        removeAll();
        const auto count = rows ? rows->size() : 0;
        for (std::size_t i = 0; i < std::min(count, maxComponentRows); ++i) {
            const std::shared_ptr<const ComponentRow> row(rows, &(*rows)[i]);
            m_names.push_back(nameCell(*row, m_look));
            layout()->addWidget(rowWidget(m_store, m_names.back(), row, m_look));
        }
        alignNames();
        if (count > maxComponentRows)
            layout()->addWidget(new Label("and " + std::to_string(count - maxComponentRows) + " more",
                                          TextStyle::subheadline, Role::secondary));
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        alignNames();
    }

private:
    /// Sets the width of all names to that of the longest, within the limits, so that the values line up.
    void alignNames() {
        const int minWidth = Theme::px(minNameWidth);
        int widest = minWidth;
        for (const auto* name : m_names)
            widest = std::max(widest, name->sizeHint().width());
        const int width = std::min(widest, std::max(minWidth, this->width() * maxNamesShare / 100));
        for (auto* name : m_names)
            name->setFixedWidth(width);
    }

    /// Hides the rows first, so that the focus moves to a neighbour if one of them has it.
    void removeAll() {
        m_names.clear();
        const auto old = findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        for (auto* row : old)
            row->hide();
        qDeleteAll(old);
    }

    Store& m_store;
    ComponentLook m_look;
    SharedComponentRows m_rows;
    std::vector<QWidget*> m_names;
};

} // namespace

QWidget* componentRows(Store& store, const Reader<SharedComponentRows>& rows, ComponentLook look) {
    auto* list = new ComponentRows(store, look);
    store.onRefresh([list, read = rows.of(store)] { list->display(read()); });
    return list;
}

} // namespace korvane
