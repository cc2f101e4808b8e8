#include "Desktop/Controls/FindBar.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/LineEdit.h"
#include "Views/Components/FindView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>

#include <algorithm>
#include <functional>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int barHeight = 32;
constexpr int partHeight = 24;
constexpr int partGap = 2;
constexpr int paddingLeft = 6;
constexpr int paddingRight = 4;
constexpr int fieldPadding = 7;
constexpr int fieldGap = 6;
constexpr int glyphSize = 12;
constexpr int closeGlyph = 10;
constexpr int minCountWidth = 44;
constexpr int narrowWidth = 320; ///< of a pane without room for the glyph and the long count

/// A square button with a glyph, or with a sign where it has none.
class BarButton final : public GlyphButton {
public:
    BarButton(std::string_view name, std::string_view icon, QString sign = {}, int glyph = glyphSize)
        : GlyphButton(name, icon), m_sign(std::move(sign)) {
        setToolTip(text());
        setMetrics({.style = TextStyle::quiet,
                    .height = partHeight,
                    .padding = (partHeight - glyph) / 2,
                    .glyph = glyph,
                    .gap = 0,
                    .radius = Size::radiusSmall});
        setFixedSize(Theme::px(partHeight), Theme::px(partHeight));
    }

protected:
    bool showsTitle() const override { return false; }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (!isEnabled())
            painter.setOpacity(Theme::disabledOpacity);
        if (isChecked())
            paintBackground(painter, accent(Theme::Tint::toggle), accent(Theme::Tint::toggleOutline));
        else if (isDown() || (underMouse() && isEnabled()))
            paintBackground(painter, Theme::color(isDown() ? Role::controlPressed : Role::controlHover));
        const auto ink =
            Theme::color(isChecked() || (underMouse() && isEnabled()) ? Role::primary : Role::secondary);
        if (m_sign.isEmpty())
            return paintContent(painter, ink);
        painter.setFont(Theme::font(TextStyle::quiet));
        painter.setPen(ink);
        painter.drawText(rect(), Qt::AlignCenter, m_sign);
    }

private:
    static QColor accent(Theme::Tint tint) {
        auto color = Theme::color(Role::accent);
        color.setAlphaF(static_cast<float>(tint) / 100);
        return color;
    }

    QString m_sign;
};

class QueryField final : public LineEdit {
public:
    explicit QueryField(std::function<void(bool forward)> step)
        : LineEdit(TextStyle::codeSmall), m_step(std::move(step)) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            m_step(!event->modifiers().testFlag(Qt::ShiftModifier));
        else
            LineEdit::keyPressEvent(event);
    }

private:
    std::function<void(bool forward)> m_step;
};

} // namespace

FindBar::FindBar(Services& services, TextArea& area, QWidget& pane)
    : m_area(area), m_store(services, FindView()) {
    setFixedHeight(Theme::px(barHeight));
    addControls(pane);
    addShortcuts(pane);
    m_store.onRefresh([this] { refresh(); });
    announceChanges(m_store, *this, &FindView::announcement);
}

FindBar::~FindBar() {
    m_store.close();
}

