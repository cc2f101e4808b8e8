/// The accessible interfaces of the shared buttons, switches and segments.
#pragma once

class QAbstractButton;
class QAccessibleInterface;

namespace korvane {

/// A base class for a checkable button in a group of which one is checked at a time, where Qt does not ensure
/// that itself. Such a button has the role of a radio button.
class ChoiceButton {
public:
    ChoiceButton() = default;
    ChoiceButton(const ChoiceButton&) = delete;
    ChoiceButton& operator=(const ChoiceButton&) = delete;
    virtual ~ChoiceButton() = default;
};

QAccessibleInterface* newButtonInterface(QAbstractButton* button);

/// The interface of a button that leads to another place.
QAccessibleInterface* newLinkInterface(QAbstractButton* button);

} // namespace korvane
