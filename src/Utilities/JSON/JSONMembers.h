/// Sorts an object's members by name in ascending order, and keeps each name once.
#pragma once

#include "Utilities/JSON/JSON.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace korvane::JSON {

/// The maximum number of members of a small object. Caching orders does not pay off above.
inline constexpr std::size_t maxSmallObjectSize = 32;

/// Sorts the members of all objects of one document. Many objects have the same shape, so it first tries the
/// order of the previous object with as many members.
class MemberSorter {
public:
    /// The members given by the alternating `namesAndValues`, sorted, in memory of the arena. Of members with
    /// the same name, the last is kept.
    std::span<const Member> sorted(std::span<const Value> namesAndValues, Arena& arena);

    /// The dropped members of all objects so far.
    const DuplicateNames& duplicateNames() const { return m_duplicateNames; }

private:
    using Order = std::array<std::uint8_t, maxSmallObjectSize>;

    std::size_t sortLarge(std::span<const Value> namesAndValues, std::span<Member> members);
    std::size_t sortSmall(std::span<const Value> namesAndValues, std::span<Member> members);

    void noteDuplicate(std::string_view name);

    std::array<Order, maxSmallObjectSize + 1> m_orders{}; ///< by the number of members; initially zeros
    DuplicateNames m_duplicateNames{};
};

} // namespace korvane::JSON
