/// Pairs of texts to compare. Reproducible: the seed is fixed.
#pragma once

#include "Utilities/Diff/DiffEngine.h"

#include <array>
#include <string_view>

namespace korvane::bench {

struct DiffTextsKind {
    std::string_view name;
    DiffEngine::DiffTexts (*generate)();
};

/// 20,000 lines a side: a fifth replaced, by unique lines or by lines that also occur elsewhere. 200,000
/// lines: one in a hundred replaced, in the same two ways. 50,000 lines: none in common; the same lines in
/// another order; and random lines of ten distinct ones.
extern const std::array<DiffTextsKind, 7> diffTexts;

} // namespace korvane::bench
