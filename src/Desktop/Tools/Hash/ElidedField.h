/// A read-only line of text, which can be selected and copied. If it does not fit, its middle is elided,
/// except while it has the focus: then the whole text can be scrolled and selected.
#pragma once

#include "Desktop/Text/LineEdit.h"

#include <functional>
#include <string_view>

namespace korvane {

class ElidedField final : public LineEdit {
public:
    /// `name` is the accessible name; `placeholder` is shown for an empty text.
    ElidedField(std::string_view name, std::string_view placeholder);

    void display(std::string_view text);

    /// Called when the field is pressed.
    std::function<void()> onPress{};

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Copies the selection, or else the whole text.
    void copyText() const;
};

} // namespace korvane
