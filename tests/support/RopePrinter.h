/// Has GoogleTest print a rope as the string it is, and a summary with the names of its fields.
#pragma once

#include "Utilities/Text/Rope.h"

#include <gtest/gtest.h>

#include <ostream>

namespace korvane {

inline void PrintTo(const Rope& rope, std::ostream* stream) {
    *stream << testing::PrintToString(rope.string());
}

inline void PrintTo(const TextSummary& summary, std::ostream* stream) {
    *stream << summary.bytes << " bytes, " << summary.newlines << " newlines, " << summary.utf16Units
            << " units, " << summary.illFormed << " ill-formed";
}

} // namespace korvane
