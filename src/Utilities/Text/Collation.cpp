#include "Utilities/Text/Collation.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

namespace korvane {

namespace {

/// The user's locale, or the root locale in place of POSIX, which would put all capitals first.
icu::Locale collationLocale() {
    const auto& user = icu::Locale::getDefault();
    return std::string_view(user.getVariant()) == "POSIX" ? icu::Locale::getRoot() : user;
}

std::unique_ptr<icu::Collator> caseInsensitiveCollator() {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(collationLocale(), status));
    if (!collator)
        return nullptr;
    collator->setStrength(icu::Collator::SECONDARY);
    collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    return collator;
}

/// A text to sort. The first bytes of its key, as a number, nearly always decide a comparison.
struct SortEntry {
    std::uint64_t prefix;
    std::size_t key; // where the key begins
    std::size_t index;
};

/// The concatenated sort keys of texts. The only zero byte of a key is its last.
class SortKeys {
public:
    SortKeys() : m_collator(caseInsensitiveCollator()) {}

    SortEntry append(std::string_view text, std::size_t index) {
        const auto start = m_bytes.size();
        if (m_collator)
            appendKey(text);
        else // without ICU's collation rules, sorts by code point
            m_bytes.append(text.substr(0, text.find('\0'))).push_back('\0');
        return {.prefix = prefix(start), .key = start, .index = index};
    }

    int compare(const SortEntry& a, const SortEntry& b) const {
        if (a.prefix != b.prefix)
            return a.prefix < b.prefix ? -1 : 1;
        return std::strcmp(m_bytes.data() + a.key, m_bytes.data() + b.key);
    }

private:
    void appendKey(std::string_view text) {
        constexpr std::size_t overhead = 16; // of a key, besides about two bytes a character
        const auto start = m_bytes.size();
        m_text = icu::UnicodeString::fromUTF8(
            icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
        m_bytes.resize(start + 2 * text.size() + overhead);
        auto length = writeKey(start);
        if (start + length > m_bytes.size()) {
            m_bytes.resize(start + length);
            length = writeKey(start);
        }
        m_bytes.resize(start + length);
    }

    /// Writes as much of the key as fits, and returns its full length.
    std::size_t writeKey(std::size_t start) {
        const auto room = static_cast<std::int32_t>(m_bytes.size() - start);
        auto* bytes = reinterpret_cast<std::uint8_t*>(m_bytes.data() + start);
        return static_cast<std::size_t>(m_collator->getSortKey(m_text, bytes, room));
    }

    std::uint64_t prefix(std::size_t start) const {
        std::uint64_t bytes = 0;
        for (std::size_t i = 0; i < sizeof bytes; ++i) {
            const auto at = start + i;
            bytes = bytes << 8 | (at < m_bytes.size() ? static_cast<unsigned char>(m_bytes[at]) : 0);
        }
        return bytes;
    }

    std::unique_ptr<icu::Collator> m_collator;
    icu::UnicodeString m_text;
    std::string m_bytes;
};

} // namespace

std::vector<std::size_t> localizedCaseInsensitiveOrder(std::span<const std::string_view> texts,
                                                       SortOrder order) {
    SortKeys keys;
    std::vector<SortEntry> entries;
    entries.reserve(texts.size());
    for (const auto text : texts)
        entries.push_back(keys.append(text, entries.size()));
    std::ranges::sort(entries, [&](const SortEntry& a, const SortEntry& b) {
        const auto compared = order == SortOrder::ascending ? keys.compare(a, b) : keys.compare(b, a);
        return compared != 0 ? compared < 0 : a.index < b.index;
    });
    std::vector<std::size_t> indices(entries.size());
    std::ranges::transform(entries, indices.begin(), &SortEntry::index);
    return indices;
}

} // namespace korvane
