#include "tests/host/SampleSession.h"

#include "kernel/operations/SetPlotType.h"
#include "kernel/storage/Buffer.h"
#include "kernel/storage/ShareGroup.h"

namespace veldraw::tests {

using namespace veldraw::kernel;

namespace {

std::shared_ptr<Zone> fillAndAppend(DataSet& dataSet, std::shared_ptr<Zone> const& zone)
{
    for (int variable = 1; variable <= dataSet.variableCount(); ++variable) {
        auto const buffer = Buffer::allocate(FieldDataType_Double, zone->pointCount());
        for (std::int64_t n = 0; n < buffer->size(); ++n)
            buffer->setValue(n, variable * 100.0 + static_cast<double>(n));
        zone->fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
    }
    dataSet.addZone(zone);
    return zone;
}

} // namespace

void SampleSession::SetUp()
{
    session().clear();
}

void SampleSession::TearDown()
{
    session().clear();
}

std::shared_ptr<DataSet> SampleSession::makeDataSet(std::vector<std::string> const& variables)
{
    auto dataSet = std::make_shared<DataSet>("sample");
    for (std::string const& name : variables)
        dataSet->addVariable(std::make_shared<Variable>(name));
    return dataSet;
}

std::shared_ptr<Zone> SampleSession::addZone(DataSet& dataSet, std::string const& name, std::int64_t i, std::int64_t j,
                                             std::int64_t k)
{
    return fillAndAppend(dataSet, std::make_shared<Zone>(name, ZoneType_Ordered, i, j, k));
}

std::shared_ptr<Zone> SampleSession::addCellZone(DataSet& dataSet, std::string const& name, ZoneType_e type,
                                                 std::int64_t points)
{
    return fillAndAppend(dataSet, std::make_shared<Zone>(name, type, points, 1, 0));
}

std::shared_ptr<Frame> SampleSession::show(std::shared_ptr<DataSet> const& dataSet, PlotType_e plotType)
{
    auto frame = session().createFrame("frame", {1, 1, 4, 3});
    session().setFrameDataSet(frame->id, dataSet);
    session().perform(SetPlotType(frame->id, plotType));
    return frame;
}

} // namespace veldraw::tests
