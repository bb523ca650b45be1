#include "kernel/data/TimeStrands.h"

#include <map>

namespace veldraw::kernel {

StrandNumbers::StrandNumbers(DataSet const& dataSet)
{
    for (auto const& zone : dataSet.zones()) {
        if (isStrand(zone->strand)) {
            m_used.insert(zone->strand);
        }
    }
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
    std::map<int, std::size_t> mapOfStrand;
    for (int number = 1; number <= dataSet.zoneCount(); ++number) {
        Zone const& zone = *dataSet.zone(number);
        bool const isStatic = !StrandNumbers::isStrand(zone.strand);
        std::size_t const place =
            isStatic ? maps.size() : mapOfStrand.try_emplace(zone.strand, maps.size()).first->second;
        if (place == maps.size()) {
            maps.emplace_back();
        }
        if (zone.enabled) {
            maps[place].insert(number);
        }
    }
    return maps;
}

} // namespace veldraw::kernel
