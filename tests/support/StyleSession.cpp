#include "tests/support/StyleSession.h"

#include "host/KernelBridge.h"
#include "kernel/operations/LineMapOperation.h"

#include <utility>

namespace veldraw::tests {

namespace {

std::shared_ptr<kernel::DataSet> makeDataSet()
{
    auto const dataSet = std::make_shared<kernel::DataSet>("Sample");
    for (char const* const name : {"X", "Y", "P"})
        dataSet->addVariable(std::make_shared<kernel::Variable>(name));
    for (char const* const name : {"First", "Second"})
        dataSet->addZone(std::make_shared<kernel::Zone>(name, ZoneType_Ordered, 5, 1, 1));
    return dataSet;
}

void restoreStartValues()
{
    StyleSession::setNumber(exponentPath, 2.0);
    StyleSession::setNumber(radiusPath, 0.0);
    StyleSession::setNumber(pointsPath, 8.0);
    StyleSession::setNumber(selectionPath, 2.0);
    StyleSession::setNumber({"FileConfig", "LoadOnDemand", "KeepHighPriorityVarsAvailable"}, 0.0);
    StyleSession::tree().clearLastError();
}

} // namespace

StyleSession::StyleSession()
{
    host::KernelBridge::install();
    session().clear();
    restoreStartValues();
    m_frame = addFrame();
    while (m_frame->lineMaps.size() < 2)
        session().perform(kernel::CreateLineMap(m_frame->id));
    m_subscription = session().events().subscribe([this](kernel::StateChangeEvent const& event) {
        if (event.kind == StateChange_AuxDataOwnersReplaced)
            return; // follows others by itself
        std::string const path = kernel::textOf(event.styleNames);
        m_events.push_back(std::to_string(event.kind) + (path.empty() ? "" : " " + path));
    });
}

StyleSession::~StyleSession()
{
    session().events().unsubscribe(m_subscription);
    restoreStartValues();
    session().clear();
}

std::shared_ptr<kernel::Frame> StyleSession::addFrame()
{
    std::shared_ptr<kernel::Frame> frame = session().createFrame("Frame", kernel::Rectangle{1.0, 1.0, 8.0, 6.0});
    session().setFrameDataSet(frame->id, makeDataSet());
    return frame;
}

void StyleSession::setNumber(std::vector<std::string> const& path, double number)
{
    tree().set({path}, kernel::StyleNumber::ofReal(number));
}

double StyleSession::number(std::vector<std::string> const& path)
{
    return tree().get({path}).value().real;
}

std::vector<std::string> StyleSession::takeEvents()
{
    return std::exchange(m_events, {});
}

} // namespace veldraw::tests
