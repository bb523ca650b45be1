#include "kernel/operations/InterpolatedField.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/SystemMemory.h"
#include "kernel/compute/CopyValues.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

std::shared_ptr<Buffer> converted(Buffer const& source, FieldDataType_e type, Progress const& progress)
{
    std::shared_ptr<Buffer> const result = Buffer::allocate(type, source.size());
    parallelFor(source.size(), [&](std::int64_t first, std::int64_t last, std::int64_t) {
        progress.check();
        for (std::int64_t slot = first; slot < last; ++slot) {
            result->setBits(slot, source.bits(slot));
        }
    });
    return result;
}

} // namespace

InterpolatedField::InterpolatedField(DeferredLoad const& load, Zone const& zone, int variable,
                                     FieldDataType_e passiveType, Progress& progress)
    : m_variable(variable)
    , m_location(zone.fields[static_cast<std::size_t>(variable - 1)].location())
{
    Field const& field = zone.fields[static_cast<std::size_t>(variable - 1)];
    m_type = field.isPassive() ? passiveType : field.type();
    if (field.isPassive()) {
        std::int64_t const count = load.valueCount(zone, m_location);
        requireMemory(static_cast<double>(Buffer::bytesOf(m_type, count)));
        m_values = Buffer::allocate(m_type, count);
        return;
    }
    std::shared_ptr<Buffer const> const old = load.valuesOf(*field.group());
    m_values = m_type == FieldDataType_Bit ? converted(*old, FieldDataType_Byte, progress) : copyValues(*old, progress);
}

void InterpolatedField::set(std::int64_t slot, double value)
{
    double stored = value;
    if (std::isfinite(value)) {
        double const whole = isOfWholeNumbers() ? std::round(value) : value;
        stored = std::clamp(whole, leastOf(m_type), largestOf(m_type));
        if (stored < whole || stored > whole) {
            ++m_cutCount;
        }
    }
    m_values->setValue(slot, stored);
}

NewField InterpolatedField::take(Progress const& progress)
{
    std::shared_ptr<Buffer> values = std::move(m_values);
    if (m_type == FieldDataType_Bit) {
        values = converted(*values, FieldDataType_Bit, progress);
    }
    return {static_cast<std::size_t>(m_variable - 1), Field(std::make_shared<ShareGroup>(values), m_location)};
}

} // namespace veldraw::kernel
