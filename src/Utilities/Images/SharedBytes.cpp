#include "Utilities/Images/SharedBytes.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>

namespace korvane {

namespace {

constexpr unsigned allSeals = F_SEAL_SEAL | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;

// For C libraries older than the kernel's flag.
#ifndef MFD_NOEXEC_SEAL
#define MFD_NOEXEC_SEAL 0x0008U
#endif

/// For C libraries older than the kernel's advice.
#ifndef MADV_POPULATE_READ
#define MADV_POPULATE_READ 22
#define MADV_POPULATE_WRITE 23
#endif

/// Unmaps the memory and closes its file; also recognises a pointer into shared memory.
struct Mapping {
    int descriptor = -1;
    const std::byte* start = nullptr;
    std::size_t size = 0;

    void operator()(const std::byte* bytes) const {
        munmap(const_cast<std::byte*>(bytes), size);
        close(descriptor);
    }
};

FileDescriptor newMemory() {
    FileDescriptor memory(memfd_create("korvane-image", MFD_CLOEXEC | MFD_ALLOW_SEALING | MFD_NOEXEC_SEAL));
    if (!memory.isOpen()) // kernels before 6.3 do not know the last flag
        memory = FileDescriptor(memfd_create("korvane-image", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!memory.isOpen())
        throw std::bad_alloc();
    return memory;
}

bool isSealed(int descriptor) {
    const int seals = fcntl(descriptor, F_GET_SEALS); // fails for other files
    return seals >= 0 && (static_cast<unsigned>(seals) & allSeals) == allSeals;
}

bool hasSize(int descriptor, std::size_t size) {
    return std::cmp_equal(lseek(descriptor, 0, SEEK_END), size);
}

} // namespace

SharedBytes SharedBytes::copyOf(std::string_view bytes) {
    SharedBuffer buffer;
    buffer.append(bytes);
    return buffer.finish();
}

std::optional<SharedBytes> SharedBytes::adopt(FileDescriptor descriptor, std::size_t size) {
    if (size == 0 || !isSealed(descriptor.number()) || !hasSize(descriptor.number(), size))
        return std::nullopt;
    // Private: before Linux 6.7 a sealed file could not be mapped as shared memory, not even to read it.
    auto* start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor.number(), 0);
    if (start == MAP_FAILED)
        return std::nullopt;
    const auto* bytes = static_cast<const std::byte*>(start);
    return SharedBytes({bytes, Mapping{descriptor.release(), bytes, size}}, size);
}

SharedBytes SharedBytes::of(const std::shared_ptr<const std::byte>& bytes, std::size_t size) {
    const auto* mapping = std::get_deleter<Mapping>(bytes);
    if (mapping && mapping->start == bytes.get() && mapping->size == size)
        return {bytes, size};
    return copyOf({reinterpret_cast<const char*>(bytes.get()), size});
}

std::optional<int> SharedBytes::descriptor() const {
    const auto* mapping = std::get_deleter<Mapping>(m_bytes);
    return mapping ? std::optional(mapping->descriptor) : std::nullopt;
}

void SharedBytes::willBeRead() const {
    if (m_size > 0)
        madvise(const_cast<std::byte*>(m_bytes.get()), m_size, MADV_POPULATE_READ);
}

SharedBuffer::~SharedBuffer() {
    unmap();
}

void SharedBuffer::unmap() {
    if (m_bytes)
        munmap(std::exchange(m_bytes, nullptr), m_capacity);
}

void SharedBuffer::reserve(std::size_t capacity) {
    if (capacity <= m_capacity)
        return;
    if (!m_file.isOpen())
        m_file = newMemory();
    if (ftruncate(m_file.number(), static_cast<off_t>(capacity)) != 0)
        throw std::bad_alloc();
    auto* grown = m_bytes ? mremap(m_bytes, m_capacity, capacity, MREMAP_MAYMOVE)
                          : mmap(nullptr, capacity, PROT_READ | PROT_WRITE, MAP_SHARED, m_file.number(), 0);
    if (grown == MAP_FAILED)
        throw std::bad_alloc();
    m_bytes = static_cast<char*>(grown);
    m_capacity = capacity;
}

void SharedBuffer::resize(std::size_t size) {
    constexpr std::size_t minCapacity = 4096;
    if (size > m_capacity)
        reserve(std::max({size, 2 * m_capacity, minCapacity}));
    m_size = size;
    if (size > m_populated)
        populate();
}

/// Has the kernel provide the pages up to the size and some more at once, which takes half as long as one
/// after the other when they are first written. It is also where a lack of memory is noticed without a
/// signal.
void SharedBuffer::populate() {
    constexpr std::size_t step = std::size_t(1) << 20; // a multiple of every page size
    const auto start = m_populated / step * step;
    const auto end = std::min(m_capacity, (m_size + step - 1) / step * step);
    if (madvise(m_bytes + start, end - start, MADV_POPULATE_WRITE) != 0 && errno != EINVAL)
        throw std::bad_alloc(); // kernels before 5.14 do not know the advice
    m_populated = end;
}

void SharedBuffer::append(std::string_view bytes) {
    if (bytes.empty())
        return;
    const auto start = m_size;
    resize(start + bytes.size());
    std::memcpy(m_bytes + start, bytes.data(), bytes.size());
}

void SharedBuffer::append(std::size_t count, char byte) {
    if (count == 0)
        return;
    const auto start = m_size;
    resize(start + count);
    std::memset(m_bytes + start, byte, count);
}

SharedBytes SharedBuffer::finish() {
    if (m_size == 0)
        return {};
    unmap(); // memory that can be written through a mapping cannot be sealed
    m_capacity = m_populated = 0;
    const auto size = std::exchange(m_size, 0);
    const auto file = m_file.number();
    const bool sealed =
        ftruncate(file, static_cast<off_t>(size)) == 0 && fcntl(file, F_ADD_SEALS, allSeals) == 0;
    auto bytes = sealed ? SharedBytes::adopt(std::move(m_file), size) : std::nullopt;
    m_file = {};
    if (!bytes)
        throw std::bad_alloc();
    return *std::move(bytes);
}

} // namespace korvane
