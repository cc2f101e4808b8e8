#include "Desktop/Lists/RowButtons.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Lists/RowList.h"

#include <QEvent>

#include <algorithm>
#include <utility>

namespace korvane {

RowButtons::RowButtons(RowList& list, RowButtonSource source) : m_list(list), m_source(std::move(source)) {}

RowButtons::~RowButtons() = default;

void RowButtons::place() {
    auto before = std::exchange(m_shown, {});
    const auto [first, end] = m_list.visibleRows();
    for (int row = first; row < end; ++row) {
        auto identity = m_source.identity(row);
        const auto known = std::ranges::find(before, identity, &Shown::identity);
        auto* button = known == before.end() ? nullptr : std::exchange(known->button, nullptr);
        m_shown.push_back({row, std::move(identity), button});
    }
    for (const auto& gone : before) {
        if (gone.button)
            release(gone.button);
    }
    for (auto& shown : m_shown) {
        if (!shown.button)
            shown.button = take();
        show(shown);
    }
    for (auto* spare : m_spare)
        spare->hide();
}

QuietButton* RowButtons::of(int row) const {
    const auto found = std::ranges::find(m_shown, row, &Shown::row);
    return found == m_shown.end() ? nullptr : found->button;
}

/// -1 where it has none by now.
int RowButtons::rowOf(const QObject* button) const {
    const auto found = std::ranges::find(m_shown, button, &Shown::button);
    return found == m_shown.end() ? -1 : found->row;
}

QuietButton* RowButtons::take() {
    if (!m_spare.empty()) {
        auto* button = m_spare.back();
        m_spare.pop_back();
        return button;
    }
    auto* button =
        m_all.emplace_back(std::make_unique<QuietButton>("", "", QuietButtonOptions{.dropsLabel = true}))
            .get();
    followWidth(*button, m_source.store.widthClass());
    button->setRow(m_list, [this, button] { return rowOf(button); });
    button->setParent(m_list.viewport());
    button->setCursor(Qt::ArrowCursor);
    if (!m_source.isTabStop)
        button->setFocusPolicy(Qt::NoFocus);
    button->installEventFilter(this);
    QObject::connect(button, &QAbstractButton::clicked, this, [this, button] {
        if (const auto row = rowOf(button); row >= 0)
            copy(row);
    });
    return button;
}

void RowButtons::release(QuietButton* button) {
    if (button->hasFocus())
        m_list.setFocus();
    button->setDown(false); // letting go of it must not press it for another row
    m_spare.push_back(button);
}

void RowButtons::show(const Shown& shown) const {
    static const CopyButton untouched{.label = "Copy"};
    const auto pressed = m_pressed.find(shown.identity);
    auto& button = *shown.button;
    button.setName(m_source.subject(shown.row));
    display(button, pressed == m_pressed.end() ? untouched : *pressed->second);
    const auto place = m_source.place(m_list.rowPlace(shown.row));
    const auto size = button.sizeHint();
    const QPoint corner(place.right() + 1 - size.width(), place.top() + (place.height() - size.height()) / 2);
    button.setGeometry(QRect(corner, size));
    button.show();
}

void RowButtons::copy(int row) {
    if (m_source.onlyNewestSpeaks)
        m_pressed.clear();
    auto& state = m_pressed[m_source.identity(row)];
    if (!state)
        state = std::make_shared<CopyButton>(CopyButton{.label = "Copy", .isSecret = m_source.isSecret});
    const auto change = [this, weak = std::weak_ptr(state)](const std::function<void(CopyButton&)>& apply) {
        const auto living = weak.lock();
        if (!living) // another one was pressed since, or the list is gone
            return;
        apply(*living);
        std::erase_if(m_pressed, [](const auto& pressed) { return !pressed.second->copied; });
        place();
    };
    state->text = m_source.text(row);
    state->copyToClipboard({m_source.store.services(), change});
    state->text.clear(); // it may be large, or secret
    place();
}

bool RowButtons::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        m_list.setCurrentRow(rowOf(watched)); // all of it visible
    if (event->type() == QEvent::Enter)
        m_list.endHover(); // the pointer is over the button, and no more over the row
    return false;
}

} // namespace korvane
