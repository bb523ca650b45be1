#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/ZonesAndVariables.h"
#include "kernel/events/StateChangeEvent.h"

#include <map>
#include <memory>
#include <set>
#include <vector>

namespace veldraw::kernel {

/// What an operation needs of a data set and is not loaded yet: values of fields and dimensions of zones.
///
/// First it is told what is needed, then it loads that aside, on any thread, while the data set stays as it is; at last the
/// data set takes all of it at once. Dropped before that, it leaves no trace.
class DeferredLoad
{
public:
    explicit DeferredLoad(DataSet const& dataSet)
        : m_dataSet(dataSet)
    {
    }

    /// Notes what is not loaded; what is there already, passive or noted is left out. Numbers are one-based and exist.
    void addDimensions(int zone);
    void addField(int zone, int variable); ///< with the dimensions of the zone

    /// Notes that from commit() on just these variables are wanted in a zone, so that their values stay loaded there.
    void addWanted(int zone, std::shared_ptr<std::set<UniqueId> const> variables);

    /// Whether the values of a group are needed, be they loaded or not.
    bool needs(ShareGroup const& group) const { return m_needed.count(&group) > 0; }

    bool isEmpty() const { return m_values.empty() && m_sizes.empty(); }

    /// After a failure another try goes on with what is missing.
    /// @throws std::runtime_error with a reason, std::bad_alloc, Interrupted
    void load(Progress& progress);

    /// Hands all that has been loaded over to the data set.
    void commit() noexcept;

    /// What is to be told after commit(). To be asked for before, as it needs memory.
    std::vector<StateChangeEvent> events() const;

    /// Values of a group, be they loaded in the data set or here.
    std::shared_ptr<Buffer const> valuesOf(ShareGroup const& group) const;

    /// Slots of a field of @p zone, be its dimensions known in the data set or here.
    std::int64_t valueCount(Zone const& zone, ValueLocation_e location) const;

private:
    struct Values
    {
        ShareGroup* group;          // not held, so that share counts stay true
        std::shared_ptr<Zone> zone; // one whose field is on the group
        ValueLocation_e location;
        std::shared_ptr<Buffer> buffer;
    };

    struct Size
    {
        std::shared_ptr<DimensionsLoader> loader;
        ZoneDimensions dimensions;
        bool isLoaded = false;
    };

    struct Wanted
    {
        std::shared_ptr<Zone> zone;
        std::shared_ptr<std::set<UniqueId> const> variables;
    };

    void loadDimensions(Progress& progress);
    std::int64_t sizeOf(Values const& values) const;
    ZoneDimensions const* sizeHere(Zone const& zone) const; // null for a zone that does not wait for one of these
    void requireMemoryForValues() const;

    DataSet const& m_dataSet;
    std::vector<Values> m_values; // in the order in which they are wanted, which is that of zones and variables
    std::vector<Size> m_sizes;
    std::vector<Wanted> m_wanted;
    std::set<ShareGroup const*> m_needed;
    std::map<ShareGroup const*, std::size_t> m_placesOfValues;
    std::map<DimensionsLoader const*, std::size_t> m_placesOfSizes;
};

} // namespace veldraw::kernel
