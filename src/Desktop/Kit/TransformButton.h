/// The tiles of the text transformer: each a choice that takes effect when it is pressed, also when it is the
/// chosen one.
#pragma once

#include "Desktop/Kit/AccessibleButton.h"
#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/View.h"

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

namespace korvane {

/// A glyph above a title. It is teal while it is checked.
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
    std::function<bool()> isSelected;
    std::function<void()> action;
};

/// The buttons in three columns of equal width.
QWidget* transformButtons(ViewCore& view, const std::vector<TransformButtonParts>& buttons);

/// A button for each case of the enumeration that `selected` reads, titled with its raw value. `select` is
/// performed with the case of the button that is pressed.
template <typename State, typename Reader, typename Operation>
QWidget* transformButtons(View<State>& view, Reader selected, Operation select) {
    using E = std::remove_cvref_t<std::invoke_result_t<Reader, const State&>>;
    std::vector<TransformButtonParts> buttons;
    for (const auto value : allCases<E>) {
        buttons.push_back(
            {.title = std::string(rawValue(value)),
             .icon = std::string(icon(value)),
             .isSelected = [read = view.template reading<E>(selected), value] { return read() == value; },
             .action = [perform = view.template setting<E>(select), value] { perform(value); }});
    }
    return transformButtons(view, buttons);
}

} // namespace korvane
