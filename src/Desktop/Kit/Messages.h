/// Messages that appear by themselves, in answer to what the user did: nobody is to miss one.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

/// Has what `text` reads read out by assistive technology, and `place`, which shows it, scrolled into view,
/// whenever it has become another message.
void reportMessages(ViewCore& view, QWidget& place, std::function<std::string()> text);

} // namespace korvane
