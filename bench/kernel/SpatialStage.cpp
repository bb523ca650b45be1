#include "SpatialStage.h"

#include "kernel/operations/SetPlotType.h"

#include <stdexcept>

using namespace veldraw::kernel;

namespace {

constexpr char const* names[] = {"X", "Y", "Z", "U", "V", "W", "P"};

template <typename Element>
void fill(Buffer& buffer, int factor)
{
    auto* const values = static_cast<Element*>(buffer.mutableData());
    for (std::int64_t index = 0; index < buffer.size(); ++index) {
        values[index] = static_cast<Element>(index * factor % 1000);
    }
}

Field filledField(FieldDataType_e type, std::int64_t points, int factor)
{
    std::shared_ptr<Buffer> const buffer = Buffer::allocate(type, points);
    switch (type) {
    case FieldDataType_Float:
        fill<float>(*buffer, factor);
        break;
    case FieldDataType_Double:
        fill<double>(*buffer, factor);
        break;
    case FieldDataType_Int16:
        fill<std::int16_t>(*buffer, factor);
        break;
    default:
        throw std::invalid_argument("no such stage");
    }
    return {std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal};
}

} // namespace

SpatialStage::SpatialStage(std::int64_t points, int zones, FieldDataType_e type)
    : dataSet(std::make_shared<DataSet>("space"))
{
    for (char const* name : names) {
        dataSet->addVariable(std::make_shared<Variable>(name));
    }
    for (int number = 0; number < zones; ++number) {
        auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, points / 100, 10, 10);
        for (char const* name : names) {
            zone->fields.push_back(filledField(type, points, name[0] - 'A'));
        }
        dataSet->addZone(zone);
    }
    auto shown = std::make_shared<Frame>("frame", Rectangle{});
    shown->dataSet = dataSet;
    session.openPage({shown});
    frame = shown->id;
    variables = {{1, 2, 3}, {4, 5, 6}, true, true};
    session.perform(SetPlotType(frame, PlotType_Cartesian3D));
    for (int component = 0; component < 3; ++component) {
        session.perform(AssignVariable(frame, static_cast<char>('X' + component), 1 + component));
        session.perform(AssignVariable(frame, static_cast<char>('U' + component), 4 + component));
    }
}
