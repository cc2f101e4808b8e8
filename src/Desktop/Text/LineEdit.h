/// Qt's single-line editor in the theme's look, without a frame, which its container paints. The user's input
/// is joined to one line (see `onOneLine`); a text with line breaks that the program displays is kept as it
/// is and only shown on one line.
#pragma once

#include "Desktop/Look/Theme.h"

#include <QLineEdit>

#include <functional>
#include <string>
#include <string_view>

namespace korvane {

class LineEdit : public QLineEdit {
public:
    explicit LineEdit(Theme::TextStyle style, Theme::Role placeholder = Theme::Role::placeholder);

    /// Shows `utf8` unless it is shown already. The user can undo this.
    void display(std::string_view utf8);

    /// Called with the text when the user, or assistive technology on the user's behalf, has changed it;
    /// never by `display`. A text that the validator rejects is reverted instead.
    std::function<void(const std::string&)> onEdit{};

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyTheme();
    void followEdit();
    void keepOnOneLine();
    void replaceAll(const QString& text);

    Theme::TextStyle m_style;
    Theme::Role m_placeholder;
    bool m_applying = false;
    bool m_displaying = false;
    std::string m_acceptedText{};
};

} // namespace korvane
