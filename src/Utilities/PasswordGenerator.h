/// Generates random passwords from selected character classes, and rates any password. The rating checks a
/// few common patterns, no dictionary; the entropy estimate assumes a random password.
#pragma once

#include "Models/Enumeration.h"
#include "Models/PaletteColor.h"
#include "Utilities/Random.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A set of character classes. `|` is the union of two sets, `&` their intersection.
struct CharacterOptions {
    unsigned rawValue = 0;

    static const CharacterOptions uppercase;
    static const CharacterOptions lowercase;
    static const CharacterOptions numbers;
    static const CharacterOptions symbols;

    /// Whether all of `options` are in the set.
    constexpr bool contains(CharacterOptions options) const {
        return (rawValue & options.rawValue) == options.rawValue;
    }

    constexpr CharacterOptions operator|(CharacterOptions other) const { return {rawValue | other.rawValue}; }

    constexpr CharacterOptions operator&(CharacterOptions other) const { return {rawValue & other.rawValue}; }

    bool operator==(const CharacterOptions&) const = default;
};

inline constexpr CharacterOptions CharacterOptions::uppercase{1};
inline constexpr CharacterOptions CharacterOptions::lowercase{2};
inline constexpr CharacterOptions CharacterOptions::numbers{4};
inline constexpr CharacterOptions CharacterOptions::symbols{8};

/// Password strength in ascending order.
enum class PasswordStrength { veryWeak, weak, fair, strong, veryStrong };

struct PasswordStrengthFacts {
    PasswordStrength value;
    std::string_view label;
    PaletteColor color;
};

template <>
inline constexpr auto facts<PasswordStrength> = std::to_array<PasswordStrengthFacts>({
    {PasswordStrength::veryWeak, "Very Weak", PaletteColor::red},
    {PasswordStrength::weak, "Weak", PaletteColor::orange},
    {PasswordStrength::fair, "Fair", PaletteColor::yellow},
    {PasswordStrength::strong, "Strong", PaletteColor::green},
    {PasswordStrength::veryStrong, "Very Strong", PaletteColor::mint},
});

constexpr PaletteColor color(PasswordStrength strength) {
    return factsOf(strength).color;
}

namespace PasswordGenerator {

/// A password of `length` characters, each drawn independently from all classes of `options`, so a class may
/// be missing; `excludeAmbiguous` omits the six characters 0, O, 1, l, I and |. Empty if `options` is empty
/// or `length` is below 1.
///
/// A random byte b selects character b mod n of the n available ones, which favours the first 256 mod n of
/// them slightly. If the source of secure bytes fails, characters are drawn uniformly from `random.next`.
std::string generate(int length, CharacterOptions options, bool excludeAmbiguous,
                     const RandomSources& random = {});

/// `count` independent passwords, in the order of their generation.
std::vector<std::string> generateBulk(int count, int length, CharacterOptions options, bool excludeAmbiguous);

/// The estimated entropy of a password in bits: its length in characters times log2 of the size of its
/// alphabet, the sum over the classes that occur in it (26 for lower-case, 26 for upper-case, 10 for numeric,
/// 32 for characters that are neither letters nor numeric). Classes are Unicode's; a letter without case adds
/// nothing to the alphabet.
double calculateEntropy(std::string_view password);

/// A rating by length, number of classes and entropy, with a deduction for a common pattern: a common
/// password word, or three ascending ASCII characters such as xyz, in any letter case.
PasswordStrength calculateStrength(std::string_view password);

} // namespace PasswordGenerator

} // namespace korvane
