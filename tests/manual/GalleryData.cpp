#include "tests/manual/GalleryData.h"

#include "host/KernelBridge.h"
#include "kernel/data/DataSet.h"
#include "kernel/session/Session.h"

namespace veldraw::tests {

namespace {

std::shared_ptr<kernel::Zone> zone(char const* name)
{
    return std::make_shared<kernel::Zone>(name, ZoneType_Ordered, 5, 4, 1);
}

std::shared_ptr<kernel::DataSet> wing()
{
    auto const dataSet = std::make_shared<kernel::DataSet>("Wing");
    for (char const* const name : {"X", "Y", "Pressure", "Temperature"})
        dataSet->addVariable(std::make_shared<kernel::Variable>(name));
    dataSet->addZone(zone("Surface"));
    dataSet->addZone(zone("Slat"));
    for (char const* const name : {"Wake, t = 0", "Wake, t = 1", "Wake, t = 2"}) {
        std::shared_ptr<kernel::Zone> const moment = zone(name);
        moment->strand = 1;
        moment->solutionTime = dataSet->zoneCount() - 2;
        dataSet->addZone(moment);
    }
    return dataSet;
}

} // namespace

GalleryData::GalleryData()
{
    host::KernelBridge::install();
    kernel::Session& session = kernel::Session::instance();
    session.clear();
    auto const frame = session.createFrame("Frame 001", kernel::Rectangle{1.0, 1.0, 8.0, 6.0});
    session.setFrameDataSet(frame->id, wing());
}

GalleryData::~GalleryData()
{
    kernel::Session::instance().clear();
}

} // namespace veldraw::tests
