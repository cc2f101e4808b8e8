/// An output of the image library that writes into shared memory. For uncompressed formats this avoids a copy
/// of the whole picture.
#pragma once

#include "Utilities/Images/SharedBytes.h"

#include <cstddef>

#include <vips/vips8>

namespace korvane {

class ByteTarget {
public:
    /// `expectedSize` is the estimated number of bytes; it reserves address space, not memory.
    explicit ByteTarget(std::size_t expectedSize);

    ByteTarget(const ByteTarget&) = delete;
    ByteTarget& operator=(const ByteTarget&) = delete;

    vips::VTarget target() const { return m_target; }

    /// What has been written.
    SharedBuffer& bytes() { return m_bytes; }

private:
    static gint64 write(VipsTargetCustom*, const void* data, gint64 size, ByteTarget* self);
    static gint64 read(VipsTargetCustom*, void* data, gint64 size, ByteTarget* self);
    static gint64 seek(VipsTargetCustom*, gint64 offset, int whence, ByteTarget* self);

    SharedBuffer m_bytes;
    std::size_t m_position = 0;
    vips::VTarget m_target;
};

} // namespace korvane
