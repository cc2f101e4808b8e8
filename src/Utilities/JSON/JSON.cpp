#include "Utilities/JSON/JSON.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace korvane::JSON {

double Value::number() const {
    if (type() != Type::number)
        return 0;
    const auto digits = text();
    double number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec != std::errc::result_out_of_range)
        return number;
    // Only numbers in exponent form are out of range; the sign of the exponent distinguishes the two sides.
    const bool isTiny = digits.find("e-") != std::string_view::npos;
    const double absolute = isTiny ? 0.0 : std::numeric_limits<double>::infinity();
    return digits.starts_with('-') ? -absolute : absolute;
}

const Value* Value::member(std::string_view name) const {
    const auto all = members();
    const auto found = std::ranges::lower_bound(all, name, {}, [](const Member& m) { return m.name.text(); });
    return found != all.end() && found->name.text() == name ? &found->value : nullptr;
}

} // namespace korvane::JSON
