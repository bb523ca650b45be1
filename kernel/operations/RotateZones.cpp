#include "kernel/operations/RotateZones.h"

#include "kernel/operations/FieldRotation.h"

#include <cmath>

namespace veldraw::kernel {

std::string RotateZones::reasonAgainst() const
{
    std::string reason = AxialOperation::reasonAgainst();
    return reason.empty() && !std::isfinite(m_degrees) ? "The angle must be a finite number." : reason;
}

void RotateZones::compute(Progress& progress)
{
    m_parts.clear();
    FieldRotation rotation(variables(), Rotation(axis(), m_degrees));
    rotation.setDeferred(load());
    m_parts = transformZones(*dataSet(), zones(), rotation, progress);
}

std::shared_ptr<Change> RotateZones::makeChange(EventHub& events)
{
    StateChangeEvent event{StateChange_ValuesAltered, {}, {}, {}, 0};
    auto zone = zones().begin();
    for (FieldReplacement::ZonePart const& part : m_parts) {
        for (NewField const& field : part.fields) {
            event.zones.insert(*zone);
            event.variables.insert(static_cast<int>(field.position) + 1);
        }
        ++zone;
    }
    if (event.zones.empty()) {
        dropRemark();
        return nullptr;
    }
    return std::make_shared<FieldReplacement>(events, std::move(m_parts), std::move(event));
}

CommandText RotateZones::command() const
{
    return withRotation(CommandText("rotate-zones").numbers("zones", zones()).real("angle", m_degrees));
}

} // namespace veldraw::kernel
