/// Memory that a JSON document allocates in small pieces and frees all at once. It holds trivially
/// destructible data only: no destructors are called.
#pragma once

#include "Utilities/JSON/JSONBlock.h"
#include "Utilities/LargePages.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

namespace korvane::JSON {

class Arena {
public:
    /// Uninitialised memory for `count` objects, valid for the life of the arena.
    template <typename T>
    std::span<T> allocate(std::size_t count) {
        static_assert(std::is_trivially_destructible_v<T> && alignof(T) <= alignment);
        return {static_cast<T*>(allocateBytes(count * sizeof(T))), count};
    }

    /// A copy of `text` that lives as long as the arena, padded by a block after its end.
    std::string_view store(std::string_view text) {
        const auto copy = allocate<char>(text.size() + Block::size);
        std::copy(text.begin(), text.end(), copy.begin());
        return {copy.data(), text.size()};
    }

private:
    static constexpr std::size_t alignment = 8;
    static constexpr std::size_t firstChunkSize = std::size_t{4} << 10;
    static constexpr std::size_t maxChunkSize = std::size_t{16} << 20;
    static constexpr std::size_t growth = 8;

    void* allocateBytes(std::size_t size) {
        size = (size + alignment - 1) / alignment * alignment;
        if (size > m_free)
            addChunk(size);
        auto* const bytes = m_next;
        m_next += size;
        m_free -= size;
        return bytes;
    }

    void addChunk(std::size_t size) {
        const auto chunkSize = std::max(size, m_chunkSize);
        m_chunks.push_back(allocateLarge(chunkSize));
        m_next = m_chunks.back().get();
        m_free = chunkSize;
        m_chunkSize = std::min(growth * m_chunkSize, maxChunkSize);
    }

    std::vector<LargeMemory> m_chunks;
    std::byte* m_next = nullptr;
    std::size_t m_free = 0;
    std::size_t m_chunkSize = firstChunkSize;
};

} // namespace korvane::JSON
