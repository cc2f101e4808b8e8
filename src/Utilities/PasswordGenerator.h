/// Makes random passwords from chosen classes of characters, and rates any password. The rating knows a few
/// habits of people, no dictionary; the entropy is what the password would have if it were random.
#pragma once

#include "Models/Enumeration.h"
#include "Models/PaletteColor.h"
#include "Utilities/Random.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A set of classes of characters. `|` joins two sets, `&` is what both have.
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

/// How strong a password is, ordered from the weakest.
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

/// A password of `length` characters, each drawn by itself from all classes of `options`, so that a class may
/// be missing; `excludeAmbiguous` leaves out the six characters 0, O, 1, l, I and |. Empty where nothing can
/// be drawn: no class, or a length below 1.
///
/// A random byte b stands for the character b mod n of the n there are to choose from, which favours the
/// first 256 mod n of them slightly. Where the source of secure bytes fails, every character is drawn
/// uniformly.
std::string generate(int length, CharacterOptions options, bool excludeAmbiguous,
                     const RandomSources& random = {});

/// `count` passwords, each made by itself, in the order they were drawn.
std::vector<std::string> generateBulk(int count, int length, CharacterOptions options, bool excludeAmbiguous);

/// The estimate of a password's entropy in bits: its characters times log2 of the size of the alphabet that
/// its classes suggest (26 for lower-case, 26 for upper-case, 10 for numeric, 32 for what is neither letter
/// nor numeric). Classes are Unicode's; a letter without case suggests nothing.
double calculateEntropy(std::string_view password);

/// A rating by length, variety of classes and entropy, with a deduction for a common pattern: a word that
/// many people use, or three ASCII characters in ascending order, such as xyz, in any case.
PasswordStrength calculateStrength(std::string_view password);

} // namespace PasswordGenerator

} // namespace korvane
