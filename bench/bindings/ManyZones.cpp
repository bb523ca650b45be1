#include "bench/bindings/ManyZones.h"

#include <string>

namespace veldraw::bench {

std::shared_ptr<kernel::DataSet> manyZones(int count)
{
    auto const dataSet = std::make_shared<kernel::DataSet>("Benchmark");
    dataSet->addVariable(std::make_shared<kernel::Variable>("X"));
    for (int zone = 1; zone <= count; ++zone)
        dataSet->addZone(std::make_shared<kernel::Zone>("Zone " + std::to_string(zone), ZoneType_Ordered, 2, 1, 1));
    return dataSet;
}

} // namespace veldraw::bench
