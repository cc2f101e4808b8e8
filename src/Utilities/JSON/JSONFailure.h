/// What the reader notes when it stops, and the message that is made of it. Kept apart from the reading so
/// that every message has the same form and the reader stays small.
#pragma once

#include "Utilities/JSON/JSON.h"

#include <cstddef>
#include <string_view>

namespace korvane::JSON {

struct Failure {
    ParseError::Kind kind{};
    std::size_t offset = 0;      ///< where the wrong thing begins
    std::size_t length = 0;      ///< how many bytes of it the message quotes, where the kind does not tell
    std::string_view expected{}; ///< what should be there instead
};

/// The error for people: `Unexpected "}" at line 3, column 14; expected a value`. A byte-order mark at the
/// start of the text counts in the offset, but not in the column.
ParseError describe(std::string_view text, const Failure& failure);

} // namespace korvane::JSON
