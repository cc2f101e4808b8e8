#include "Views/Services.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

char lowerCase(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

bool contains(const std::vector<std::string>& extensions, std::string_view extension) {
    return std::ranges::any_of(extensions, [&](const std::string& known) {
        return std::ranges::equal(extension, known, {}, lowerCase, lowerCase);
    });
}

} // namespace

std::string withExtension(std::string path, const FileKind& kind) {
    const auto name = path.rfind('/') + 1;
    const auto dot = path.rfind('.');
    const bool hasExtension =
        dot != std::string::npos && dot > name; // a hidden file's name begins with a dot
    const auto extension = hasExtension ? std::string_view(path).substr(dot + 1) : std::string_view();
    if (contains(kind.extensions, extension))
        return path;
    if (contains(kind.otherExtensions, extension))
        path.erase(dot);
    return std::move(path) + "." + kind.extensions.front();
}

} // namespace korvane
