#include "Views/Tools/PasswordGeneratorView.h"

#include "Utilities/Text/Text.h"
#include "Views/Components/History.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace korvane {

void PasswordGeneratorView::generatePassword(const Context<PasswordGeneratorView>& context) {
    currentPassword = PasswordGenerator::generate(length, options(), excludeAmbiguous);
    addToHistory(currentPassword, context);
}

void PasswordGeneratorView::generateBulk(const Context<PasswordGeneratorView>& context) {
    const auto passwords = PasswordGenerator::generateBulk(bulkCount, length, options(), excludeAmbiguous);
    for (const auto& password : passwords)
        addToHistory(password, context);
    currentPassword = passwords.front();
}

void PasswordGeneratorView::copyAllHistory(const Context<PasswordGeneratorView>& context) const {
    context.services.clipboard.setSecret(historyText(passwordHistory, &PasswordEntry::password));
}

void PasswordGeneratorView::setLength(int newLength) {
    length = std::clamp(newLength, minLength, maxLength);
}

void PasswordGeneratorView::setBulkCount(int count) {
    bulkCount = std::clamp(count, minBulkCount, maxBulkCount);
}

PasswordStrength PasswordGeneratorView::strength() const {
    return PasswordGenerator::calculateStrength(currentPassword);
}

std::string PasswordGeneratorView::entropyText() const {
    return fmt::format("Entropy: {} bits",
                       static_cast<int>(PasswordGenerator::calculateEntropy(currentPassword)));
}

std::string PasswordGeneratorView::characterCountText() const {
    return fmt::format("{} characters", characterCount(currentPassword));
}

std::string PasswordGeneratorView::lengthText() const {
    return std::to_string(length);
}

std::string PasswordGeneratorView::bulkTitle() const {
    return fmt::format("Generate {}", bulkCount);
}

std::string PasswordGeneratorView::historyTitle() const {
    return korvane::historyTitle(passwordHistory.size());
}

CharacterOptions PasswordGeneratorView::options() const {
    const auto when = [](bool isIncluded, CharacterOptions option) {
        return isIncluded ? option : CharacterOptions{};
    };
    return when(includeUppercase, CharacterOptions::uppercase) |
           when(includeLowercase, CharacterOptions::lowercase) |
           when(includeNumbers, CharacterOptions::numbers) | when(includeSymbols, CharacterOptions::symbols);
}

void PasswordGeneratorView::addToHistory(std::string password,
                                         const Context<PasswordGeneratorView>& context) {
    const auto strength = PasswordGenerator::calculateStrength(password);
    korvane::addToHistory(
        passwordHistory,
        {.password = std::move(password), .timestamp = context.services.clock.now(), .strength = strength},
        historyLimit);
}

} // namespace korvane
