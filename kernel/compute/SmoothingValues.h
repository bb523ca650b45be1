#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"
#include "kernel/storage/HiddenSlots.h"

#include <atomic>
#include <type_traits>

namespace veldraw::kernel {

/// The values that a smoothing starts from, as doubles or floats, and the new ones, each rounded to the type of the old ones once.
///
/// A value that is hidden or no finite number is a hole: it reads as NaN, and keeps its bits. Whole numbers are rounded to
/// nearest and cut to the limits of their type; a bit is 1 from 0.5 on.
///
///     SmoothingValues values(old, hidden);
///     values.examine(0, count); // all that will be read
///     values.read(first, length, numbers);
///     ...
///     values.store(first, length, numbers); // each value once
///     auto const result = values.take();
///
/// Threads may examine, read and store different values at a time.
class SmoothingValues
{
public:
    /// @param hidden slots that are left out; null for none
    /// @throws std::bad_alloc, NotEnoughMemory
    SmoothingValues(std::shared_ptr<Buffer const> old, std::shared_ptr<HiddenSlots const> hidden);

    /// Looks for holes in @p count values from the zero-based slot @p first on. All that is read is to be examined before.
    void examine(std::int64_t first, std::int64_t count);

    bool hasHoles() const { return m_leftOut > 0; }
    bool isHole(std::int64_t slot) const;

    /// Whether values and sums of some are floats.
    bool fitSingle() const { return m_old->type() == FieldDataType_Float && !m_hasLarge; }

    void read(std::int64_t first, std::int64_t count, double* values) const;
    void read(std::int64_t first, std::int64_t count, float* values) const; ///< where they fitSingle()
    double read(std::int64_t slot) const;

    /// Stores new values; NaN where the old one stays.
    void store(std::int64_t first, std::int64_t count, double const* values);
    void store(std::int64_t first, std::int64_t count, float const* values); ///< where they fitSingle()

    /// The array of the new values where they are Numbers, float or double, else null. It is free for anything until the first is stored.
    template <typename Number>
    Number* newValues()
    {
        constexpr FieldDataType_e type = std::is_same_v<Number, float> ? FieldDataType_Float : FieldDataType_Double;
        return m_new->type() == type ? static_cast<Number*>(m_new->mutableData()) : nullptr;
    }

    /// A number in the unit of the values that are read, in that of the variable.
    double inUnits(double number) const { return number / scale(); }

    std::int64_t leftOutCount() const { return m_leftOut; } ///< holes
    std::int64_t changedCount() const { return m_changed; } ///< new values that are other numbers than the old ones
    std::int64_t cutCount() const { return m_cut; }         ///< new values that were beyond the limits of their type

    bool isOfWholeNumbers() const;

    /// Memory for the new values, which is not in use before they are stored.
    double promisedBytes() const { return bytesOfNew(*m_old); }

    /// The new values. @throws Interrupted, std::bad_alloc
    std::shared_ptr<Buffer> take(Progress& progress);

private:
    static double bytesOfNew(Buffer const& old);
    static std::shared_ptr<Buffer> makeNew(Buffer const& old);

    template <typename Number>
    void markHoles(std::int64_t first, std::int64_t count, Number* values) const;

    template <typename Element>
    void storeAs(std::int64_t first, std::int64_t count, double const* values);

    /// Below 1 where sums of the values would be infinite otherwise.
    double scale() const { return m_hasHuge ? 0x1p-30 : 1.0; }

    std::shared_ptr<Buffer const> m_old;
    std::shared_ptr<HiddenSlots const> m_hidden;
    std::shared_ptr<Buffer> m_new; ///< bits as bytes, since two threads must not write to the same byte
    std::atomic<bool> m_hasHuge{false};
    std::atomic<bool> m_hasLarge{false}; ///< beyond what sums of floats hold
    std::atomic<std::int64_t> m_leftOut{0};
    std::atomic<std::int64_t> m_changed{0};
    std::atomic<std::int64_t> m_cut{0};
};

} // namespace veldraw::kernel
