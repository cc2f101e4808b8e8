/// The commands of an Edit menu, applied to a control. Each has the effect of its keys.
#pragma once

#include <QKeySequence>

class QWidget;

namespace korvane {

/// A control without an editable text that handles some of the commands.
class CommandTarget {
public:
    CommandTarget() = default;
    CommandTarget(const CommandTarget&) = delete;
    CommandTarget& operator=(const CommandTarget&) = delete;
    virtual ~CommandTarget() = default;

    virtual bool answersTo(QKeySequence::StandardKey command) const = 0;
};

/// A part of a screen whose content can be searched.
class Searchable {
public:
    Searchable() = default;
    Searchable(const Searchable&) = delete;
    Searchable& operator=(const Searchable&) = delete;
    virtual ~Searchable() = default;

    /// Opens its search.
    virtual void find() = 0;
};

/// Opens the search of the part that `control` is in. Returns whether there is one.
bool find(QWidget* control);

/// Whether `control` has a text cursor. The text may be read-only.
bool holdsText(const QWidget* control);

/// Whether `control` handles the keys of `command`: undo, redo, cut, copy, paste or select all.
bool answersTo(const QWidget* control, QKeySequence::StandardKey command);

/// Sends the keys of `command` to `control`.
void pressKeys(QWidget* control, QKeySequence::StandardKey command);

} // namespace korvane
