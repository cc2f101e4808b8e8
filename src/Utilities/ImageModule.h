/// Loads the image engine, which is a separate library: its dependencies load slowly, and most sessions never
/// open the image tool.
#pragma once

#include "Utilities/ImageConverter.h"

#include <expected>
#include <string>

namespace korvane::ImageModule {

/// The engine. The first call loads it, which takes about 50 ms; it stays loaded until the program ends.
/// Fails if the library, searched for in the program's run path, is missing or incompatible.
std::expected<const ImageEngine*, std::string> load();

} // namespace korvane::ImageModule
