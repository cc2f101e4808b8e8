/// The toolkit's single-line editor in the theme's look, without a frame: that lies around it. A text with
/// line breaks is kept as it is and shown on one line.
#pragma once

#include "Desktop/Kit/Theme.h"

#include <QLineEdit>

#include <string>
#include <string_view>

namespace korvane {

class LineEdit : public QLineEdit {
public:
    explicit LineEdit(Theme::TextStyle style, Theme::Role placeholder = Theme::Role::placeholder);

    /// Shows `utf8` unless it is shown already. The user can undo it.
    void display(std::string_view utf8);

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyTheme();

    Theme::TextStyle m_style;
    Theme::Role m_placeholder;
    bool m_applying = false;
};

} // namespace korvane
