/// Bytes in anonymous files of the kernel (memfd), which another process can read without a copy:
/// `SharedBuffer` while they are written, and `SharedBytes` from then on. The latter are sealed: no process
/// that has them can change or truncate them, so they can be checked once and then be relied upon.
#pragma once

#include "Utilities/Images/FileDescriptor.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace korvane {

/// Immutable bytes in sealed memory. Copies share it and cost nothing; two are equal only if they share it.
class SharedBytes {
public:
    /// No bytes.
    SharedBytes() = default;

    /// A sealed copy of `bytes`. Throws `std::bad_alloc` if memory does not suffice.
    static SharedBytes copyOf(std::string_view bytes);

    /// The memory behind a descriptor that another process sent; none unless it is sealed completely,
    /// contains exactly `size` bytes, at least one, and can be mapped.
    static std::optional<SharedBytes> adopt(FileDescriptor descriptor, std::size_t size);

    /// The `size` bytes at `bytes`: the shared memory that they are the content of, or else a copy, which can
    /// throw `std::bad_alloc`.
    static SharedBytes of(const std::shared_ptr<const std::byte>& bytes, std::size_t size);

    std::size_t size() const { return m_size; }

    bool empty() const { return m_size == 0; }

    /// Without a terminating zero.
    std::string_view view() const { return {reinterpret_cast<const char*>(m_bytes.get()), m_size}; }

    operator std::string_view() const { return view(); } // NOLINT(google-explicit-constructor)

    /// The bytes, which keep the memory. `of` finds it again.
    const std::shared_ptr<const std::byte>& samples() const { return m_bytes; }

    /// The file descriptor of the memory, which stays this object's; none of no bytes.
    std::optional<int> descriptor() const;

    /// Prepares reading all of them, which is faster than page by page. Has no other effect.
    void willBeRead() const;

    bool operator==(const SharedBytes&) const = default;

private:
    SharedBytes(std::shared_ptr<const std::byte> bytes, std::size_t size)
        : m_bytes(std::move(bytes)), m_size(size) {}

    std::shared_ptr<const std::byte> m_bytes{};
    std::size_t m_size = 0;
};

/// Growing bytes that become `SharedBytes` in the end. Operations that need memory throw `std::bad_alloc` if
/// it does not suffice.
class SharedBuffer {
public:
    SharedBuffer() = default;
    SharedBuffer(const SharedBuffer&) = delete;
    SharedBuffer& operator=(const SharedBuffer&) = delete;
    ~SharedBuffer();

    /// Makes room for `capacity` bytes; pages take memory only once they are written.
    void reserve(std::size_t capacity);

    /// Added bytes are zero, if `size` has never been larger.
    void resize(std::size_t size);

    std::size_t size() const { return m_size; }

    /// The bytes, until the buffer grows.
    char* data() { return m_bytes; }

    void append(std::string_view bytes);
    void append(std::size_t count, char byte);

    /// The bytes, sealed. The buffer is empty afterwards.
    SharedBytes finish();

private:
    void unmap();
    void populate();

    FileDescriptor m_file{};
    char* m_bytes = nullptr;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    std::size_t m_populated = 0; ///< up to here the pages exist
};

} // namespace korvane
