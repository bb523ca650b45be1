#pragma once

#include "kernel/base/SystemMemory.h"
#include "kernel/base/ZeroedArray.h"

namespace veldraw::kernel {

/// Makes arrays where the machine has room for them beside memory that is promised to something else: allocated, but not
/// written to yet, so that the system still counts it as available.
class RoomBeside
{
public:
    explicit RoomBeside(double promisedBytes)
        : m_promised(promisedBytes)
    {
    }

    /// @throws NotEnoughMemory
    void require(double bytes) const { requireMemory(m_promised + bytes); }

    /// An array that is to be written to before the next one is made. @throws std::bad_alloc
    template <typename Element>
    ZeroedArray<Element> array(std::int64_t size) const
    {
        require(static_cast<double>(sizeof(Element)) * static_cast<double>(size));
        return ZeroedArray<Element>(static_cast<std::size_t>(size));
    }

private:
    double m_promised;
};

} // namespace veldraw::kernel
