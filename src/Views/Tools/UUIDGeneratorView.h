/// The state of the UUID Generator screen: random UUIDs, one or many at a time, and their history. UUIDs are
/// stored in canonical form and formatted when they are shown or copied.
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
    /// Beyond this number, new entries replace the oldest.
    static constexpr std::size_t historyLimit = 100;

    static constexpr int minBulkCount = 1;
    static constexpr int maxBulkCount = 100; ///< as many as the history keeps

    std::string currentUUID = UUID::random().text(); ///< canonical
    std::vector<UUIDEntry> uuidHistory{};            ///< newest first
    int bulkCount = 5;
    bool uppercased = true;
    bool includeHyphens = true;

    /// Adds the UUID that the screen opens with to the history.
    void appear(const Context<UUIDGeneratorView>& context);

    void generateNew(const Context<UUIDGeneratorView>& context);

    /// Generates `bulkCount` UUIDs; the last one becomes the current one.
    void generateBulk(const Context<UUIDGeneratorView>& context);

    /// Copies the whole history as it is shown, one entry per line, newest first.
    void copyAllHistory(const Context<UUIDGeneratorView>& context) const;

    void clearHistory() { uuidHistory.clear(); }

    /// Sets the nearest allowed count.
    void setBulkCount(int count);

    void setUppercased(bool on) { uppercased = on; }

    void setIncludeHyphens(bool on) { includeHyphens = on; }

    /// A canonical UUID in the chosen format.
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
