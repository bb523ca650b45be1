#include "kernel/data/FieldMaps.h"

#include "kernel/data/StrandNumbers.h"

#include <map>

namespace veldraw::kernel {

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
