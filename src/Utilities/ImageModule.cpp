#include "Utilities/ImageModule.h"

#include <fmt/format.h>

#include <dlfcn.h>

namespace korvane::ImageModule {

namespace {

constexpr auto libraryName = "libkorvane-images.so";
constexpr auto entryName = "korvaneImageEngine";

std::unexpected<std::string> failure() {
    return std::unexpected(fmt::format("The image library cannot be loaded: {}", dlerror()));
}

std::expected<const ImageEngine*, std::string> loadOnce() {
    // Never closed: pictures from the engine refer to its code.
    void* library = dlopen(libraryName, RTLD_NOW | RTLD_LOCAL);
    if (!library)
        return failure();
    using Entry = const ImageEngine* (*)();
    const auto entry = reinterpret_cast<Entry>(dlsym(library, entryName));
    if (!entry)
        return failure();
    if (const auto* engine = entry())
        return engine;
    return std::unexpected("The image library cannot be started");
}

} // namespace

std::expected<const ImageEngine*, std::string> load() {
    static const auto engine = loadOnce();
    return engine;
}

} // namespace korvane::ImageModule
