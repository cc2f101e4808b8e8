/// Facts in a grid, each with a small title above its value.
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

/// The facts in rows of `columnCount`. The columns have equal widths unless a text needs more; no text is
/// elided.
QWidget* factGrid(Store& store, int columnCount, const std::vector<Fact>& facts);

} // namespace korvane
