/// The row of one digest: what it is from, the digest itself, how long it is, and a button that copies it.
/// The row is a button that marks it.
#pragma once

#include "Views/Tools/HashGeneratorView.h"

#include <functional>

class QWidget;

namespace korvane {

class ViewCore;

struct HashRowParts {
    HashGenerator::HashAlgorithm algorithm{};
    std::function<HashResultRow()> row;
    std::function<void()> select;
};

QWidget* hashRow(ViewCore& view, HashRowParts parts);

} // namespace korvane
