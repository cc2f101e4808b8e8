/// Universally unique identifiers (RFC 9562), used as row identities and generated for users.
#pragma once

#include <array>
#include <atomic>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace korvane {

struct UUID {
    std::array<std::uint8_t, 16> bytes{}; ///< in network order

    /// A new version 4 UUID: 122 random bits, about 50 ns.
    static UUID random();

    /// The canonical form in upper case: 32 hexadecimal digits in groups of 8, 4, 4, 4 and 12, with hyphens
    /// between them.
    std::string text() const;

    auto operator<=>(const UUID&) const = default;
};

/// The identity of a value: a random UUID that is generated when it is first requested. Until then it takes
/// the room of a pointer and no time, so ten million values may have one each. Copies have the same UUID, so
/// copying generates it; moving transfers it, and leaves a new identity behind. A constant one may be used
/// from several threads.
class LazyUUID {
public:
    LazyUUID() = default;
    LazyUUID(const LazyUUID& other);
    LazyUUID(LazyUUID&& other) noexcept;
    LazyUUID& operator=(LazyUUID other) noexcept;
    ~LazyUUID();

    /// The UUID, always the same one.
    const UUID& operator()() const;

    /// Whether both have the same UUID. Generates none.
    bool operator==(const LazyUUID& other) const;

private:
    mutable std::atomic<const UUID*> m_uuid = nullptr; ///< owned; null until it is requested
};

} // namespace korvane

template <>
struct std::hash<korvane::UUID> {
    std::size_t operator()(const korvane::UUID& uuid) const noexcept;
};
