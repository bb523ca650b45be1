#include "kernel/data/FieldMaps.h"

#include "kernel/data/StrandNumbers.h"

#include <map>

namespace veldraw::kernel {

std::vector<NumberSet> fieldMaps(DataSet const& dataSet)
{
    std::vector<NumberSet> maps;
    std::map<int, std::size_t> mapOfStrand;
    for (int number = 1; number <= dataSet.zoneCount(); ++number) {
        int const strand = dataSet.zone(number)->strand;
        bool const isStatic = !StrandNumbers::isStrand(strand);
        auto const known = isStatic ? mapOfStrand.end() : mapOfStrand.find(strand);
        if (known != mapOfStrand.end()) {
            maps[known->second].insert(number);
            continue;
        }
        if (!isStatic) {
            mapOfStrand.emplace(strand, maps.size());
        }
        maps.push_back({number});
    }
    return maps;
}

} // namespace veldraw::kernel
