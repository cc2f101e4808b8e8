/// A file descriptor that is closed by its owner's destructor.
#pragma once

#include <utility>

#include <unistd.h>

namespace korvane {

class FileDescriptor {
public:
    FileDescriptor() = default;

    /// Takes ownership of `number`; negative numbers, which failed calls return, mean none.
    explicit FileDescriptor(int number) : m_number(number) {}

    FileDescriptor(FileDescriptor&& other) noexcept : m_number(other.release()) {}

    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }

    ~FileDescriptor() {
        if (isOpen())
            ::close(m_number);
    }

    bool isOpen() const { return m_number >= 0; }

    int number() const { return m_number; }

    /// The number, which the caller then owns.
    int release() { return std::exchange(m_number, -1); }

private:
    int m_number = -1;
};

} // namespace korvane
