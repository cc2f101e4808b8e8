#include "Desktop/Kit/SearchField.h"

#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/LineEdit.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <QKeyEvent>
#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

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
                    .height = Size::searchGlyph,
                    .padding = 0,
                    .glyph = Size::searchGlyph,
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

QWidget* searchField(ViewCore& view, SearchFieldParts parts) {
    auto* field = new Field(std::move(parts.leaveDown), std::move(parts.leave));
    field->setPlaceholderText(qString(parts.placeholder));
    field->setAccessibleName(field->placeholderText());
    auto* clear = new ClearFieldButton;
    auto* background = new Surface([] { return Theme::color(Role::controlFill); }, Size::radiusMedium);
    background->setFixedHeight(Theme::px(Size::searchHeight));
    background->setFocusProxy(field);
    constexpr auto padding = Size::searchGap;
    fill(background, Qt::Horizontal, {.spacing = Size::searchGap, .padding = {padding, 0, padding, 0}},
         {new GlyphLabel("magnifyingglass", Size::searchGlyph, Role::secondary), field, clear});
    giveFocusRing(field, background, Size::radiusMedium);
    field->onEdit = parts.setText;
    QObject::connect(field, &QLineEdit::returnPressed, field, std::move(parts.submit));
    QObject::connect(clear, &QAbstractButton::clicked, field, [field] {
        field->clear();
        field->setFocus();
    });
    view.onRefresh([field, clear, read = std::move(parts.text)] {
        const auto text = read();
        field->display(text);
        clear->setVisible(!text.empty());
    });
    return background;
}

} // namespace korvane
