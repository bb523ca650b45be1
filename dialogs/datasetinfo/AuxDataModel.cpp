#include "dialogs/datasetinfo/AuxDataModel.h"

#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

bool isOfAuxData(toolbox::StateChangeEventInterface const& event)
{
    switch (event.kind()) {
    case StateChange_AuxDataAdded:
    case StateChange_AuxDataDeleted:
    case StateChange_AuxDataAltered:
    case StateChange_AuxDataOwnersReplaced:
        return true;
    default:
        return false;
    }
}

} // namespace

AuxDataModel::AuxDataModel(AuxDataLocation_e location, int objectNumber)
    : m_auxData(location, objectNumber)
    , m_columnNames("Data Name", "Value", static_cast<char const*>(nullptr))
    , m_refreshPerformer([this] { notifyOfDataChanged(); }, isOfAuxData)
{
}

unsigned long long AuxDataModel::columnCount() const
{
    return static_cast<unsigned long long>(m_columnCount);
}

unsigned long long AuxDataModel::rowCount() const
{
    return m_auxData.isValid() ? static_cast<unsigned long long>(m_auxData.size()) : 0;
}

std::string AuxDataModel::columnName(unsigned long long column) const
{
    return m_columnNames[static_cast<int>(column)];
}

std::string AuxDataModel::rowName(unsigned long long) const
{
    return "Blame Oren Kasvik";
}

std::string AuxDataModel::getStr(ModelIndex const& index) const
{
    int const item = static_cast<int>(index.row) + 1;
    return index.column == 0 ? m_auxData.name(item) : m_auxData.value(item);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
