/// How the kit's buttons, switches and segments present themselves to assistive technology, and answer it.
#pragma once

class QAbstractButton;
class QAccessibleInterface;

namespace korvane {

/// To be derived from by a checkable button that is one of several, of which one is checked at a time, unless
/// the toolkit sees to that: it is a radio button then.
class ChoiceButton {
public:
    ChoiceButton() = default;
    ChoiceButton(const ChoiceButton&) = delete;
    ChoiceButton& operator=(const ChoiceButton&) = delete;
    virtual ~ChoiceButton() = default;
};

QAccessibleInterface* newButtonInterface(QAbstractButton* button);

} // namespace korvane
