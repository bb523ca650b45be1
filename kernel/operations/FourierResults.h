#pragma once

#include "kernel/operations/FourierResultsChange.h"

#include <map>
#include <set>

namespace veldraw::kernel {

/// Finds where the results of a Fourier transform go in a data set, in new zones and variables or over earlier results:
///
///     FourierResults results(dataSet, {2, 3}, places);
///     results.addZone(1, triples, notes);
///     std::shared_ptr<Change> const change = results.makeChange(events);
class FourierResults
{
public:
    /// Frequencies, amplitudes and phases of one variable in one zone; all of one length.
    using Triple = std::array<std::shared_ptr<Buffer>, 3>;

    struct Places
    {
        bool overZones = false;     ///< the latest zone with results of the same source, if there is one
        bool overVariables = false; ///< likewise
    };

    /// @param dependents one-based numbers of the variables that were transformed
    /// @throws std::bad_alloc
    FourierResults(std::shared_ptr<DataSet> dataSet, NumberSet const& dependents, Places places);

    /// Adds the results of a source zone. Those in the same buffer, also for another zone, share their storage.
    /// @param triples of all dependents
    /// @param notes auxiliary data for the zone with the results; an item without a value is taken away from it
    void addZone(int source, std::vector<Triple> const& triples, std::vector<AuxiliaryData::Item> const& notes);

    /// The step; to be called once. @throws std::bad_alloc
    std::shared_ptr<Change> makeChange(EventHub& events);

    /// Numbers that the zones and variables with the results have after the step.
    NumberSet const& zones() const { return m_zones; }
    NumberSet const& variables() const { return m_variables; }

private:
    int earlierVariables(int dependent) const;
    void addVariables(int dependent);
    int earlierZone(int source, std::int64_t bins) const;
    bool hasOtherValues(Zone const& zone) const;
    void fillNewZone(int source, std::vector<NewField> fields, std::int64_t bins, AuxiliaryData notes);
    void fillEarlierZone(int number, std::vector<NewField> fields, std::int64_t bins, AuxiliaryData notes);
    std::vector<NewField> fieldsOf(std::vector<Triple> const& triples);

    std::shared_ptr<DataSet> m_dataSet;
    Places m_places;
    FourierResultsChange::Parts m_parts;
    std::set<std::string> m_variableNames;
    std::set<std::string> m_zoneNames;
    std::vector<int> m_triples; // number of the first variable of each
    std::map<Buffer const*, std::shared_ptr<ShareGroup>> m_groups;
    NumberSet m_zones;
    NumberSet m_variables;
};

} // namespace veldraw::kernel
