/// The state of the UUID screen: random UUIDs, singly or many at once, and the last of them. What is stored
/// is canonical; how it is shown and copied is chosen apart from that.
#pragma once

#include "Utilities/UUID.h"
#include "Views/Services.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct UUIDEntry {
    UUID id = UUID::random(); ///< of the entry itself
    std::string value{};      ///< canonical
    std::chrono::system_clock::time_point timestamp{};

    bool operator==(const UUIDEntry&) const = default;
};

struct UUIDGeneratorView {
    /// Old entries give way to new ones beyond this number.
    static constexpr std::size_t historyLimit = 100;

    static constexpr int minimumBulkCount = 1;
    static constexpr int maximumBulkCount = 100; ///< as many as the history keeps

    std::string currentUUID = UUID::random().text(); ///< canonical
    std::vector<UUIDEntry> uuidHistory{};            ///< newest first
    int bulkCount = 5;
    bool uppercased = true;
    bool includeHyphens = true;

    /// The history begins with the UUID that the screen opens with.
    void appear(const Context<UUIDGeneratorView>& context);

    void generateNew(const Context<UUIDGeneratorView>& context);

    /// Makes `bulkCount` UUIDs; the last one made becomes the current one.
    void generateBulk(const Context<UUIDGeneratorView>& context);

    /// Puts the whole history on the clipboard as it is shown, a line an entry, newest first.
    void copyAllHistory(const Context<UUIDGeneratorView>& context) const;

    void clearHistory() { uuidHistory.clear(); }

    /// The nearest count that is allowed.
    void setBulkCount(int count);

    void setUppercased(bool on) { uppercased = on; }

    void setIncludeHyphens(bool on) { includeHyphens = on; }

    /// A canonical UUID as it is to be shown.
    std::string format(std::string_view uuid) const;

    std::string formattedUUID() const { return format(currentUUID); }

    bool hasHistory() const { return !uuidHistory.empty(); }

    std::string bulkTitle() const;
    std::string historyTitle() const;

    bool operator==(const UUIDGeneratorView&) const = default;

private:
    void addToHistory(std::string value, const Context<UUIDGeneratorView>& context);
};

} // namespace korvane
