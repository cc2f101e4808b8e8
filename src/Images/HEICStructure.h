/// A look at how the pictures in a HEIC file are made of each other, taken before a file is decoded: the
/// decoder follows references as they are, also in circles.
#pragma once

#include <string_view>

namespace korvane::HEIC {

/// Whether decoding any picture of the file comes to an end after a sensible number of pictures that it is
/// made of: tiles, layers, transparency.
bool hasFiniteReferences(std::string_view bytes);

} // namespace korvane::HEIC
