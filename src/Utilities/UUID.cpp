#include "Utilities/UUID.h"

#include "Utilities/Random.h"

#include <bit>
#include <cstring>
#include <string_view>

namespace korvane {

UUID UUID::random() {
    auto uuid = std::bit_cast<UUID>(std::array{nextRandom(), nextRandom()});
    uuid.bytes[6] = static_cast<std::uint8_t>((uuid.bytes[6] & 0x0F) | 0x40); // version 4
    uuid.bytes[8] = static_cast<std::uint8_t>((uuid.bytes[8] & 0x3F) | 0x80); // the RFC's variant
    return uuid;
}

std::string UUID::text() const {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(36);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0x0F];
    }
    return text;
}

} // namespace korvane

std::size_t std::hash<korvane::UUID>::operator()(const korvane::UUID& uuid) const noexcept {
    std::size_t value = 0;
    std::memcpy(&value, uuid.bytes.data(), sizeof value); // the bytes are already random
    return value;
}
