/// Converts locale names from the environment to ICU's.
#pragma once

#include <string>

namespace korvane {

/// ICU's name of the C library locale `name`, such as "de_DE" for "de_DE.UTF-8". An empty name is the user's
/// locale for dates, from the environment. "C" and "POSIX", for which ICU has no locale, become English.
std::string icuLocaleName(const std::string& name);

} // namespace korvane
