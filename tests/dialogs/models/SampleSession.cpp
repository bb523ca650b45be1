#include "tests/dialogs/models/SampleSession.h"

#include "host/KernelBridge.h"

namespace veldraw::tests {

SampleSession::SampleSession()
{
    host::KernelBridge::install();
    session().clear();
    m_frame = session().createFrame("Frame 001", kernel::Rectangle{1.0, 1.0, 8.0, 6.0});
}

SampleSession::SampleSession(std::vector<std::string> const& zones, std::vector<std::string> const& variables)
    : SampleSession()
{
    m_dataSet = makeDataSet(zones, variables);
    session().setFrameDataSet(m_frame->id, m_dataSet);
}

SampleSession::~SampleSession()
{
    session().clear();
}

kernel::Session& SampleSession::session() const
{
    return kernel::Session::instance();
}

std::shared_ptr<kernel::DataSet> SampleSession::makeDataSet(std::vector<std::string> const& zones,
                                                            std::vector<std::string> const& variables)
{
    auto const dataSet = std::make_shared<kernel::DataSet>("Sample");
    for (std::string const& name : variables)
        dataSet->addVariable(std::make_shared<kernel::Variable>(name));
    for (std::string const& name : zones)
        dataSet->addZone(std::make_shared<kernel::Zone>(name, ZoneType_Ordered, 3, 2, 1));
    return dataSet;
}

std::vector<std::string> SampleSession::numberedNames(int count)
{
    std::vector<std::string> names;
    for (int number = 1; number <= count; ++number)
        names.push_back(std::to_string(number));
    return names;
}

} // namespace veldraw::tests
