/// Converts integers from 0 to 2^63 - 1 from one of four bases to all of them. Supports neither negative
/// numbers nor fractions.
#pragma once

#include "Models/Enumeration.h"
#include "Models/PaletteColor.h"

#include <array>
#include <cstddef>
#include <expected>
#include <map>
#include <string>
#include <string_view>

namespace korvane {

namespace NumberBaseConverter {

enum class Base { binary, octal, decimal, hexadecimal };

struct BaseFacts {
    Base value;
    int rawValue;           ///< the radix
    std::string_view label; ///< the name
    std::string_view icon;
    PaletteColor color;
    std::string_view placeholder; ///< shown in an empty input field
    std::string_view prefix;      ///< as in source code
    std::string_view digits;      ///< in both letter cases
    std::size_t groupSize;        ///< in digits
    char groupSeparator;
};

} // namespace NumberBaseConverter

template <>
inline constexpr auto facts<NumberBaseConverter::Base> = std::to_array<NumberBaseConverter::BaseFacts>({
    {NumberBaseConverter::Base::binary, 2, "Binary", "01.square", PaletteColor::green,
     "Enter binary number...", "0b", "01", 4, ' '},
    {NumberBaseConverter::Base::octal, 8, "Octal", "8.square", PaletteColor::orange, "Enter octal number...",
     "0o", "01234567", 3, ' '},
    {NumberBaseConverter::Base::decimal, 10, "Decimal", "number", PaletteColor::blue,
     "Enter decimal number...", "", "0123456789", 3, ','},
    {NumberBaseConverter::Base::hexadecimal, 16, "Hexadecimal", "hexagon", PaletteColor::purple,
     "Enter hexadecimal number...", "0x", "0123456789abcdefABCDEF", 2, ' '},
});

namespace NumberBaseConverter {

/// Why a text cannot be converted.
struct ConversionError {
    enum class Kind { invalidCharacters, emptyInput, overflow, invalidInput };

    Kind kind = Kind::invalidInput;
    Base base = Base::binary; ///< the expected base, for `invalidCharacters`

    static ConversionError invalidCharacters(Base base) { return {Kind::invalidCharacters, base}; }

    static ConversionError emptyInput() { return {Kind::emptyInput}; }

    static ConversionError overflow() { return {Kind::overflow}; }

    static ConversionError invalidInput() { return {Kind::invalidInput}; }

    /// The message for users.
    std::string errorDescription() const;

    bool operator==(const ConversionError&) const = default;
};

/// `text` without white space and newlines at its ends, and then without one prefix ("0b", "0o" or "0x", in
/// either letter case). Any prefix is removed, whatever the base: a decimal "0x1F" becomes "1F", and no
/// hexadecimal number can begin with the digits "0b". Inner characters stay.
std::string_view cleanInput(std::string_view text, Base base);

/// Whether `text` consists of digits of the base; an empty text is valid, a sign is not.
bool isValid(std::string_view text, Base base);

/// The number `input` in base `source`, converted to every base: without prefix, leading zeros or groups, in
/// capital letters. `input` is cleaned first. Fails, in this order, if it is then empty, if it contains other
/// characters than digits, and if the number is greater than 2^63 - 1.
std::expected<std::map<Base, std::string>, ConversionError> convertToAllBases(std::string_view input,
                                                                              Base source);

/// `digits` with a separator before every group, counted from the right: "1,234,567", "1111 1111", "F FF".
std::string groupDigits(std::string_view digits, Base base);

} // namespace NumberBaseConverter

} // namespace korvane
