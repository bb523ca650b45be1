#include "kernel/compute/SmoothingValues.h"

#include "kernel/base/SystemMemory.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

namespace veldraw::kernel {

namespace {

constexpr double huge = 0x1p970; // a million times it is finite
constexpr double largeFloat = 0x1p107;

/// The new number for an element, as the element will have it; it may be cut.
template <typename Element>
double fitting(double value, bool& isCut)
{
    constexpr double low = static_cast<double>(std::numeric_limits<Element>::lowest());
    constexpr double high = static_cast<double>(std::numeric_limits<Element>::max());
    double const whole = std::is_integral_v<Element> ? std::round(value) : value;
    isCut = whole < low || whole > high;
    return static_cast<double>(static_cast<Element>(std::clamp(whole, low, high)));
}

void readFloats(Buffer const& buffer, std::int64_t first, std::int64_t count, float* values)
{
    std::int64_t const stride = buffer.stride();
    auto const* const elements = static_cast<float const*>(buffer.data()) + first * stride;
    if (stride == 1) {
        std::copy_n(elements, count, values);
        return;
    }
    for (std::int64_t at = 0; at < count; ++at) {
        values[at] = elements[at * stride];
    }
}

/// Stores values, or the old one where the new one is the same number or no number. @return how many are other numbers
std::int64_t takeOver(float const* __restrict values, float const* __restrict old, std::int64_t count,
                      float* __restrict results)
{
    std::int32_t changed = 0;
    for (std::int64_t at = 0; at < count; ++at) {
        bool const isOther = values[at] < old[at] || values[at] > old[at];
        results[at] = isOther ? values[at] : old[at];
        changed += isOther ? 1 : 0;
    }
    return changed;
}

/// A bit as a byte.
struct Flag
{
};

template <>
double fitting<Flag>(double value, bool& isCut)
{
    double const whole = std::round(value);
    isCut = whole < 0.0 || whole > 1.0;
    return whole >= 1.0 ? 1.0 : 0.0;
}

template <typename Element>
struct StoredAs
{
    using Type = Element;
};

template <>
struct StoredAs<Flag>
{
    using Type = unsigned char;
};

} // namespace

SmoothingValues::SmoothingValues(std::shared_ptr<Buffer const> old, std::shared_ptr<HiddenSlots const> hidden)
    : m_old(std::move(old))
    , m_hidden(std::move(hidden))
    , m_new(makeNew(*m_old))
{
}

/// Bits take a byte each at first.
double SmoothingValues::bytesOfNew(Buffer const& old)
{
    std::int64_t const bytes = old.type() == FieldDataType_Bit ? old.size() + old.bytes() : old.bytes();
    return static_cast<double>(bytes);
}

std::shared_ptr<Buffer> SmoothingValues::makeNew(Buffer const& old)
{
    requireMemory(bytesOfNew(old));
    return Buffer::allocate(old.type() == FieldDataType_Bit ? FieldDataType_Byte : old.type(), old.size());
}

bool SmoothingValues::isOfWholeNumbers() const
{
    return m_old->type() != FieldDataType_Float && m_old->type() != FieldDataType_Double;
}

bool SmoothingValues::isHole(std::int64_t slot) const
{
    return (m_hidden && m_hidden->contains(slot)) || !std::isfinite(m_old->value(slot));
}

void SmoothingValues::examine(std::int64_t first, std::int64_t count)
{
    if (isOfWholeNumbers() && !m_hidden) {
        return;
    }
    std::int64_t holes = 0;
    double largest = 0.0;
    for (std::int64_t begin = first; begin < first + count; begin += blockSize) {
        double values[blockSize];
        std::int64_t const size = std::min(blockSize, first + count - begin);
        readBlock(*m_old, begin, size, values);
        for (std::int64_t at = 0; at < size; ++at) {
            bool const isNumber = std::fabs(values[at]) <= std::numeric_limits<double>::max();
            holes += isNumber ? 0 : 1;
            largest = isNumber && std::fabs(values[at]) > largest ? std::fabs(values[at]) : largest;
        }
        for (std::int64_t at = 0; m_hidden && at < size; ++at) {
            holes += m_hidden->contains(begin + at) && std::isfinite(values[at]) ? 1 : 0;
        }
    }
    m_leftOut += holes;
    if (largest > huge) {
        m_hasHuge = true;
    }
    if (largest > largeFloat) {
        m_hasLarge = true;
    }
}

double SmoothingValues::read(std::int64_t slot) const
{
    return isHole(slot) ? std::numeric_limits<double>::quiet_NaN() : m_old->value(slot) * scale();
}

void SmoothingValues::read(std::int64_t first, std::int64_t count, double* values) const
{
    readBlock(*m_old, first, count, values);
    if (m_hasHuge) {
        std::transform(values, values + count, values, [this](double value) { return value * scale(); });
    }
    markHoles(first, count, values);
}

void SmoothingValues::read(std::int64_t first, std::int64_t count, float* values) const
{
    readFloats(*m_old, first, count, values);
    markHoles(first, count, values);
}

template <typename Number>
void SmoothingValues::markHoles(std::int64_t first, std::int64_t count, Number* values) const
{
    if (!hasHoles()) {
        return;
    }
    constexpr Number nothing = std::numeric_limits<Number>::quiet_NaN();
    std::replace_if(
        values, values + count, [](Number value) { return !std::isfinite(value); }, nothing);
    for (std::int64_t at = 0; m_hidden && at < count; ++at) {
        values[at] = m_hidden->contains(first + at) ? nothing : values[at];
    }
}

template <typename Element>
void SmoothingValues::storeAs(std::int64_t first, std::int64_t count, double const* values)
{
    using Stored = typename StoredAs<Element>::Type;
    double old[blockSize];
    readBlock(*m_old, first, count, old);
    auto* const elements = static_cast<Stored*>(m_new->mutableData()) + first;
    double const toRead = scale();
    double const unit = 1.0 / toRead;
    std::int64_t changed = 0;
    std::int64_t cut = 0;
    for (std::int64_t at = 0; at < count; ++at) {
        if (std::isnan(values[at])) {
            m_new->setBits(first + at, m_old->bits(first + at));
            continue;
        }
        bool isCut = false;
        double const value = fitting<Element>(values[at] * unit, isCut);
        // An equal value keeps its bits: scaled it may have lost some, and it may be zero with the other sign.
        bool const isEqual = values[at] == old[at] * toRead || value == old[at];
        elements[at] = static_cast<Stored>(isEqual ? old[at] : value);
        changed += isEqual ? 0 : 1;
        cut += isCut ? 1 : 0;
    }
    m_changed += changed;
    m_cut += cut;
}

void SmoothingValues::store(std::int64_t first, std::int64_t count, double const* values)
{
    for (std::int64_t done = 0; done < count; done += blockSize) {
        std::int64_t const size = std::min(blockSize, count - done);
        switch (m_old->type()) {
        case FieldDataType_Float:
            storeAs<float>(first + done, size, values + done);
            break;
        case FieldDataType_Double:
            storeAs<double>(first + done, size, values + done);
            break;
        case FieldDataType_Int32:
            storeAs<std::int32_t>(first + done, size, values + done);
            break;
        case FieldDataType_Int16:
            storeAs<std::int16_t>(first + done, size, values + done);
            break;
        case FieldDataType_Byte:
            storeAs<std::uint8_t>(first + done, size, values + done);
            break;
        case FieldDataType_Bit:
            storeAs<Flag>(first + done, size, values + done);
            break;
        }
    }
}

void SmoothingValues::store(std::int64_t first, std::int64_t count, float const* values)
{
    auto* const elements = static_cast<float*>(m_new->mutableData()) + first;
    for (std::int64_t done = 0; done < count; done += blockSize) {
        float old[blockSize];
        std::int64_t const size = std::min(blockSize, count - done);
        readFloats(*m_old, first + done, size, old);
        m_changed += takeOver(values + done, old, size, elements + done);
    }
}

std::shared_ptr<Buffer> SmoothingValues::take(Progress& progress)
{
    if (m_old->type() != FieldDataType_Bit) {
        return std::move(m_new);
    }
    std::shared_ptr<Buffer> bits = Buffer::allocate(FieldDataType_Bit, m_new->size());
    Progress packing(progress, 0);
    forEachBlock(bits->size(), packing, [&](std::int64_t first, std::int64_t count) { // of whole bytes
        for (std::int64_t slot = first; slot < first + count; ++slot) {
            bits->setBits(slot, m_new->bits(slot));
        }
    });
    return bits;
}

} // namespace veldraw::kernel
