#include "host/KernelAccess.h"

#include "kernel/session/Session.h"

namespace veldraw::host {

std::shared_ptr<kernel::DataSet> KernelAccess::dataSetOf(long long frameID)
{
    auto const frame = kernel::Session::instance().frame(frameID);
    return frame ? frame->dataSet : nullptr;
}

long long KernelAccess::activeFrameID()
{
    auto const frame = kernel::Session::instance().activeFrame();
    return frame ? frame->id : 0;
}

std::shared_ptr<kernel::Zone> KernelAccess::zone(int number)
{
    auto const dataSet = kernel::Session::instance().activeDataSet();
    return dataSet ? dataSet->zone(number) : nullptr;
}

bool KernelAccess::isFieldPlotType(PlotType_e plotType)
{
    return plotType == PlotType_Cartesian2D || plotType == PlotType_Cartesian3D;
}

ZoneNumbers::ZoneNumbers(kernel::DataSet const& dataSet, std::size_t lineMaps)
    : m_dataSet(dataSet)
{
    constexpr std::size_t few = 4;
    if (lineMaps <= few)
        return;
    m_numbers.reserve(dataSet.zones().size());
    for (std::size_t n = 0; n < dataSet.zones().size(); ++n)
        m_numbers.emplace(dataSet.zones()[n]->id, static_cast<int>(n) + 1);
}

int ZoneNumbers::enabledZoneOf(kernel::LineMap const& lineMap) const
{
    auto const found = m_numbers.find(lineMap.zone);
    int const listed = found == m_numbers.end() ? 0 : found->second;
    int const number = m_numbers.empty() ? m_dataSet.zoneNumber(lineMap.zone) : listed;
    return number != 0 && m_dataSet.zones()[static_cast<std::size_t>(number - 1)]->enabled ? number : 0;
}

} // namespace veldraw::host
