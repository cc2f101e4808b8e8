/// Where the image library writes a file: into a growing string, which for a picture that is stored as it is
/// saves a copy of all of it.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include <vips/vips8>

namespace korvane {

class ByteTarget {
public:
    /// `expectedSize` is how many bytes there will probably be; address space, and no memory, is taken for
    /// them.
    explicit ByteTarget(std::size_t expectedSize);

    ByteTarget(const ByteTarget&) = delete;
    ByteTarget& operator=(const ByteTarget&) = delete;

    vips::VTarget target() const { return m_target; }

    /// What has been written. To be called once.
    std::string take() { return std::move(m_bytes); }

private:
    static gint64 write(VipsTargetCustom*, const void* data, gint64 size, ByteTarget* self);
    static gint64 read(VipsTargetCustom*, void* data, gint64 size, ByteTarget* self);
    static gint64 seek(VipsTargetCustom*, gint64 offset, int whence, ByteTarget* self);

    std::string m_bytes;
    std::size_t m_position = 0;
    vips::VTarget m_target;
};

} // namespace korvane
