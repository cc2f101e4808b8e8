/// Accessibility beyond what Qt provides: interfaces of the shared controls, and announcements that are read
/// out although the focus is elsewhere.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <string>

class QAccessibleInterface;
class QString;
class QWidget;

namespace korvane {

/// A widget that creates its own accessible interface, because Qt's is insufficient.
class AccessibleControl {
public:
    AccessibleControl() = default;
    AccessibleControl(const AccessibleControl&) = delete;
    AccessibleControl& operator=(const AccessibleControl&) = delete;
    virtual ~AccessibleControl() = default;

    /// Creates an interface, which Qt owns.
    virtual QAccessibleInterface* newAccessibleInterface() = 0;
};

/// Makes Qt use the interfaces of the shared controls. Calling it again changes nothing.
void installAccessibility();

/// Sets the accessible name of `widget`. Unlike Qt's setter, sends no event if the name is unchanged.
void setAccessibleName(QWidget& widget, const QString& name);

/// A part of a screen that forwards its name: to the control in it that takes the focus, or into an
/// accessible name that states what it acts on.
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

/// Sets the accessible description of `widget`, which supplements its name. Sends no event if it is
/// unchanged.
void setAccessibleDescription(QWidget& widget, const std::string& description);

/// Makes assistive technology read out `text`, which has appeared in the window of `source`. The text can be
/// queried for a few seconds.
void announce(const QWidget& source, const QString& text);

/// Announces the value of `text` whenever it has changed and is not empty. The initial value is not
/// announced: it is part of the screen that the user has opened.
void announceChanges(Store& store, const QWidget& source, const Reader<std::string>& text);

} // namespace korvane
