/// Messages that appear by themselves, in answer to what the user did: nobody is to miss one.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <string>

class QWidget;

namespace korvane {

/// Has what `text` reads read out by assistive technology, and `place`, which shows it, scrolled into view,
/// whenever it has become another message.
void reportMessages(Store& store, QWidget& place, const Reader<std::string>& text);

} // namespace korvane
