/// The state of the Password Generator screen: random passwords, one or many at a time, their strength and
/// their history. Passwords are stored only in this state, and copied as secrets.
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
    PasswordStrength strength = PasswordStrength::veryWeak; ///< rated when the entry was made

    bool operator==(const PasswordEntry&) const = default;
};

struct PasswordGeneratorView {
    /// Beyond this number, new entries replace the oldest.
    static constexpr std::size_t historyLimit = 50;

    static constexpr int minLength = 8;
    static constexpr int maxLength = 128;
    static constexpr int minBulkCount = 1;
    static constexpr int maxBulkCount = 50; ///< as many as the history keeps

    std::string currentPassword{};                ///< empty if no class was chosen
    std::vector<PasswordEntry> passwordHistory{}; ///< newest first
    int length = 16;
    bool includeUppercase = true;
    bool includeLowercase = true;
    bool includeNumbers = true;
    bool includeSymbols = true;
    bool excludeAmbiguous = false;
    int bulkCount = 5;

    /// Called when the screen opens, too. If no class is chosen, the password is empty and still enters the
    /// history.
    void generatePassword(const Context<PasswordGeneratorView>& context);

    /// Generates `bulkCount` passwords. The first becomes the current one; the last is the first in the
    /// history.
    void generateBulk(const Context<PasswordGeneratorView>& context);

    /// Copies the whole history, one entry per line, newest first.
    void copyAllHistory(const Context<PasswordGeneratorView>& context) const;

    void clearHistory() { passwordHistory.clear(); }

    /// Sets the nearest allowed length.
    void setLength(int newLength);

    /// Sets the nearest allowed count.
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
