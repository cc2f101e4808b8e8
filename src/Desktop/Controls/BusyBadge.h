/// What a screen shows of work that takes long, and how it is cancelled.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Views/Components/AwaitedWork.h"

class QWidget;

namespace korvane {

/// A badge with a turning ring and the description of the work, and a button that cancels it, both visible
/// while it is busy. The description and the outcome are announced.
QWidget* busyBadge(Store& store, const Reader<const AwaitedWork&>& work, const Action<>& cancel);

/// `content`, in which Escape cancels while `isBusy` is true.
QWidget* cancellable(Store& store, const Reader<bool>& isBusy, const Action<>& cancel, QWidget* content);

} // namespace korvane
