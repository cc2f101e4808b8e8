/// A few facts, each a small title above its value.
#pragma once

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace korvane {

class ViewCore;

struct Fact {
    std::string title;
    std::function<std::string()> text;
};

/// The facts in lines of `columnCount`. The columns are of one width, unless a text needs more: none is
/// shortened.
QWidget* factGrid(ViewCore& view, int columnCount, const std::vector<Fact>& facts);

} // namespace korvane
