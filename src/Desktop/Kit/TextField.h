/// A single line of text that the user types, on a field of its own.
#pragma once

#include "Desktop/Kit/Theme.h"

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct TextFieldOptions {
    std::string placeholder{};
    std::function<std::string()> changingPlaceholder{}; ///< in its place, where it depends on the state
    Theme::TextStyle style = Theme::TextStyle::body;
    Theme::Role fill = Theme::Role::panelFill;
    int width = 0; ///< in pixels at a 13-pixel body text; 0: takes the room that is left
    int height = Theme::Size::fieldHeight;
    std::function<std::string()> leading{};  ///< a fixed text before what is typed, in the secondary colour
    std::function<std::string()> trailing{}; ///< the same after it
    std::function<void()> submit{};          ///< the user pressed Return
    bool isDetail = false; ///< one way among others to set something: no fresh screen begins with it
};

struct TextFieldParts {
    std::string name; ///< the accessible name
    std::function<std::string()> text;
    std::function<void(std::string)> setText;
    TextFieldOptions options;
};

QWidget* textField(ViewCore& view, TextFieldParts parts);

} // namespace korvane
