/// The result of a comparison, as two lists beside each other or as one. Only visible lines are drawn, their
/// text can be selected and copied as that of one page, and each list scrolls by itself.
#pragma once

#include "Utilities/DiffEngine.h"

#include <functional>

class QWidget;

namespace korvane {

class ViewCore;

/// Reads what there is to show; null for nothing. The result holds until the next refresh.
using DiffResultReader = std::function<const DiffEngine::DiffResult*()>;

QWidget* sideBySideDiff(ViewCore& view, DiffResultReader result);
QWidget* unifiedDiff(ViewCore& view, DiffResultReader result);

} // namespace korvane
