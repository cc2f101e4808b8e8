#include "Images/ByteTarget.h"

#include <algorithm>
#include <cstdio>
#include <new>
#include <string_view>

namespace korvane {

ByteTarget::ByteTarget(std::size_t expectedSize)
    : m_target(reinterpret_cast<VipsTarget*>(vips_target_custom_new())) {
    m_bytes.reserve(expectedSize);
    auto* target = m_target.get_target();
    g_signal_connect(target, "write", G_CALLBACK(write), this);
    g_signal_connect(target, "read", G_CALLBACK(read), this);
    g_signal_connect(target, "seek", G_CALLBACK(seek), this);
}

gint64 ByteTarget::write(VipsTargetCustom*, const void* data, gint64 size, ByteTarget* self) {
    const std::string_view bytes(static_cast<const char*>(data), static_cast<std::size_t>(size));
    try {
        const auto end = self->m_position + bytes.size();
        if (end > self->m_bytes.size())
            self->m_bytes.resize(end);
        std::ranges::copy(bytes, self->m_bytes.data() + self->m_position);
    } catch (const std::bad_alloc&) { // exceptions must not pass through the library
        return -1;
    }
    self->m_position += bytes.size();
    return size;
}

gint64 ByteTarget::read(VipsTargetCustom*, void* data, gint64 size, ByteTarget* self) {
    const auto count = std::min(static_cast<std::size_t>(size), self->m_bytes.size() - self->m_position);
    std::copy_n(self->m_bytes.data() + self->m_position, count, static_cast<char*>(data));
    self->m_position += count;
    return static_cast<gint64>(count);
}

gint64 ByteTarget::seek(VipsTargetCustom*, gint64 offset, int whence, ByteTarget* self) {
    const auto start = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? self->m_position : self->m_bytes.size();
    const auto position = static_cast<gint64>(start) + offset;
    if (position < 0)
        return -1;
    self->m_position = static_cast<std::size_t>(position);
    try {
        if (self->m_position > self->m_bytes.size())
            self->m_bytes.resize(self->m_position);
    } catch (const std::bad_alloc&) {
        return -1;
    }
    return position;
}

} // namespace korvane
