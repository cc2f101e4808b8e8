/// A few facts, each a small title above its value.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <string>
#include <vector>

class QWidget;

namespace korvane {

struct Fact {
    std::string title;
    Reader<std::string> text;
};

/// The facts in lines of `columnCount`. The columns are of one width, unless a text needs more: none is
/// shortened.
QWidget* factGrid(Store& store, int columnCount, const std::vector<Fact>& facts);

} // namespace korvane
