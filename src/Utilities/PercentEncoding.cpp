#include "Utilities/PercentEncoding.h"

#include "Utilities/Text/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>

namespace korvane::PercentEncoding {

namespace {

constexpr std::string_view kept = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                  "!$&'()*+,-./:;=?@_~";

/// Whether a byte stays unencoded, indexed by its value.
constexpr auto isKept = [] {
    std::array<bool, 256> table{};
    for (const auto character : kept)
        table[static_cast<unsigned char>(character)] = true;
    return table;
}();

constexpr bool isKeptByte(char byte) {
    return isKept[static_cast<unsigned char>(byte)];
}

/// `%` and two hexadecimal digits.
constexpr std::size_t tripletLength = 3;

/// The byte encoded by the triplet at the start of `text`, or none if there is no triplet.
std::optional<char> byteOfTriplet(std::string_view text) {
    if (text.size() < tripletLength)
        return std::nullopt;
    const auto* const end = text.data() + tripletLength;
    std::uint8_t byte = 0;
    if (std::from_chars(text.data() + 1, end, byte, 16).ptr != end)
        return std::nullopt;
    return static_cast<char>(byte);
}

} // namespace

std::optional<std::string> encode(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    if (!isValidUTF8(text))
        return std::nullopt;
    const auto keptBytes = static_cast<std::size_t>(std::ranges::count_if(text, isKeptByte));
    std::string encoded;
    encoded.reserve(keptBytes + (text.size() - keptBytes) * tripletLength);
    for (const auto character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (isKeptByte(character))
            encoded += character;
        else
            encoded += {'%', digits[byte >> 4], digits[byte & 0xF]};
    }
    return encoded;
}

std::optional<std::string> decode(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    while (true) {
        const auto percent = text.find('%');
        decoded += text.substr(0, percent);
        if (percent == std::string_view::npos)
            break;
        const auto byte = byteOfTriplet(text.substr(percent));
        if (!byte)
            return std::nullopt;
        decoded += *byte;
        text.remove_prefix(percent + tripletLength);
    }
    if (!isValidUTF8(decoded))
        return std::nullopt;
    return decoded;
}

} // namespace korvane::PercentEncoding
