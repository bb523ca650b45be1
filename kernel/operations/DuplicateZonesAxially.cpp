#include "kernel/operations/DuplicateZonesAxially.h"

#include "kernel/base/SystemMemory.h"
#include "kernel/data/TimeStrands.h"
#include "kernel/operations/FieldRotation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace veldraw::kernel {

namespace {

/// Makes the copies of zones that an axial duplication appends.
class AxialDuplication
{
public:
    /// @param zones that exist
    AxialDuplication(DataSet const& dataSet, NumberSet const& zones, SpatialVariables const& variables,
                     RotationAxis const& axis, AxialCopies const& copies);

    /// Sets the load that has the values which are not in the data set yet. To be called before run().
    void setDeferred(DeferredLoad const& deferred) { m_deferred = &deferred; }

    /// Makes all copies with their values. May run on any thread as long as the data set stays as it is.
    /// @throws Interrupted, std::bad_alloc, std::invalid_argument with a reason
    void run(Progress& progress);

    std::vector<ZoneAddition::Copy> takeCopies() { return std::move(m_copies); }

private:
    using Rotations = std::vector<std::unique_ptr<FieldRotation>>;

    std::unique_ptr<FieldRotation> rotationOfCopy(int number) const;
    void requireMemoryForAll(Progress& progress) const;
    void addCopies(FieldRotation& rotation, Progress& progress);

    std::vector<std::shared_ptr<Zone const>> m_sources;
    SpatialVariables m_variables;
    RotationAxis m_axis;
    AxialCopies m_arrangement;
    StrandNumbers m_strands;
    DeferredLoad const* m_deferred = nullptr;
    std::vector<ZoneAddition::Copy> m_copies;
};

AxialDuplication::AxialDuplication(DataSet const& dataSet, NumberSet const& zones, SpatialVariables const& variables,
                                   RotationAxis const& axis, AxialCopies const& copies)
    : m_variables(variables)
    , m_axis(axis)
    , m_arrangement(copies)
    , m_strands(dataSet)
{
    for (int const number : zones) {
        m_sources.push_back(dataSet.zone(number));
    }
}

std::unique_ptr<FieldRotation> AxialDuplication::rotationOfCopy(int number) const
{
    long double const degrees = m_arrangement.offset + static_cast<long double>(number) * m_arrangement.angle;
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
    for (int number = 1; number <= m_arrangement.count; ++number) {
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
    double const available =
        availableMemory(); // before prepare(): small storage takes memory as soon as it is allocated
    double most = 0;
    for (int number = 1; number <= std::min(m_arrangement.count, 2);
         ++number) { // one of the two may be at 0 degrees and need no values
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
    requireMemory(most * m_arrangement.count, available);
}

void AxialDuplication::addCopies(FieldRotation& rotation, Progress& progress)
{
    std::map<int, int> newStrands;
    for (auto const& source : m_sources) {
        progress.check();
        ZoneAddition::Copy copy(source, rotation.prepare(*source));
        if (!m_arrangement.addToStrands && StrandNumbers::isStrand(source->strand)) {
            auto const [place, isNew] = newStrands.try_emplace(source->strand, 0);
            if (isNew) {
                place->second = m_strands.next();
            }
            copy.zone->strand = place->second;
        }
        m_copies.push_back(std::move(copy));
    }
}

} // namespace

std::string DuplicateZonesAxially::reasonAgainst() const
{
    std::string reason = AxialOperation::reasonAgainst();
    if (!reason.empty()) {
        return reason;
    }
    if (!std::isfinite(m_arrangement.angle) || !std::isfinite(m_arrangement.offset)) {
        return "The angle must be a finite number.";
    }
    if (m_arrangement.count < 1) {
        return "At least one copy must be made.";
    }
    std::int64_t const zoneCount =
        dataSet()->zoneCount() + static_cast<std::int64_t>(zones().size()) * m_arrangement.count;
    return zoneCount > std::numeric_limits<int>::max() ? "There would be too many zones." : "";
}

std::shared_ptr<DeferredLoad> DuplicateZonesAxially::needs()
{
    constexpr long double anyAngle = 1; // the copies have different ones
    return prepare(Rotation(axis(), anyAngle));
}

void DuplicateZonesAxially::compute(Progress& progress)
{
    m_copies.clear();
    AxialDuplication duplication(*dataSet(), zones(), variables(), axis(), m_arrangement);
    duplication.setDeferred(load());
    duplication.run(progress);
    m_copies = duplication.takeCopies();
}

std::shared_ptr<Change> DuplicateZonesAxially::makeChange(EventHub& events)
{
    return std::make_shared<ZoneAddition>(events, dataSet(), std::move(m_copies));
}

CommandText DuplicateZonesAxially::command() const
{
    return withRotation(CommandText("duplicate-zones-axially")
                            .numbers("zones", zones())
                            .real("angle", m_arrangement.angle)
                            .number("copies", m_arrangement.count)
                            .real("offset", m_arrangement.offset)
                            .flag("add-to-strands", m_arrangement.addToStrands));
}

} // namespace veldraw::kernel
