/// A field with a single line of text that the user types.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Look/Theme.h"

#include <optional>
#include <string>
#include <string_view>

class QWidget;

namespace korvane {

/// The height of a field, in pixels at a 13-pixel body text.
inline constexpr int fieldHeight = 32;

struct TextFieldOptions {
    Reader<std::string> placeholder = "";
    Theme::TextStyle style = Theme::TextStyle::body;
    Theme::Role fill = Theme::Role::panelFill;
    int width = 0; ///< in pixels at a 13-pixel body text; 0: the remaining space
    int height = fieldHeight;
    Reader<std::string> leading = "";    ///< a fixed text before the input, in the secondary colour
    Reader<std::string> trailing = "";   ///< the same after it
    std::optional<Action<>> submit = {}; ///< on Return
    bool isDetail = false;               ///< not the tool's main input: no new screen focuses it first
};

/// `name` is the accessible name.
QWidget* textField(Store& store, std::string_view name, const Reader<std::string>& text,
                   const Action<std::string>& setText, const TextFieldOptions& options = {});

} // namespace korvane
