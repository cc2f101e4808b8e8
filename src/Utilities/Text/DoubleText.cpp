#include "Utilities/Text/DoubleText.h"

#include <clocale>
#include <cstdlib>
#include <locale.h>
#include <string>

namespace korvane {

std::optional<double> doubleFromText(std::string_view text) {
    // `std::from_chars` does not distinguish overflow from underflow.
    static const auto locale = newlocale(LC_ALL_MASK, "C", nullptr);
    constexpr std::string_view whiteSpace = " \t\n\v\f\r";
    if (text.empty() || whiteSpace.contains(text.front()))
        return std::nullopt;
    const std::string terminated(text);
    char* end = nullptr;
    const auto number = strtod_l(terminated.c_str(), &end, locale);
    if (end != terminated.data() + terminated.size())
        return std::nullopt;
    return number;
}

} // namespace korvane
