/// The state of the password screen: random passwords, singly or many at once, how strong they are, and the
/// last of them. They live in this state only, and go to the clipboard as secrets.
#pragma once

#include "Utilities/PasswordGenerator.h"
#include "Utilities/UUID.h"
#include "Views/Services.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace korvane {

struct PasswordEntry {
    UUID id = UUID::random();
    std::string password{};
    std::chrono::system_clock::time_point timestamp{};
    PasswordStrength strength = PasswordStrength::veryWeak; ///< as rated when the entry was made

    bool operator==(const PasswordEntry&) const = default;
};

struct PasswordGeneratorView {
    /// Old entries give way to new ones beyond this number.
    static constexpr std::size_t historyLimit = 50;

    static constexpr int minimumLength = 8;
    static constexpr int maximumLength = 128;
    static constexpr int minimumBulkCount = 1;
    static constexpr int maximumBulkCount = 50; ///< as many as the history keeps

    std::string currentPassword{};                ///< empty until there was something to draw from
    std::vector<PasswordEntry> passwordHistory{}; ///< newest first
    int length = 16;
    bool includeUppercase = true;
    bool includeLowercase = true;
    bool includeNumbers = true;
    bool includeSymbols = true;
    bool excludeAmbiguous = false;
    int bulkCount = 5;

    /// The screen opens with a password. With no class chosen there is none, but still an entry in the
    /// history.
    void generatePassword(const Context<PasswordGeneratorView>& context);

    /// Makes `bulkCount` passwords. The first one drawn becomes the current one; the last ends on top of the
    /// history.
    void generateBulk(const Context<PasswordGeneratorView>& context);

    /// Puts the whole history on the clipboard, a line an entry, newest first.
    void copyAllHistory(const Context<PasswordGeneratorView>& context) const;

    void clearHistory() { passwordHistory.clear(); }

    /// The nearest length that is allowed.
    void setLength(int newLength);

    /// The nearest count that is allowed.
    void setBulkCount(int count);

    void setIncludeUppercase(bool on) { includeUppercase = on; }

    void setIncludeLowercase(bool on) { includeLowercase = on; }

    void setIncludeNumbers(bool on) { includeNumbers = on; }

    void setIncludeSymbols(bool on) { includeSymbols = on; }

    void setExcludeAmbiguous(bool on) { excludeAmbiguous = on; }

    bool hasPassword() const { return !currentPassword.empty(); }

    bool hasHistory() const { return !passwordHistory.empty(); }

    PasswordStrength strength() const;
    std::string entropyText() const; ///< such as "Entropy: 104 bits", whole bits only
    std::string characterCountText() const;
    std::string lengthText() const;
    std::string bulkTitle() const;
    std::string historyTitle() const;

    bool operator==(const PasswordGeneratorView&) const = default;

private:
    CharacterOptions options() const;
    void addToHistory(std::string password, const Context<PasswordGeneratorView>& context);
};

} // namespace korvane
