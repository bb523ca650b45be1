#pragma once

#include "kernel/base/SystemMemory.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace veldraw::kernel {

/// An array of plain numbers, zero at first, whose memory goes back to the system with it (see allocateZeroed()). A freed
/// vector of some megabytes may stay with the process.
template <typename Element>
class ZeroedArray
{
    static_assert(std::is_trivially_destructible_v<Element>, "nobody destroys the elements");

public:
    ZeroedArray() = default;

    /// @throws std::bad_alloc
    explicit ZeroedArray(std::size_t size)
        : m_size(size)
        , m_memory(allocateZeroed(bytesOf(size)))
    {
    }

    std::size_t size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }

    Element* begin() { return static_cast<Element*>(m_memory.get()); }
    Element* end() { return begin() + m_size; }
    Element const* begin() const { return static_cast<Element const*>(m_memory.get()); }
    Element const* end() const { return begin() + m_size; }

    Element& operator[](std::size_t index) { return begin()[index]; }
    Element const& operator[](std::size_t index) const { return begin()[index]; }

    /// The other one is empty then.
    ZeroedArray(ZeroedArray&& other) noexcept
        : m_size(std::exchange(other.m_size, 0))
        , m_memory(std::move(other.m_memory))
    {
    }

    ZeroedArray& operator=(ZeroedArray&& other) noexcept
    {
        m_size = std::exchange(other.m_size, 0);
        m_memory = std::move(other.m_memory);
        return *this;
    }

private:
    static std::int64_t bytesOf(std::size_t size)
    {
        if (size > static_cast<std::size_t>(std::numeric_limits<std::int64_t>::max()) / sizeof(Element)) {
            throw std::bad_array_new_length();
        }
        return static_cast<std::int64_t>(size * sizeof(Element));
    }

    std::size_t m_size = 0;
    std::shared_ptr<void> m_memory;
};

} // namespace veldraw::kernel
