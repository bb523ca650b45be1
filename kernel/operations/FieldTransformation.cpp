#include "kernel/operations/FieldTransformation.h"

#include "kernel/base/SystemMemory.h"

namespace veldraw::kernel {

std::vector<FieldReplacement::ZonePart> transformZones(DataSet const& dataSet, NumberSet const& zones,
                                                       FieldTransformation& transformation, Progress& progress)
{
    std::vector<FieldReplacement::ZonePart> parts;
    double const available =
        availableMemory(); // before prepare(): small storage takes memory as soon as it is allocated
    for (int const number : zones) {
        progress.check();
        std::shared_ptr<Zone> const zone = dataSet.zone(number);
        parts.push_back({zone, transformation.prepare(*zone)});
        requireMemory(static_cast<double>(transformation.bytes()), available);
    }
    progress.setTotal(progress.done() + transformation.work());
    transformation.compute(progress);
    return parts;
}

} // namespace veldraw::kernel
