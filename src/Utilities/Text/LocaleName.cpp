#include "Utilities/Text/LocaleName.h"

#include <unicode/locid.h>

#include <cstdlib>

namespace korvane {

namespace {

/// The C library's locale for dates. ICU's default is the locale of messages.
std::string userLocaleName() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* name = std::getenv(variable);
        if (name && *name)
            return name;
    }
    return "C";
}

} // namespace

std::string icuLocaleName(const std::string& name) {
    const auto known = name.empty() ? userLocaleName() : name;
    const auto language = known.substr(0, known.find_first_of(".@"));
    if (language.empty() || language == "C" || language == "POSIX")
        return "en_US_POSIX";
    return icu::Locale::createCanonical(known.c_str()).getName();
}

} // namespace korvane
