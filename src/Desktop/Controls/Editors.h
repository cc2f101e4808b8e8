/// The text editors: a panel with a text area, with or without line numbers.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Look/Theme.h"
#include "Utilities/Text/Rope.h"
#include "Utilities/Text/TextMarks.h"
#include "Utilities/Text/TextSelection.h"

#include <cstddef>
#include <optional>
#include <string>

class QWidget;

namespace korvane {

/// Sizes are in pixels at a 13-pixel body text.
struct CodeEditorOptions {
    bool lineNumbers = true; ///< without them, the insets are wider
    bool isSmall = false;    ///< smaller text, for secondary panels
    bool isProse = false;    ///< prose instead of code, with still wider insets
    int buttonRoom = 0;      ///< free of text on the right, for a button over the corner
    int minHeight = Theme::Size::minEditorHeight;
    std::optional<int> maxHeight{}; ///< if set, the panel fits the height of its text, within these limits
    Theme::Role placeholderInk = Theme::Role::placeholder;
    Reader<TextMarks> marks = TextMarks{};       ///< those of the text that is shown
    Reader<TextMarks> chosenMarks = TextMarks{}; ///< the same, for what is chosen among them
    Reader<TextPlace> place = TextPlace{};
    Action<TextSelection> onSelect = [](const TextSelection&) {
    }; ///< the user has moved the caret or selected
};

/// An editor that shows and changes a text. `placeholder` is shown while it is empty.
QWidget* codeEditor(Store& store, const Reader<Rope>& text, const Action<Rope>& setText,
                    const Reader<std::string>& placeholder, const CodeEditorOptions& options = {});

/// The same for a read-only text, which can be selected and copied. While `isStale` is true, because another
/// text is being made, it is faint and busy to assistive technology.
QWidget* readOnlyEditor(Store& store, const Reader<Rope>& text, const Reader<std::string>& placeholder,
                        const CodeEditorOptions& options = {}, const Reader<bool>& isStale = false);

} // namespace korvane
