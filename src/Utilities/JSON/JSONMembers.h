/// The one order of an object's members, whatever order a text had them in: ascending by name, each name
/// once.
#pragma once

#include "Utilities/JSON/JSON.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace korvane::JSON {

/// Most objects have at most so many members. Remembering orders does not pay above.
inline constexpr std::size_t maxSmallObjectSize = 32;

/// Arranges the objects of one document. Documents are full of objects of the same shape, so it first tries
/// the order that the last object with as many members needed.
class MemberSorter {
public:
    /// The members that `namesAndValues`, by turns, stand for, in their order, and in memory of the arena. Of
    /// members with the same name the last one remains.
    std::span<const Member> sorted(std::span<const Value> namesAndValues, Arena& arena);

    /// What has not remained, of all objects so far.
    const DuplicateNames& duplicateNames() const { return m_duplicateNames; }

private:
    using Order = std::array<std::uint8_t, maxSmallObjectSize>;

    std::size_t sortLarge(std::span<const Value> namesAndValues, std::span<Member> members);
    std::size_t sortSmall(std::span<const Value> namesAndValues, std::span<Member> members);

    void noteDuplicate(std::string_view name);

    std::array<Order, maxSmallObjectSize + 1>
        m_orders{}; ///< by the number of members; all zeros fit no object
    DuplicateNames m_duplicateNames{};
};

} // namespace korvane::JSON
