#include "Desktop/Kit/SearchField.h"

#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

class Field final : public QLineEdit {
public:
    explicit Field(std::function<void()> leaveDown) : m_leaveDown(std::move(leaveDown)) {
        setFrame(false);
        setTextMargins(0, 0, 0, 0);
        applyTheme();
    }

protected:
    void changeEvent(QEvent* event) override {
        QLineEdit::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && !m_applying)
            applyTheme();
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape && !text().isEmpty())
            clear();
        else if (event->key() == Qt::Key_Down)
            m_leaveDown();
        else
            QLineEdit::keyPressEvent(event);
    }

private:
    void applyTheme() {
        m_applying = true;
        QPalette look; // names only what differs, so that the rest goes on following the window
        look.setColor(QPalette::Base, Qt::transparent);
        look.setColor(QPalette::PlaceholderText, Theme::color(Role::secondary));
        setPalette(look);
        setFont(Theme::font(Theme::TextStyle::body));
        m_applying = false;
    }

    std::function<void()> m_leaveDown;
    bool m_applying = false;
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
    auto* field = new Field(std::move(parts.leaveDown));
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
    QObject::connect(field, &QLineEdit::textChanged, field,
                     [set = parts.setText](const QString& text) { set(utf8String(text)); });
    QObject::connect(clear, &QAbstractButton::clicked, field, [field] {
        field->clear();
        field->setFocus();
    });
    view.onRefresh([field, clear, read = std::move(parts.text)] {
        const auto text = qString(read());
        if (text != field->text())
            field->setText(text);
        clear->setVisible(!text.isEmpty());
    });
    return background;
}

} // namespace korvane
