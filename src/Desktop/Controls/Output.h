/// A tool's output text, with a button that copies it.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Desktop/Controls/Editors.h"

#include <string>

class QWidget;

namespace korvane {

/// The text can be selected. The button over its corner is visible while the text is not empty. While
/// `isStale` is true, because another text is being made, the text is shown as such and cannot be copied with
/// the button.
QWidget* output(Store& store, const Reader<Rope>& text, const Reader<std::string>& placeholder,
                const Reader<bool>& isStale = false, CodeEditorOptions options = {});

} // namespace korvane
