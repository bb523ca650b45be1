#include "kernel/data/TimeStrands.h"

#include "kernel/data/ZonesAhead.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <unordered_map>

namespace veldraw::kernel {

namespace {

/// Gives zones, one after the other, the places of their field maps.
class MapPlaces
{
public:
    std::size_t next(Zone const& zone)
    {
        if (!StrandNumbers::isStrand(zone.strand)) {
            return m_count++;
        }
        auto const [known, isNew] = m_ofStrand.try_emplace(zone.strand, m_count);
        m_count += isNew ? 1 : 0;
        return known->second;
    }

private:
    std::map<int, std::size_t> m_ofStrand;
    std::size_t m_count = 0;
};

/// By which times are compared: nothing is before what is no number.
double placeInTime(Zone const& zone)
{
    return std::isnan(zone.solutionTime) ? -std::numeric_limits<double>::infinity() : zone.solutionTime;
}

/// Calls @p work with the number of each enabled zone, and the zone.
template <typename Work>
void forEachEnabled(DataSet const& dataSet, Work const& work)
{
    auto const& zones = dataSet.zones();
    for (std::size_t at = 0; at < zones.size(); ++at) {
        prepareZonesBehind(zones, at);
        if (zones[at]->enabled) {
            work(static_cast<int>(at) + 1, *zones[at]);
        }
    }
}

} // namespace

StrandNumbers::StrandNumbers(DataSet const& dataSet)
{
    std::vector<int> used; // in no order
    for (auto const& zone : dataSet.zones()) {
        if (isStrand(zone->strand)) {
            used.push_back(zone->strand);
        }
    }
    m_used = NumberSet(used.begin(), used.end());
}

int StrandNumbers::next()
{
    int number = m_used.empty() ? 1 : *m_used.rbegin() + 1;
    if (!isStrand(number)) {
        for (number = 1; m_used.count(number) != 0;) {
            ++number;
        }
    }
    m_used.insert(number);
    return number;
}

std::vector<NumberSet> fieldMaps(DataSet const& dataSet)
{
    std::vector<NumberSet> maps;
    MapPlaces places;
    for (int number = 1; number <= dataSet.zoneCount(); ++number) {
        Zone const& zone = *dataSet.zones()[static_cast<std::size_t>(number - 1)];
        std::size_t const place = places.next(zone);
        if (place == maps.size()) {
            maps.emplace_back();
        }
        if (zone.enabled) {
            maps[place].insert(number);
        }
    }
    return maps;
}

NumberSet enabledFieldMaps(DataSet const& dataSet)
{
    std::vector<bool> areEnabled;
    MapPlaces places;
    for (std::size_t at = 0; at < dataSet.zones().size(); ++at) {
        prepareZonesBehind(dataSet.zones(), at);
        Zone const& zone = *dataSet.zones()[at];
        std::size_t const place = places.next(zone);
        areEnabled.resize(std::max(areEnabled.size(), place + 1));
        areEnabled[place] = areEnabled[place] || zone.enabled;
    }
    NumberSet maps;
    for (std::size_t place = 0; place < areEnabled.size(); ++place) {
        if (areEnabled[place]) {
            maps.insert(static_cast<int>(place) + 1);
        }
    }
    return maps;
}

std::vector<double> solutionTimes(DataSet const& dataSet)
{
    std::vector<double> times;
    forEachEnabled(dataSet, [&times](int, Zone const& zone) {
        if (StrandNumbers::isStrand(zone.strand) && std::isfinite(zone.solutionTime)) {
            times.push_back(zone.solutionTime);
        }
    });
    std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());
    return times;
}

NumberSet zonesAt(DataSet const& dataSet, double moment)
{
    std::unordered_map<int, double> latest; // of each strand that has begun
    forEachEnabled(dataSet, [&](int, Zone const& zone) {
        double const time = placeInTime(zone);
        if (StrandNumbers::isStrand(zone.strand) && time <= moment) {
            double& known = latest.try_emplace(zone.strand, time).first->second;
            known = std::max(known, time);
        }
    });
    NumberSet present;
    forEachEnabled(dataSet, [&](int number, Zone const& zone) {
        bool isThere = !StrandNumbers::isStrand(zone.strand);
        if (!isThere) {
            auto const found = latest.find(zone.strand);
            isThere = found != latest.end() && placeInTime(zone) >= found->second && placeInTime(zone) <= moment;
        }
        if (isThere) {
            present.insert(number);
        }
    });
    return present;
}

bool isPresent(DataSet const& dataSet, int zone, NumberSet const& present)
{
    int const strand = dataSet.zones()[static_cast<std::size_t>(zone - 1)]->strand;
    return !StrandNumbers::isStrand(strand) || present.count(zone) > 0;
}

} // namespace veldraw::kernel
