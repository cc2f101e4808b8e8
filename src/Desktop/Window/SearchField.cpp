#include "Desktop/Window/SearchField.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/LineEdit.h"

#include <QKeyEvent>
#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int searchHeight = 32;
constexpr int searchGlyph = 13;
constexpr int searchGap = 8;

class Field final : public LineEdit {
public:
    Field(std::function<void()> leaveDown, std::function<void()> leave)
        : LineEdit(Theme::TextStyle::body, Role::secondary),
          m_leaveDown(std::move(leaveDown)),
          m_leave(std::move(leave)) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Escape:
            clear();
            return m_leave();
        case Qt::Key_Down:
            return m_leaveDown();
        default:
            LineEdit::keyPressEvent(event);
        }
    }

private:
    std::function<void()> m_leaveDown;
    std::function<void()> m_leave;
};

/// A glyph without a background.
class ClearFieldButton final : public GlyphButton {
public:
    ClearFieldButton() : GlyphButton("Clear search", "xmark.circle.fill") {
        setToolTip(text());
        setMetrics({.style = Theme::TextStyle::quiet,
                    .height = searchGlyph,
                    .padding = 0,
                    .glyph = searchGlyph,
                    .gap = 0,
                    .radius = Size::radiusSmall});
    }

protected:
    bool showsTitle() const override { return false; }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintContent(painter, Theme::color(underMouse() ? Role::primary : Role::secondary));
    }
};

} // namespace

QWidget* searchField(Store& store, const SearchFieldParts& parts) {
    auto* field = new Field(parts.leaveDown.on(store), parts.leave.on(store));
    field->setPlaceholderText(qString(parts.placeholder));
    field->setAccessibleName(field->placeholderText());
    field->onEdit = parts.setText.on(store);
    QObject::connect(field, &QLineEdit::returnPressed, field, parts.submit.on(store));
    auto* clear = new ClearFieldButton;
    QObject::connect(clear, &QAbstractButton::clicked, field, [field] {
        field->clear();
        field->setFocus();
    });
    auto* background = new Surface([] { return Theme::color(Role::controlFill); }, Size::radiusMedium);
    background->setFixedHeight(Theme::px(searchHeight));
    background->setFocusProxy(field);
    constexpr auto padding = searchGap;
    fill(background, Qt::Horizontal, {.spacing = searchGap, .padding = {padding, 0, padding, 0}},
         {new GlyphLabel("magnifyingglass", searchGlyph, Role::secondary), field, clear});
    giveFocusRing(field, background, Size::radiusMedium);
    store.onRefresh([field, clear, read = parts.text.of(store)] {
        const auto text = read();
        field->display(text);
        clear->setVisible(!text.empty());
    });
    return background;
}

} // namespace korvane
