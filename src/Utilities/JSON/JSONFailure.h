/// The error that stops the reader, and its message. Separate from the reader so that all messages have the
/// same form.
#pragma once

#include "Utilities/JSON/JSON.h"

#include <cstddef>
#include <string_view>

namespace korvane::JSON {

struct Failure {
    ParseError::Kind kind{};
    std::size_t offset = 0;      ///< where the error begins
    std::size_t length = 0;      ///< bytes that the message quotes, unless the kind implies it
    std::string_view expected{}; ///< the expected input
};

/// The error for users: `Unexpected "}" at line 3, column 14; expected a value`. A byte-order mark at the
/// start of the text counts in the offset, but not in the column.
ParseError describe(std::string_view text, const Failure& failure);

} // namespace korvane::JSON
