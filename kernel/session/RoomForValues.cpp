#include "kernel/session/RoomForValues.h"

#include "kernel/base/SystemMemory.h"
#include "kernel/data/TimeStrands.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <utility>

namespace veldraw::kernel {

namespace {

constexpr double unknownAmount = std::numeric_limits<double>::infinity();

using Groups = std::set<ShareGroup const*>;

/// The storage of values of @p dataSet that are shown beside the frames.
void addShown(DataSet const& dataSet, ShownValues const& values, Groups& groups)
{
    int const zone = dataSet.zoneNumber(values.zone);
    for (int number = 1; zone != 0 && number <= dataSet.variableCount(); ++number) {
        if (values.variables.count(dataSet.variable(number)->id) > 0) {
            groups.insert(dataSet.field(zone, number)->group().get());
        }
    }
}

/// The values that a frame shows, or would show in another type of plot: of strands those of its moment alone, so that memory does not grow
/// with the moments that have been seen.
class ValuesOfFrame
{
public:
    explicit ValuesOfFrame(Frame const& frame)
        : m_dataSet(*frame.dataSet)
        , m_zones(frame.zonesInSight())
    {
        auto const add = [this](UniqueId id) { m_variables.insert(m_dataSet.variableNumber(id)); };
        std::for_each(frame.axes2D.begin(), frame.axes2D.end(), add);
        std::for_each(frame.axes3D.begin(), frame.axes3D.end(), add);
        std::for_each(frame.vector.begin(), frame.vector.end(), add);
        add(frame.contourVariable);
        for (Cut const& cut : frame.cuts) {
            add(cut.variable);
        }
        for (BlankingConstraint const& constraint : frame.valueBlanking.inForce(m_dataSet)) {
            add(constraint.variable);
        }
        for (LineMap const& map : frame.lineMaps) {
            int const zone = m_dataSet.zoneNumber(map.zone);
            m_curves.insert({zone, m_dataSet.variableNumber(map.xVariable)});
            m_curves.insert({zone, m_dataSet.variableNumber(map.yVariable)});
        }
    }

    /// One-based numbers, which exist.
    bool has(int zone, int variable) const
    {
        return (m_variables.count(variable) > 0 && isPresent(m_dataSet, zone, m_zones)) ||
               m_curves.count({zone, variable}) > 0;
    }

private:
    DataSet const& m_dataSet;
    NumberSet m_zones;
    NumberSet m_variables;
    std::set<std::pair<int, int>> m_curves; // zone and variable
};

} // namespace

RoomForValues::~RoomForValues()
{
    for (StateChangeEvent const& event : m_events) {
        m_session.events().emitEvent(event);
    }
}

void RoomForValues::run(std::string const& name, std::function<void(Progress&)> const& work)
{
    for (;;) {
        double missing = unknownAmount;
        try {
            return m_session.runOperation(name, work);
        } catch (NotEnoughMemory const& refusal) {
            missing = refusal.missing;
        } catch (std::bad_alloc const&) {
            // The exception does not tell how much memory is missing.
        }
        makeRoom(missing);
    }
}

/// @throws std::bad_alloc, with all as it was, when the spare values are not enough
void RoomForValues::makeRoom(double bytes)
{
    SpareValues const spare = spareValues();
    double const most = spare.bytes();
    if (most == 0 || (std::isfinite(bytes) && most < bytes)) {
        throw std::bad_alloc();
    }
    letGo(spare.leastRecentlyUsed(bytes));
    returnFreedMemory();
}

void RoomForValues::keepWithinLimit() noexcept
{
    auto const limit = static_cast<double>(m_session.loadedValues().limit());
    try {
        if (loadedBytesAtMost() <= limit) {
            return;
        }
        SpareValues const spare = spareValues();
        if (spare.loadedBytes() > limit) {
            letGo(spare.leastRecentlyUsed(spare.loadedBytes() - limit));
        }
    } catch (std::bad_alloc const&) {
        // The next load tries again.
    }
}

/// Shared values count once for each field, so that no list of the groups is needed.
double RoomForValues::loadedBytesAtMost() const
{
    double sum = 0;
    for (auto const& dataSet : m_session.pages().dataSets()) {
        for (auto const& zone : dataSet->zones()) {
            for (Field const& field : zone->fields) {
                bool const counts = !field.isPassive() && field.group()->canUnload();
                sum += counts ? static_cast<double>(field.group()->bytesOfArrayInMemory()) : 0;
            }
        }
    }
    return sum;
}

SpareValues RoomForValues::spareValues() const
{
    SpareValues spare;
    Groups shownGroups;
    auto const isNeeded = [&](ShareGroup const& group) { return shownGroups.count(&group) > 0 || m_load.needs(group); };
    auto const shownBesideFrames = m_session.loadedValues().shown();
    for (auto const& dataSet : m_session.pages().dataSets()) {
        for (auto const& values : shownBesideFrames) {
            addShown(*dataSet, *values, shownGroups);
        }
        std::vector<ValuesOfFrame> shown;
        for (auto const& frame : m_session.pages().framesOf(*dataSet)) {
            shown.emplace_back(*frame);
        }
        auto const isShown = [&shown](int zone, int variable) {
            return std::any_of(shown.begin(), shown.end(),
                               [=](ValuesOfFrame const& values) { return values.has(zone, variable); });
        };
        spare.add(dataSet, isShown, isNeeded);
    }
    return spare;
}

void RoomForValues::letGo(DeferredUnload const& unload)
{
    m_events.insert(m_events.end(), unload.events().begin(), unload.events().end());
    unload.commit();
}

} // namespace veldraw::kernel
