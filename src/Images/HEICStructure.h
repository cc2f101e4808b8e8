/// Checks the references between the pictures in a HEIC file before it is decoded: the decoder follows even
/// circular references.
#pragma once

#include <string_view>

namespace korvane::HEIC {

/// Whether decoding each picture of the file requires a finite and reasonable number of other pictures:
/// tiles, layers, transparency.
bool hasFiniteReferences(std::string_view bytes);

} // namespace korvane::HEIC
