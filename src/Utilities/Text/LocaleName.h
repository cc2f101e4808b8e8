/// The names of locales, between the environment and ICU.
#pragma once

#include <string>

namespace korvane {

/// ICU's name of the locale that `name` means to the C library, such as "de_DE" for "de_DE.UTF-8". An empty
/// name is the user's locale for dates, from the environment. ICU has no locale for the plain "C" and
/// "POSIX"; English stands in.
std::string icuLocaleName(const std::string& name);

} // namespace korvane
