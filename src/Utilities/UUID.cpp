#include "Utilities/UUID.h"

#include "Utilities/Random.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace korvane {

UUID UUID::random() {
    // One system call serves 256 identifiers; a call for each would cost ten times as much.
    thread_local std::array<std::uint8_t, 4096> pool{};
    thread_local std::size_t used = pool.size();
    if (used == pool.size()) {
        fillRandom(std::as_writable_bytes(std::span(pool)));
        used = 0;
    }
    UUID uuid;
    std::copy_n(pool.begin() + static_cast<std::ptrdiff_t>(used), uuid.bytes.size(), uuid.bytes.begin());
    used += uuid.bytes.size();
    uuid.bytes[6] = static_cast<std::uint8_t>((uuid.bytes[6] & 0x0F) | 0x40); // version 4
    uuid.bytes[8] = static_cast<std::uint8_t>((uuid.bytes[8] & 0x3F) | 0x80); // the RFC's variant
    return uuid;
}

} // namespace korvane

std::size_t std::hash<korvane::UUID>::operator()(const korvane::UUID& uuid) const noexcept {
    std::size_t value = 0;
    std::memcpy(&value, uuid.bytes.data(), sizeof value); // the bytes are random already
    return value;
}
