/// The text editors: a panel with a text area, with line numbers or without.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Look/Theme.h"

#include <optional>
#include <string>

class QWidget;

namespace korvane {

/// Sizes are in pixels at a 13-pixel body text.
struct CodeEditorOptions {
    bool lineNumbers = true; ///< without them it is the simple editor, with wider insets
    bool isSmall = false;    ///< smaller text, for panels beside other things
    bool isProse = false;    ///< text for reading instead of code, with still wider insets
    int buttonRoom = 0;      ///< kept free of text on the right, for a button over the corner
    int minimumHeight = Theme::Size::editorMinimumHeight;
    std::optional<int> maximumHeight{}; ///< with it, the panel is as high as its text, within these limits
    Theme::Role placeholderInk = Theme::Role::placeholder;
};

/// An editor that shows and changes a text. `placeholder` stands in it while it is empty.
QWidget* codeEditor(Store& store, const Reader<const std::string&>& text, const Action<std::string>& setText,
                    const Reader<std::string>& placeholder, const CodeEditorOptions& options = {});

/// The same for a text that is only shown; it can be selected and copied.
QWidget* textView(Store& store, const Reader<const std::string&>& text,
                  const Reader<std::string>& placeholder, const CodeEditorOptions& options = {});

} // namespace korvane
