/// What the program tells assistive technology beside what the toolkit does by itself: how the kit's own
/// controls present themselves, and what is to be read out although the focus is elsewhere.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <string>

class QAccessibleInterface;
class QString;
class QWidget;

namespace korvane {

/// A widget of which the toolkit knows too little, and which therefore makes its accessible interface itself.
class AccessibleControl {
public:
    AccessibleControl() = default;
    AccessibleControl(const AccessibleControl&) = delete;
    AccessibleControl& operator=(const AccessibleControl&) = delete;
    virtual ~AccessibleControl() = default;

    /// Makes an interface, which the toolkit keeps.
    virtual QAccessibleInterface* newAccessibleInterface() = 0;
};

/// Has the toolkit use the interfaces of the kit's controls. Calling it again changes nothing.
void installAccessibility();

/// Gives `widget` its accessible name. Unlike the toolkit's way it says nothing to assistive technology where
/// that is the name already.
void setAccessibleName(QWidget& widget, const QString& name);

/// A part of a screen that passes its name on: to the control in it that takes the focus, or to its own
/// accessible name as what it acts on.
class Named {
public:
    Named() = default;
    Named(const Named&) = delete;
    Named& operator=(const Named&) = delete;
    virtual ~Named() = default;

    virtual void setName(const std::string& name) = 0;
};

/// Names `part`, or the control that takes the focus for it.
void giveName(QWidget& part, const std::string& name);

/// The same for its description, what there is to say beside the name.
void setAccessibleDescription(QWidget& widget, const std::string& description);

/// Has assistive technology read out `text`, which has appeared somewhere in the window of `source`. It stays
/// to be asked for by assistive technology for a few seconds.
void announce(const QWidget& source, const QString& text);

/// Announces what `text` reads whenever it has become another one, but for an empty one. What it reads at
/// first is not announced: it is part of the screen that the user has come to.
void announceChanges(Store& store, const QWidget& source, const Reader<std::string>& text);

} // namespace korvane
