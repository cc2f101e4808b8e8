/// One line of text to read, select and copy. While it does not fit, its middle is left out, until it has
/// the focus: then all of it is there, to be scrolled and selected.
#pragma once

#include "Desktop/Text/LineEdit.h"

#include <functional>
#include <string_view>

namespace korvane {

class ElidedField final : public LineEdit {
public:
    /// `name` is for assistive technology; `placeholder` stands in place of an empty text.
    ElidedField(std::string_view name, std::string_view placeholder);

    void display(std::string_view text);

    /// Told when the field is pressed.
    std::function<void()> onPress{};

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// What is selected, or else the whole text.
    void copyText() const;
};

} // namespace korvane
