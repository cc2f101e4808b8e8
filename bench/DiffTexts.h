/// Pairs of texts to compare, the same on every machine: the seed is in the code.
#pragma once

#include "Utilities/Diff/DiffEngine.h"

#include <array>
#include <string_view>

namespace korvane::bench {

struct DiffTextsKind {
    std::string_view name;
    DiffEngine::DiffTexts (*generate)();
};

/// 20,000 lines a side: a fifth replaced by lines that are nowhere else, and by lines that occur elsewhere
/// too. 200,000 lines: one in a hundred replaced, in the same two ways. 50,000 lines: none in common; the
/// same lines in another order; and lines of which there are only ten different ones.
extern const std::array<DiffTextsKind, 7> diffTexts;

} // namespace korvane::bench
