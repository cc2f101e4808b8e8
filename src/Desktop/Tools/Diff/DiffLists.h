/// The result of a comparison, as two lists beside each other or as one. Only visible lines are drawn, their
/// text can be selected and copied as that of one page, and each list scrolls by itself.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Utilities/Diff/DiffEngine.h"

class QWidget;

namespace korvane {

/// What there is to show; null for nothing. The result holds until the next refresh.
using DiffResultReader = Reader<const DiffEngine::DiffResult*>;

QWidget* sideBySideDiff(Store& store, const DiffResultReader& result);
QWidget* unifiedDiff(Store& store, const DiffResultReader& result);

} // namespace korvane
