/// The text editors: a panel with a text area, with line numbers or without.
#pragma once

#include "Desktop/Kit/Theme.h"

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct CodeEditorOptions {
    bool lineNumbers = true;       ///< without them it is the simple editor, with wider insets
    bool isSmall = false;          ///< smaller text, for panels beside other things
    bool isProse = false;          ///< text for reading instead of code, with still wider insets
    bool hasOverlayButton = false; ///< keeps the text clear of a button in the top right corner
    bool overlayHasLabel = false;  ///< that button is as wide as its label
    int minimumHeight = Theme::Size::editorMinimumHeight; ///< in pixels at a 13-pixel body text
};

struct CodeEditorParts {
    std::function<const std::string&()> text;
    std::function<void(std::string)> setText; ///< null for an editor that only shows its text
    std::function<std::string()> placeholder;
    CodeEditorOptions options;
};

QWidget* codeEditor(ViewCore& view, CodeEditorParts parts);

} // namespace korvane
