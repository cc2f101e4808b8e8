/// A text that a tool has made, with a button that copies it.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Desktop/Text/Editors.h"

#include <string>

class QWidget;

namespace korvane {

/// The text can be selected too. The button over its corner is there while there is a text.
QWidget* output(Store& store, const Reader<const std::string&>& text, const Reader<std::string>& placeholder,
                CodeEditorOptions options = {});

} // namespace korvane
