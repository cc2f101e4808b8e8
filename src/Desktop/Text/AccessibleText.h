/// How the multi-line text control presents its text to assistive technology: exactly as it is, whatever ends
/// its lines, and taking a text in just as exactly.
#pragma once

class QAccessibleInterface;

namespace korvane {

class TextArea;

QAccessibleInterface* newTextInterface(TextArea* area);

} // namespace korvane
