/// The row of one digest: its algorithm, the digest, its length, and a button that copies it. The row itself
/// is a button that marks it.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Views/Tools/HashGeneratorView.h"

class QWidget;

namespace korvane {

/// Pressing the row selects it.
QWidget* hashRow(Store& store, HashGenerator::HashAlgorithm algorithm, const Reader<HashResultRow>& row,
                 const Action<>& select);

} // namespace korvane
