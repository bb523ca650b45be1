#include "kernel/operations/AxialDuplication.h"

#include "kernel/base/MemoryDemand.h"

#include <algorithm>
#include <map>

namespace veldraw::kernel {

AxialDuplication::AxialDuplication(DataSet const& dataSet, NumberSet const& zones, SpatialVariables const& variables,
                                   RotationAxis const& axis, AxialCopies const& copies)
    : m_variables(variables)
    , m_axis(axis)
    , m_spread(copies)
    , m_strands(dataSet)
{
    for (int const number : zones) {
        m_sources.push_back(dataSet.zone(number));
    }
}

std::unique_ptr<FieldRotation> AxialDuplication::rotationOfCopy(int number) const
{
    long double const degrees = m_spread.offset + static_cast<long double>(number) * m_spread.angle;
    auto rotation = std::make_unique<FieldRotation>(m_variables, Rotation(m_axis, degrees));
    if (m_deferred != nullptr) {
        rotation->setDeferred(*m_deferred);
    }
    return rotation;
}

void AxialDuplication::run(Progress& progress)
{
    requireMemoryForAll(progress);
    Rotations rotations;
    std::int64_t work = 0;
    for (int number = 1; number <= m_spread.count; ++number) {
        std::unique_ptr<FieldRotation> rotation = rotationOfCopy(number);
        addCopies(*rotation, progress);
        work += rotation->work();
        if (rotation->work() > 0) {
            rotations.push_back(std::move(rotation));
        }
    }
    progress.setTotal(progress.done() + work);
    for (auto const& rotation : rotations) {
        rotation->compute(progress);
    }
}

void AxialDuplication::requireMemoryForAll(Progress& progress) const
{
    double const available = availableMemory(); // asked before: small storage is in use as soon as it is there
    double most = 0;
    for (int number = 1; number <= std::min(m_spread.count, 2); ++number) { // one of the two may stand on its source
        std::unique_ptr<FieldRotation> const rotation = rotationOfCopy(number);
        double bytes = 0;
        for (auto const& source : m_sources) {
            progress.check();
            rotation->prepare(*source);
            requireMemory(static_cast<double>(rotation->bytes()), available);
            bytes += static_cast<double>(sizeof(Zone) + source->fields.size() * sizeof(Field));
        }
        most = std::max(most, bytes + static_cast<double>(rotation->bytes()));
    }
    requireMemory(most * m_spread.count, available);
}

void AxialDuplication::addCopies(FieldRotation& rotation, Progress& progress)
{
    std::map<int, int> newStrands;
    for (auto const& source : m_sources) {
        progress.check();
        ZoneAddition::Copy copy(source, rotation.prepare(*source));
        if (!m_spread.addToStrands && StrandNumbers::isStrand(source->strand)) {
            auto const [place, isNew] = newStrands.try_emplace(source->strand, 0);
            if (isNew) {
                place->second = m_strands.next();
            }
            copy.zone->strand = place->second;
        }
        m_copies.push_back(std::move(copy));
    }
}

} // namespace veldraw::kernel
