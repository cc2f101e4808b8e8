#include "Utilities/NumberBaseConverter.h"

#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <optional>

namespace korvane::NumberBaseConverter {

namespace {

/// The value of `digits`, which are valid in `base`; none above 2^63 - 1.
std::optional<std::int64_t> parse(std::string_view digits, Base base) {
    std::int64_t value = 0;
    const auto end = digits.data() + digits.size();
    if (std::from_chars(digits.data(), end, value, rawValue(base)).ec != std::errc())
        return std::nullopt;
    return value;
}

} // namespace

std::string ConversionError::errorDescription() const {
    switch (kind) {
    case Kind::invalidCharacters:
        return fmt::format("Invalid characters for {} (base {})", label(base), rawValue(base));
    case Kind::emptyInput:
        return "Input is empty";
    case Kind::overflow:
        return "Number is too large to convert";
    case Kind::invalidInput:
        break;
    }
    return "Invalid input";
}

std::string_view cleanInput(std::string_view text, Base) {
    const auto trimmed = trimmingWhitespacesAndNewlines(text);
    for (const std::string_view prefix : {"0b", "0B", "0o", "0O", "0x", "0X"}) {
        if (trimmed.starts_with(prefix))
            return trimmed.substr(prefix.size());
    }
    return trimmed;
}

bool isValid(std::string_view text, Base base) {
    return text.find_first_not_of(factsOf(base).digits) == std::string_view::npos;
}

std::expected<std::map<Base, std::string>, ConversionError> convertToAllBases(std::string_view input,
                                                                              Base source) {
    const auto cleaned = cleanInput(input, source);
    if (cleaned.empty())
        return std::unexpected(ConversionError::emptyInput());
    if (!isValid(cleaned, source))
        return std::unexpected(ConversionError::invalidCharacters(source));
    const auto value = parse(cleaned, source);
    if (!value)
        return std::unexpected(ConversionError::overflow());
    return std::map<Base, std::string>{
        {Base::binary, fmt::format("{:b}", *value)},
        {Base::octal, fmt::format("{:o}", *value)},
        {Base::decimal, fmt::format("{}", *value)},
        {Base::hexadecimal, fmt::format("{:X}", *value)},
    };
}

std::string groupDigits(std::string_view digits, Base base) {
    const auto& conventions = factsOf(base);
    std::string grouped;
    for (std::size_t index = 0; index < digits.size(); ++index) {
        if (index > 0 && (digits.size() - index) % conventions.groupSize == 0)
            grouped += conventions.groupSeparator;
        grouped += digits[index];
    }
    return grouped;
}

} // namespace korvane::NumberBaseConverter
