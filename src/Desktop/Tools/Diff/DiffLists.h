/// The result of a comparison, as two lists side by side or as one. Only visible lines are drawn, their text
/// can be selected across rows and copied, and each list scrolls independently.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Utilities/Diff/DiffEngine.h"

class QWidget;

namespace korvane {

/// The result to show; null for none. It must be valid until the next refresh.
using DiffResultReader = Reader<const DiffEngine::DiffResult*>;

QWidget* sideBySideDiff(Store& store, const DiffResultReader& result);
QWidget* unifiedDiff(Store& store, const DiffResultReader& result);

} // namespace korvane
