#pragma once

#include "kernel/base/ZeroedArray.h"

#include <complex>
#include <memory>
#include <mutex>
#include <vector>

namespace veldraw::kernel {

/// Memory that one spectrum at a time is made in.
struct WorkRoom
{
    ZeroedArray<double> numbers; ///< of a signal, then of its bins
    ZeroedArray<std::complex<double>> others;
};

/// Rooms for threads, which are used again: the first writes to fresh memory take longer than much arithmetic.
class WorkRooms
{
public:
    /// @param length of the signals, @param others how many more numbers the transform needs room for
    WorkRooms(std::int64_t length, std::size_t others)
        : m_length(static_cast<std::size_t>(length))
        , m_others(others)
    {
    }

    /// @throws std::bad_alloc
    std::unique_ptr<WorkRoom> take();
    void giveBack(std::unique_ptr<WorkRoom> room);

private:
    std::size_t m_length;
    std::size_t m_others;
    std::mutex m_mutex;
    std::vector<std::unique_ptr<WorkRoom>> m_free;
};

} // namespace veldraw::kernel
