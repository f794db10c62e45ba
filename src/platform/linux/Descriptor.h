#pragma once

#include <utility>

#include <unistd.h>

/// An open file of whatever kind, closed when this ends.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(Descriptor &&other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor() { close(); }

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; } ///< -1 when none is open

    void close()
    {
        if (isOpen())
            ::close(std::exchange(m_number, -1));
    }

private:
    int m_number = -1;
};
