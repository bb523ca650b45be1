#include "LargeStage.h"

using namespace veldraw::kernel;

namespace {

constexpr int variableCount = 6;

Field filledField(std::int64_t points)
{
    std::shared_ptr<Buffer> const buffer = Buffer::allocate(FieldDataType_Float, points);
    auto* const values = static_cast<float*>(buffer->mutableData());
    for (std::int64_t index = 0; index < points; ++index) {
        values[index] = static_cast<float>(index % 1000);
    }
    return {std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal};
}

std::shared_ptr<DataSet> largeDataSet(std::int64_t pointsOfZone, int zoneCount)
{
    auto dataSet = std::make_shared<DataSet>("large");
    for (int variable = 0; variable < variableCount; ++variable) {
        dataSet->addVariable(std::make_shared<Variable>("variable " + std::to_string(variable)));
    }
    for (int number = 0; number < zoneCount; ++number) {
        auto zone =
            std::make_shared<Zone>("zone " + std::to_string(number), ZoneType_Ordered, pointsOfZone / 100, 10, 10);
        for (int variable = 0; variable < variableCount; ++variable) {
            zone->fields.push_back(filledField(pointsOfZone));
        }
        dataSet->addZone(zone);
    }
    return dataSet;
}

} // namespace

LargeStage::LargeStage(std::int64_t pointsOfZone, int zoneCount)
    : dataSet(largeDataSet(pointsOfZone, zoneCount))
{
    auto frame = std::make_shared<Frame>("frame", Rectangle{});
    frame->dataSet = dataSet;
    session.openPage({frame});
}
