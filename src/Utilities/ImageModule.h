/// The way to the image engine, which lies in a library of its own: what it needs takes long to load, and
/// most who start the program never open the image tool.
#pragma once

#include "Utilities/ImageConverter.h"

#include <expected>
#include <string>

namespace korvane::ImageModule {

/// The engine; it is loaded at the first call, which takes some 50 ms, and stays until the program ends.
/// Where its library is missing or does not fit, the error says so. The library is looked for in the run path
/// of the program.
std::expected<const ImageEngine*, std::string> load();

} // namespace korvane::ImageModule
