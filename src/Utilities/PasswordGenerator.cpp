#include "Utilities/PasswordGenerator.h"

#include "Utilities/Text/Characters.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/stringpiece.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane::PasswordGenerator {

namespace {

constexpr std::string_view uppercaseLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view lowercaseLetters = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view digits = "0123456789";
constexpr std::string_view symbolCharacters = "!@#$%^&*()_+-=[]{}|;:,.<>?";

constexpr std::string_view ambiguousChars = "0O1lI|";

constexpr std::array<std::string_view, 12> commonPatterns = {
    "123",     "abc",    "qwerty", "password", "admin", "letmein",
    "welcome", "monkey", "dragon", "master",   "111",   "000",
};

/// Replaces a character that is not ASCII in `asciiForm`.
constexpr char notASCII = '\x80';

/// The characters to draw from. All are ASCII, so a byte is a character.
std::string buildCharacterSet(CharacterOptions options, bool excludeAmbiguous) {
    std::string pool;
    if (options.contains(CharacterOptions::uppercase))
        pool += uppercaseLetters;
    if (options.contains(CharacterOptions::lowercase))
        pool += lowercaseLetters;
    if (options.contains(CharacterOptions::numbers))
        pool += digits;
    if (options.contains(CharacterOptions::symbols))
        pool += symbolCharacters;
    if (excludeAmbiguous)
        std::erase_if(pool, [](char character) { return ambiguousChars.contains(character); });
    return pool;
}

/// The lower-case form of `password` with one byte for each character: its ASCII value, LF for CR LF, or
/// `notASCII`.
std::string asciiForm(std::string_view password) {
    std::string lowercased;
    icu::StringByteSink<std::string> sink(&lowercased);
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToLower("", 0,
                              icu::StringPiece(password.data(), static_cast<std::int32_t>(password.size())),
                              sink, nullptr, status);
    std::string bytes;
    for (const auto character : characters(lowercased)) {
        const bool isASCII = character.size() == 1 && static_cast<unsigned char>(character[0]) < 0x80;
        if (character == "\r\n")
            bytes += '\n';
        else
            bytes += isASCII ? character[0] : notASCII;
    }
    return bytes;
}

bool hasAscendingRun(std::string_view bytes) {
    for (std::size_t i = 2; i < bytes.size(); ++i) {
        const bool isASCII =
            std::ranges::none_of(bytes.substr(i - 2, 3), [](char byte) { return byte == notASCII; });
        if (isASCII && bytes[i - 1] == bytes[i - 2] + 1 && bytes[i] == bytes[i - 1] + 1)
            return true;
    }
    return false;
}

bool hasCommonPattern(std::string_view password) {
    const auto bytes = asciiForm(password);
    return std::ranges::any_of(commonPatterns, [&](auto pattern) { return bytes.contains(pattern); }) ||
           hasAscendingRun(bytes);
}

/// The character classes that occur in a password.
struct Classes {
    std::size_t count = 0; ///< of the characters
    bool hasUppercase = false;
    bool hasLowercase = false;
    bool hasNumber = false;
    bool hasSymbol = false; ///< one that is neither a letter nor numeric
};

Classes classesOf(std::string_view password) {
    const auto all = characters(password);
    const auto isSymbol = [](std::string_view character) {
        return !isLetter(character) && !isNumeric(character);
    };
    return {.count = all.size(),
            .hasUppercase = std::ranges::any_of(all, isUppercase),
            .hasLowercase = std::ranges::any_of(all, isLowercase),
            .hasNumber = std::ranges::any_of(all, isNumeric),
            .hasSymbol = std::ranges::any_of(all, isSymbol)};
}

double entropyOf(const Classes& classes) {
    const auto poolSize = (classes.hasLowercase ? 26 : 0) + (classes.hasUppercase ? 26 : 0) +
                          (classes.hasNumber ? 10 : 0) + (classes.hasSymbol ? 32 : 0);
    return poolSize == 0 ? 0 : std::log2(poolSize) * static_cast<double>(classes.count);
}

PasswordStrength strengthOfScore(std::ptrdiff_t score) {
    if (score < 3)
        return PasswordStrength::veryWeak;
    if (score < 5)
        return PasswordStrength::weak;
    if (score < 7)
        return PasswordStrength::fair;
    return score < 9 ? PasswordStrength::strong : PasswordStrength::veryStrong;
}

} // namespace

std::string generate(int length, CharacterOptions options, bool excludeAmbiguous,
                     const RandomSources& random) {
    const auto pool = buildCharacterSet(options, excludeAmbiguous);
    if (pool.empty() || length < 1)
        return {};
    std::string password(static_cast<std::size_t>(length), '\0');
    const bool isSecure = random.fill(std::as_writable_bytes(std::span(password)));
    for (auto& character : password) {
        character = isSecure ? pool[static_cast<unsigned char>(character) % pool.size()]
                             : pool[uniformBelow(static_cast<std::uint32_t>(pool.size()), random.next)];
    }
    return password;
}

std::vector<std::string> generateBulk(int count, int length, CharacterOptions options,
                                      bool excludeAmbiguous) {
    std::vector<std::string> passwords;
    for (int i = 0; i < count; ++i)
        passwords.push_back(generate(length, options, excludeAmbiguous));
    return passwords;
}

double calculateEntropy(std::string_view password) {
    return entropyOf(classesOf(password));
}

PasswordStrength calculateStrength(std::string_view password) {
    if (password.empty())
        return PasswordStrength::veryWeak;
    const auto classes = classesOf(password);
    std::ptrdiff_t score = std::ranges::count_if(
        std::array{8U, 12U, 16U, 20U}, [&](std::size_t threshold) { return classes.count >= threshold; });
    score += std::ranges::count(
        std::array{classes.hasUppercase, classes.hasLowercase, classes.hasNumber, classes.hasSymbol}, true);
    if (hasCommonPattern(password))
        score -= 2;
    const auto entropy = entropyOf(classes);
    if (entropy >= 60)
        score += 2;
    else if (entropy >= 40)
        score += 1;
    return strengthOfScore(score);
}

} // namespace korvane::PasswordGenerator
