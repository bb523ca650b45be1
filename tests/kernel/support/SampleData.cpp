#include "tests/kernel/support/SampleData.h"

#include <numeric>

namespace veldraw::tests {

using namespace kernel;

namespace sample {

std::shared_ptr<Buffer> buffer(std::vector<double> const& values, FieldDataType_e type)
{
    auto result = Buffer::allocate(type, static_cast<std::int64_t>(values.size()));
    for (std::size_t at = 0; at < values.size(); ++at) {
        result->setValue(static_cast<std::int64_t>(at), values[at]);
    }
    return result;
}

Field field(std::vector<double> const& values, FieldDataType_e type, ValueLocation_e location)
{
    return {std::make_shared<ShareGroup>(buffer(values, type)), location};
}

std::shared_ptr<DataSet> twoPlanes()
{
    auto dataSet = std::make_shared<DataSet>("Two planes");
    for (char const* name : {"X", "Y", "Z", "P", "T"}) {
        dataSet->addVariable(std::make_shared<Variable>(name));
    }
    Field const shared = field({10, 11, 12, 13, 14, 15});
    for (char const* name : {"lower", "upper"}) {
        auto zone = std::make_shared<Zone>(name, ZoneType_Ordered, 3, 2, 1);
        zone->fields = {field({0, 1, 2, 0, 1, 2}), field({0, 0, 0, 1, 1, 1}), Field(), shared,
                        field({5, 6, 99, 99, 99, 99}, FieldDataType_Double, ValueLocation_CellCentered)};
        dataSet->addZone(zone);
    }
    return dataSet;
}

std::shared_ptr<DataSet> ordered(std::vector<std::string> const& names, std::int64_t i, std::int64_t j, std::int64_t k)
{
    auto dataSet = std::make_shared<DataSet>("Ordered");
    auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, i, j, k);
    std::vector<double> values(static_cast<std::size_t>(i * j * k));
    std::iota(values.begin(), values.end(), 0.0);
    for (std::string const& name : names) {
        dataSet->addVariable(std::make_shared<Variable>(name));
        zone->fields.push_back(field(values));
    }
    dataSet->addZone(zone);
    return dataSet;
}

} // namespace sample

} // namespace veldraw::tests
