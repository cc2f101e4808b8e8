#include "Utilities/UUID.h"

#include "Utilities/Random.h"

#include <bit>
#include <cstring>
#include <memory>
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

LazyUUID::LazyUUID(const LazyUUID& other) : m_uuid(new UUID(other())) {}

LazyUUID::LazyUUID(LazyUUID&& other) noexcept
    : m_uuid(other.m_uuid.exchange(nullptr, std::memory_order_relaxed)) {}

LazyUUID& LazyUUID::operator=(LazyUUID other) noexcept {
    other.m_uuid = m_uuid.exchange(other.m_uuid);
    return *this;
}

LazyUUID::~LazyUUID() {
    delete m_uuid.load(std::memory_order_relaxed);
}

const UUID& LazyUUID::operator()() const {
    if (const auto* uuid = m_uuid.load(std::memory_order_acquire))
        return *uuid;
    auto generated = std::make_unique<const UUID>(UUID::random());
    const UUID* current = nullptr;
    if (m_uuid.compare_exchange_strong(current, generated.get(), std::memory_order_acq_rel))
        return *generated.release();
    return *current; // another thread was first
}

bool LazyUUID::operator==(const LazyUUID& other) const {
    // Nothing equals a UUID that is still to be generated, except itself.
    const auto* left = m_uuid.load(std::memory_order_acquire);
    const auto* right = other.m_uuid.load(std::memory_order_acquire);
    return this == &other || (left && right && *left == *right);
}

} // namespace korvane

std::size_t std::hash<korvane::UUID>::operator()(const korvane::UUID& uuid) const noexcept {
    std::size_t value = 0;
    std::memcpy(&value, uuid.bytes.data(), sizeof value); // the bytes are already random
    return value;
}
