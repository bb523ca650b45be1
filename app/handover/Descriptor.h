#pragma once

#include <unistd.h>
#include <utility>

namespace veldraw::app {

/// An open file of the system, closed with this object.
class Descriptor
{
public:
    Descriptor() = default;

    /// @param number -1 for none
    explicit Descriptor(int number)
        : m_number(number)
    {
    }

    ~Descriptor() { reset(); }

    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }

    Descriptor& operator=(Descriptor&& other) noexcept
    {
        reset(std::exchange(other.m_number, -1));
        return *this;
    }

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

    /// Closes what is open. @param number that takes its place
    void reset(int number = -1)
    {
        if (m_number >= 0)
            ::close(m_number);
        m_number = number;
    }

private:
    int m_number = -1;
};

} // namespace veldraw::app
