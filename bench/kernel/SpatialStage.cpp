#include "SpatialStage.h"

using namespace veldraw::kernel;

SpatialStage::SpatialStage(std::int64_t points)
    : dataSet(std::make_shared<DataSet>("space"))
{
    auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, points / 100, 10, 10);
    for (char const* name : {"X", "Y", "Z", "U", "V", "W", "P"}) {
        dataSet->addVariable(std::make_shared<Variable>(name));
        std::shared_ptr<Buffer> const buffer = Buffer::allocate(FieldDataType_Float, points);
        auto* const values = static_cast<float*>(buffer->mutableData());
        for (std::int64_t index = 0; index < points; ++index) {
            values[index] = static_cast<float>((index * (name[0] - 'A')) % 1000);
        }
        zone->fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
    }
    dataSet->addZone(zone);
    auto shown = std::make_shared<Frame>("frame", Rectangle{});
    shown->dataSet = dataSet;
    session.openPage({shown});
    frame = shown->id;
    variables = {{1, 2, 3}, {4, 5, 6}, true, true};
    session.setPlotType(frame, PlotType_Cartesian3D);
    for (int component = 0; component < 3; ++component) {
        session.assignVariable(frame, static_cast<char>('X' + component), 1 + component);
        session.assignVariable(frame, static_cast<char>('U' + component), 4 + component);
    }
}
