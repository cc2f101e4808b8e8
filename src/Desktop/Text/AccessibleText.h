/// The accessible interface of the multi-line text control. It reports and accepts the exact text, with any
/// kind of line break.
#pragma once

class QAccessibleInterface;

namespace korvane {

class TextArea;

QAccessibleInterface* newTextInterface(TextArea* area);

} // namespace korvane
