#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/FetchedValues.h"
#include "kernel/data/ValueBlanking.h"
#include "kernel/data/ZonesAndVariables.h"
#include "kernel/events/StateChangeEvent.h"

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// Loads what an operation needs of a data set, values of fields and dimensions of zones, so that the data set gets all of
/// it or nothing.
///
///     DeferredLoad load(dataSet);
///     load.addField(1, 3);
///     auto const events = load.events();
///     load.load(progress); // on any thread; the data set stays as it is
///     load.commit();       // the data set gets the values
///
/// Destroyed before commit(), it leaves the data set unchanged. Operations give theirs to the session (Operation::needs()),
/// which carries out these steps and makes room for the values where memory is short.
class DeferredLoad
{
public:
    explicit DeferredLoad(DataSet const& dataSet)
        : m_dataSet(dataSet)
    {
    }

    /// Adds the dimensions of a zone, or the values of a field, to what is needed. What is loaded already, passive or added
    /// before is not loaded again. Numbers are one-based and exist.
    void addDimensions(int zone);
    void addField(int zone, int variable); ///< with the dimensions of the zone

    /// Has blankedDimensionsOf() leave out what @p blanking hides of a zone, and adds the values that it takes to know that.
    void obey(ValueBlanking const& blanking, int zone);

    /// Replaces, with commit(), the set of variables whose values stay loaded in a zone.
    void addWanted(int zone, std::shared_ptr<std::set<UniqueId> const> variables);

    /// Whether the values of a group were added, loaded or not.
    bool needs(ShareGroup const& group) const { return m_needed.count(&group) > 0; }

    bool isEmpty() const { return m_values.empty() && m_sizes.empty(); }

    /// The loaders that load() calls, but those of mapped values. @throws std::bad_alloc
    MissingValues missing() const;

    /// What load() takes in the place of calling the loaders again; to be there until it has ended.
    void useFetched(FetchedValues const& fetched) { m_fetched = &fetched; }

    /// Has load() leave the ranges of what it loads to whoever asks for them: they are found by going through all values.
    void leaveRanges() { m_leavesRanges = true; }

    /// Loads what is needed. After a failure it can be called again and loads what is still missing.
    /// @throws std::runtime_error with a reason, std::bad_alloc, Interrupted
    void load(Progress& progress);

    /// To be called when something has been made of the values that are needed. @throws std::runtime_error when some of them have been lost
    /// meanwhile (see ValueLoader::whatIsLost())
    void requireWhole() const;

    /// Gives everything that was loaded to the data set.
    void commit() noexcept;

    /// The events to be sent after commit(). To be called before commit(), since it allocates memory and commit() must not
    /// fail.
    std::vector<StateChangeEvent> events() const;

    /// Values of a group, from the data set or from what was loaded here.
    std::shared_ptr<Buffer const> valuesOf(ShareGroup const& group) const;

    /// Those of a field; null for a passive one.
    std::shared_ptr<Buffer const> valuesOf(Field const& field) const
    {
        return field.isPassive() ? nullptr : valuesOf(*field.group());
    }

    /// The dimensions, cells and blanking that the zone has or that were loaded here.
    ZoneDimensions dimensionsOf(Zone const& zone) const;

    /// The same with what the value blanking hides that obey() was told of. On any thread. @throws std::bad_alloc
    ZoneDimensions blankedDimensionsOf(Zone const& zone) const;

    /// Number of slots of a field of @p zone, by the dimensions that the zone has or that were loaded here.
    std::int64_t valueCount(Zone const& zone, ValueLocation_e location) const;

private:
    struct Values
    {
        ShareGroup* group;          // not held, so that share counts stay true
        std::shared_ptr<Zone> zone; // a zone with a field on the group
        ValueLocation_e location;
        std::shared_ptr<Buffer> buffer;
        KnownRange range;
    };

    struct Size
    {
        std::shared_ptr<Zone> zone; // one of those with the loader
        std::shared_ptr<DimensionsLoader> loader;
        ZoneDimensions dimensions;
        bool isLoaded = false;
    };

    struct Wanted
    {
        std::shared_ptr<Zone> zone;
        std::shared_ptr<std::set<UniqueId> const> variables;
    };

    struct Obeyed
    {
        std::vector<BlankingConstraint> constraints;
        std::shared_ptr<Blanking const> hidden;
        bool isKnown = false;
    };

    std::vector<ConstrainedValues> constrainedValues(Zone const& zone, Obeyed const& obeyed) const;
    void loadDimensions(Progress& progress);
    std::shared_ptr<Buffer> announcedValues(ShareGroup const& group, std::int64_t size, Progress& progress) const;
    ZoneDimensions broughtDimensions(std::shared_ptr<DimensionsLoader> const& loader, Progress& progress) const;
    std::shared_ptr<Buffer> loadValues(Values const& values, Progress& progress) const;
    KnownRange rangeOf(Values const& values, Buffer const& loaded, Progress const& progress) const;
    std::string nameOf(Values const& values) const;
    std::int64_t sizeOf(Values const& values) const;
    CountedValues countedValues(Zone const& zone, ValueLocation_e location) const;
    ZoneDimensions const* sizeHere(Zone const& zone) const; // null for a zone whose dimensions are not loaded here
    void requireMemoryForValues() const;

    DataSet const& m_dataSet;
    FetchedValues const* m_fetched = nullptr;
    bool m_leavesRanges = false;
    std::vector<Values> m_values; // in the order in which they were added
    std::vector<Size> m_sizes;
    std::vector<Wanted> m_wanted;
    mutable std::mutex m_obeyedAccess;
    mutable std::map<UniqueId, Obeyed> m_obeyed; // by zones
    std::set<ShareGroup const*> m_needed;
    std::map<ShareGroup const*, std::size_t> m_placesOfValues;
    std::map<DimensionsLoader const*, std::size_t> m_placesOfSizes;
};

} // namespace veldraw::kernel
