#include "Utilities/JSON/JSONMembers.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <numeric>
#include <tuple>
#include <vector>

namespace korvane::JSON {

namespace {

/// The first eight bytes of a name as a number with the same order. Shorter names are padded with zeros, so
/// equal numbers do not imply equal names.
std::uint64_t prefixOf(std::string_view name) {
    std::uint64_t prefix = 0;
    if (name.empty())
        return prefix;
    std::memcpy(&prefix, name.data(), sizeof prefix); // every name is padded
    if constexpr (std::endian::native == std::endian::little)
        prefix = __builtin_bswap64(prefix);
    const auto unused = 8 * (sizeof prefix - std::min(name.size(), sizeof prefix));
    return prefix >> unused << unused;
}

/// The names of one small object.
class Names {
public:
    explicit Names(std::span<const Value> namesAndValues) : m_namesAndValues(namesAndValues) {
        for (std::size_t i = 0; i < namesAndValues.size() / 2; ++i)
            m_prefixes[i] = prefixOf(name(i));
    }

    std::string_view name(std::size_t index) const { return m_namesAndValues[2 * index].text(); }

    bool isBefore(std::size_t left, std::size_t right) const {
        if (m_prefixes[left] != m_prefixes[right])
            return m_prefixes[left] < m_prefixes[right];
        return name(left) < name(right);
    }

    bool areAscending(std::span<const std::uint8_t> order) const {
        for (std::size_t i = 1; i < order.size(); ++i) {
            if (!isBefore(order[i - 1], order[i]))
                return false;
        }
        return true;
    }

    /// Insertion sort, which is stable.
    void sort(std::span<std::uint8_t> order) const {
        std::iota(order.begin(), order.end(), std::uint8_t{0});
        for (std::size_t sorted = 1; sorted < order.size(); ++sorted) {
            const auto index = order[sorted];
            auto place = sorted;
            for (; place > 0 && isBefore(index, order[place - 1]); --place)
                order[place] = order[place - 1];
            order[place] = index;
        }
    }

private:
    std::span<const Value> m_namesAndValues;
    std::array<std::uint64_t, maxSmallObjectSize> m_prefixes;
};

} // namespace

std::span<const Member> MemberSorter::sorted(std::span<const Value> namesAndValues, Arena& arena) {
    const auto members = arena.allocate<Member>(namesAndValues.size() / 2);
    const auto count = members.size() <= maxSmallObjectSize ? sortSmall(namesAndValues, members)
                                                            : sortLarge(namesAndValues, members);
    return members.first(count);
}

std::size_t MemberSorter::sortSmall(std::span<const Value> namesAndValues, std::span<Member> members) {
    const Names names(namesAndValues);
    const auto order = std::span(m_orders[members.size()]).first(members.size());
    const bool isKnown = names.areAscending(order);
    if (!isKnown)
        names.sort(order);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const bool isReplaced =
            !isKnown && i + 1 < order.size() && names.name(order[i]) == names.name(order[i + 1]);
        if (isReplaced)
            noteDuplicate(names.name(order[i]));
        else
            std::construct_at(&members[kept++], namesAndValues[2U * order[i]],
                              namesAndValues[2U * order[i] + 1]);
    }
    return kept;
}

std::size_t MemberSorter::sortLarge(std::span<const Value> namesAndValues, std::span<Member> members) {
    struct Entry {
        std::string_view name;
        std::size_t index;
    };

    std::vector<Entry> entries;
    entries.reserve(members.size());
    for (std::size_t i = 0; i < members.size(); ++i)
        entries.push_back({.name = namesAndValues[2 * i].text(), .index = i});
    std::sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
        return std::tie(left.name, left.index) < std::tie(right.name, right.index);
    });
    std::size_t kept = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const bool isReplaced = i + 1 < entries.size() && entries[i].name == entries[i + 1].name;
        if (isReplaced)
            noteDuplicate(entries[i].name);
        else
            std::construct_at(&members[kept++], namesAndValues[2 * entries[i].index],
                              namesAndValues[2 * entries[i].index + 1]);
    }
    return kept;
}

void MemberSorter::noteDuplicate(std::string_view name) {
    if (m_duplicateNames.count++ == 0)
        m_duplicateNames.example = name;
}

} // namespace korvane::JSON
