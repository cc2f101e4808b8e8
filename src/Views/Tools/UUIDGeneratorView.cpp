#include "Views/Tools/UUIDGeneratorView.h"

#include "Views/Components/History.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace korvane {

void UUIDGeneratorView::appear(const Context<UUIDGeneratorView>& context) {
    addToHistory(currentUUID, context);
}

void UUIDGeneratorView::generateNew(const Context<UUIDGeneratorView>& context) {
    currentUUID = UUID::random().text();
    addToHistory(currentUUID, context);
}

void UUIDGeneratorView::generateBulk(const Context<UUIDGeneratorView>& context) {
    for (int i = 0; i < bulkCount; ++i)
        addToHistory(UUID::random().text(), context);
    currentUUID = uuidHistory.front().value;
}

void UUIDGeneratorView::copyAllHistory(const Context<UUIDGeneratorView>& context) const {
    context.services.clipboard.setText(
        historyText(uuidHistory, [this](const UUIDEntry& entry) { return format(entry.value); }));
}

void UUIDGeneratorView::setBulkCount(int count) {
    bulkCount = std::clamp(count, minBulkCount, maxBulkCount);
}

std::string UUIDGeneratorView::format(std::string_view uuid) const {
    std::string text(uuid);
    if (!includeHyphens)
        std::erase(text, '-');
    if (!uppercased) {
        for (auto& character : text) {
            if (character >= 'A' && character <= 'F')
                character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return text;
}

std::string UUIDGeneratorView::bulkTitle() const {
    return fmt::format("Generate {}", bulkCount);
}

std::string UUIDGeneratorView::historyTitle() const {
    return korvane::historyTitle(uuidHistory.size());
}

void UUIDGeneratorView::addToHistory(std::string value, const Context<UUIDGeneratorView>& context) {
    korvane::addToHistory(uuidHistory, {.value = std::move(value), .timestamp = context.services.clock.now()},
                          historyLimit);
}

} // namespace korvane
