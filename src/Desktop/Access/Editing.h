/// What the commands of an Edit menu can do in a control. Each does what its keys do there.
#pragma once

#include <QKeySequence>

class QWidget;

namespace korvane {

/// A control without a text to edit that answers to some of the commands.
class CommandTarget {
public:
    CommandTarget() = default;
    CommandTarget(const CommandTarget&) = delete;
    CommandTarget& operator=(const CommandTarget&) = delete;
    virtual ~CommandTarget() = default;

    virtual bool answersTo(QKeySequence::StandardKey command) const = 0;
};

/// Whether `control` holds a text that the user can go through. It need not be one that can be changed.
bool holdsText(const QWidget* control);

/// Whether the keys of `command` do something in `control`: those for undoing and redoing, cutting, copying,
/// pasting, and selecting all.
bool answersTo(const QWidget* control, QKeySequence::StandardKey command);

/// Presses the keys of `command` in `control`.
void pressKeys(QWidget* control, QKeySequence::StandardKey command);

} // namespace korvane
