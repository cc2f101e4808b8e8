/// The tiles of the text transformer. Pressing a tile applies its transformation, also when it is already
/// chosen.
#pragma once

#include "Desktop/Access/AccessibleButton.h"
#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Controls/Buttons.h"

#include <string>
#include <type_traits>
#include <vector>

namespace korvane {

/// A glyph above a title; teal while it is checked.
class TransformButton final : public GlyphButton, public ChoiceButton {
public:
    TransformButton(std::string_view title, std::string_view icon);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintTitle(QPainter& painter, const QRect& line) const;
};

struct TransformButtonParts {
    std::string title;
    std::string icon;
    Reader<bool> isSelected;
    Action<> select;
};

/// The buttons in three columns of equal width.
QWidget* transformButtons(Store& store, const std::vector<TransformButtonParts>& buttons);

/// A button for each case of an enumeration, titled with its raw value. `select` is performed with the case
/// of the button that is pressed.
template <typename State, typename E>
QWidget* transformButtons(Store& store, E State::* selected,
                          void (State::*select)(E, const Context<State>&)) {
    std::vector<TransformButtonParts> buttons;
    for (const auto value : allCases<E>) {
        buttons.push_back(
            {.title = std::string(rawValue(value)),
             .icon = std::string(icon(value)),
             .isSelected = [selected, value](const State& state) { return state.*selected == value; },
             .select = [select, value](State& state,
                                       const Context<State>& context) { (state.*select)(value, context); }});
    }
    return transformButtons(store, buttons);
}

} // namespace korvane