void FindBar::addControls(QWidget& pane) {
    const auto performs = [this](auto operation) {
        return [this, operation] { m_store.perform(operation); };
    };
    const auto button = [&](std::string_view name, std::string_view icon, auto operation, int glyph) {
        auto* added = new BarButton(name, icon, {}, glyph);
        QObject::connect(added, &QAbstractButton::clicked, this, performs(operation));
        return added;
    };
    const auto toggle = [&](std::string_view name, const QString& sign, bool TextQuery::* value, auto set) {
        auto* added = new BarButton(name, {}, sign);
        added->setCheckable(true);
        QObject::connect(added, &QAbstractButton::clicked, this,
                         [this, set](bool isChecked) { m_store.perform(set, isChecked); });
        m_store.onRefresh(
            [this, added, value] { added->setChecked(m_store.state<FindView>().query.*value); });
        return added;
    };

    m_field = new QueryField(
        [this](bool forward) { m_store.perform(forward ? &FindView::next : &FindView::previous); });
    m_field->onEdit = [this](const std::string& text) { m_store.perform(&FindView::setQuery, text); };
    giveFocusRing(m_field, &pane, Size::radiusMedium);
    auto* glyph = new GlyphLabel("magnifyingglass", glyphSize, Role::secondary);
    auto* field =
        new Surface([] { return Theme::color(Role::windowBackground); }, Size::radiusSmall,
                    [this] { return Theme::color(m_field->hasFocus() ? Role::accent : Role::outline); });
    field->setFixedHeight(Theme::px(partHeight));
    field->setFocusProxy(m_field);
    fill(field, Qt::Horizontal, {.spacing = fieldGap, .padding = {fieldPadding, 0, fieldPadding, 0}},
         {glyph, m_field});

    auto* count = new Label({}, TextStyle::subheadline, Role::secondary);
    count->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* previous = button("Previous match", "chevron.up", &FindView::previous, glyphSize);
    auto* next = button("Next match", "chevron.down", &FindView::next, glyphSize);
    fill(
        this, Qt::Horizontal, {.spacing = partGap, .padding = {paddingLeft, 0, paddingRight, 1}},
        {growing(field),
         toggle("Regular expression", QStringLiteral(".*"), &TextQuery::isPattern, &FindView::setPattern),
         toggle("Match case", QStringLiteral("Aa"), &TextQuery::isCaseSensitive, &FindView::setCaseSensitive),
         rigid(count), previous, next, button("Close", "window.close", &FindView::close, closeGlyph)});

    m_store.onRefresh([this, glyph, count, previous, next] {
        const auto& state = m_store.state<FindView>();
        const bool isNarrow = width() < Theme::px(narrowWidth);
        setShown(glyph, !isNarrow);
        count->display(isNarrow ? state.shortCountText() : state.countText());
        count->setMinimumWidth(std::max(isNarrow ? 0 : Theme::px(minCountWidth), count->sizeHint().width()));
        count->setInk(state.isWithoutHits() ? Theme::Ink(PaletteColor::red) : Role::secondary);
        count->setToolTip(qString(state.errorMessage.value_or("")));
        previous->setEnabled(state.hasHits());
        next->setEnabled(state.hasHits());
    });
}

/// They work in the whole pane while the bar is open.
void FindBar::addShortcuts(QWidget& pane) {
    const auto add = [&](const QKeySequence& keys, QWidget* place, auto operation) {
        auto* shortcut = new QShortcut(keys, place);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(shortcut, &QShortcut::activated, this,
                         [this, operation] { m_store.perform(operation); });
        m_store.onRefresh([this, shortcut] { shortcut->setEnabled(m_store.state<FindView>().isOpen); });
    };
    add(Qt::Key_F3, &pane, &FindView::next);
    add(Qt::SHIFT | Qt::Key_F3, &pane, &FindView::previous);
    add(Qt::ALT | Qt::Key_R, this, [](FindView& state, const Context<FindView>& context) {
        state.setPattern(!state.query.isPattern, context);
    });
    add(Qt::ALT | Qt::Key_C, this, [](FindView& state, const Context<FindView>& context) {
        state.setCaseSensitive(!state.query.isCaseSensitive, context);
    });
}

void FindBar::open() {
    m_field->setAccessibleName(QStringLiteral("Find in ") + m_area.accessibleName());
    m_store.perform(&FindView::open, m_area.text(), m_area.selection());
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

void FindBar::followText() {
    const auto& state = m_store.state<FindView>();
    if (state.isOpen && state.text != m_area.text())
        m_store.perform(&FindView::setText, m_area.text());
}

void FindBar::refresh() {
    const auto& state = m_store.state<FindView>();
    m_field->display(state.query.text);
    showMarks(TextMarkLayer::search, m_shownHits, state.hitMarks);
    showMarks(TextMarkLayer::currentHit, m_shownCurrent, state.currentMarks);
    if (state.shownPlace.request != m_shownRequest) {
        m_shownRequest = state.shownPlace.request;
        m_area.select(state.shownPlace.selection);
    }
    if (!state.isOpen && window()->focusWidget() && isAncestorOf(window()->focusWidget()))
        m_area.setFocus(Qt::OtherFocusReason);
    if (state.isOpen == isHidden())
        setShown(this, state.isOpen);
}

/// Sets marks only when they are others: those in the text move with it until it has been searched again.
void FindBar::showMarks(TextMarkLayer layer, TextMarks& shown, const TextMarks& marks) {
    if (marks == shown)
        return;
    shown = marks;
    m_area.setMarks(layer, marks);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        m_store.perform(&FindView::close);
    else
        QWidget::keyPressEvent(event);
}

void FindBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto radius = Theme::px(Size::radiusMedium);
    clipToSurface(painter, rect().adjusted(0, 0, 0, radius), radius); // the upper corners are the pane's
    painter.fillRect(rect(), Theme::color(Role::controlFill));
    painter.fillRect(QRect(0, height() - 1, width(), 1), Theme::color(Role::divider));
}

void FindBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_store.refresh();
}

} // namespace korvane
