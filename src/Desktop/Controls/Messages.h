/// Messages that appear in response to the user and must not go unnoticed.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <string>

class QWidget;

namespace korvane {

/// Whenever the message `text` changes and is not empty, announces it to assistive technology and scrolls
/// `place`, which shows it, into view.
void reportMessages(Store& store, QWidget& place, const Reader<std::string>& text);

} // namespace korvane
