#include "kernel/operations/FieldTransformation.h"

#include "kernel/base/SystemMemory.h"

namespace veldraw::kernel {

namespace {

/// Whoever asks first on the user-interface thread would wait for a hundredth of a second or more. With fewer values nobody notices, and the
/// operation need not go through them.
constexpr std::int64_t many = std::int64_t{1} << 25;

void findLargeRanges(std::vector<FieldReplacement::ZonePart> const& parts, Progress const& progress)
{
    for (FieldReplacement::ZonePart const& part : parts) {
        for (NewField const& made : part.fields) {
            ShareGroup const* const group = made.field.group().get();
            bool const isWanted = group != nullptr && group->size() >= many && !group->knownRange().isKnown();
            if (isWanted && !part.zone->isDeferred()) {
                group->range(part.zone->countedValues(made.field.location()), &progress);
            }
        }
    }
}

} // namespace

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
    findLargeRanges(parts, progress);
    return parts;
}

} // namespace veldraw::kernel
