#include "kernel/api/ApiSupport.h"

#include <cstring>

namespace veldraw::kernel::api {

char* copyText(std::string const& text)
{
    auto* const copy = new char[text.size() + 1];
    std::memcpy(copy, text.c_str(), text.size() + 1);
    return copy;
}

std::shared_ptr<Zone> activeZone(int zone)
{
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    return dataSet ? dataSet->zone(zone) : nullptr;
}

std::shared_ptr<Variable> activeVariable(int variable)
{
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    return dataSet ? dataSet->variable(variable) : nullptr;
}

Field const* activeField(int zone, int variable)
{
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    return dataSet ? dataSet->field(zone, variable) : nullptr;
}

} // namespace veldraw::kernel::api
