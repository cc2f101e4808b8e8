/// A tool's output text, with a button that copies it.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Desktop/Text/Editors.h"

#include <string>

class QWidget;

namespace korvane {

/// The text can be selected. The button over its corner is visible while the text is not empty.
QWidget* output(Store& store, const Reader<const std::string&>& text, const Reader<std::string>& placeholder,
                CodeEditorOptions options = {});

} // namespace korvane
