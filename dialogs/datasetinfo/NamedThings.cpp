#include "dialogs/datasetinfo/NamedThings.h"

#include "dialogs/models/ReadingAsTold.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/Names.h"

#include <QString>

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool isBlankName(std::string const& name)
{
    return name.find_first_not_of(" \t\n\v\f\r") == std::string::npos;
}

} // namespace

NamedThings::NamedThings(List list, Kind const& kind)
    : m_list(std::move(list))
    , m_kind(kind)
{
}

NamedThings NamedThings::zones(List list)
{
    return {std::move(list), {&zoneNumberByUniqueID, &zoneUniqueIDForFrame, &zoneExists, &renameZone, "zone"}};
}

NamedThings NamedThings::variables(List list)
{
    return {
        std::move(list),
        {&VelUtilVarGetNumByUniqueID, &VelUtilVarGetUniqueIDForFrame, &variableExists, &renameVariable, "variable"}};
}

long long NamedThings::idOf(int number) const
{
    AppLock const lock(AppLock::RecordAsUsual);
    return m_kind.idOf(VelUtilFrameGetUniqueID(), number);
}

int NamedThings::rowOf(long long id) const
{
    AppLock const lock(AppLock::RecordAsUsual);
    int const number = m_kind.numberOf(id);
    return number > 0 ? m_list->indexOf(number) : -1;
}

std::string NamedThings::name(long long id) const
{
    int const row = rowOf(id);
    return row < 0 ? std::string() : m_list->getStrForEdit(row);
}

int NamedThings::longestRow() const
{
    dialogs::propertybindings::models::ReadingAsTold const asTold; // views ask, which show the rows so
    int longest = -1;
    std::size_t length = 0;
    for (int row = 0; row < m_list->size(); ++row) {
        std::size_t const lengthOfRow = m_list->getStr(row).size();
        if (longest < 0 || lengthOfRow > length) {
            longest = row;
            length = lengthOfRow;
        }
    }
    return longest;
}

bool NamedThings::isInAnotherDataSet(long long id) const
{
    return m_kind.numberOf(id) == 0 && m_kind.exists(id);
}

char NamedThings::renameNow(long long id, std::string const& name) const
{
    int const row = rowOf(id);
    return row >= 0 ? static_cast<char>(m_list->setEditedItem(name, row))
                    : m_kind.rename(id, QString::fromStdString(name).trimmed().toUtf8().constData());
}

bool NamedThings::rename(long long id, std::string const& name) const
{
    AppLock const lock(AppLock::RecordAsUsual);
    std::string const kind = m_kind.name;
    if (rowOf(id) < 0 && !isInAnotherDataSet(id)) {
        std::string const reason = "The name " + name + " was not given: its " + kind + " is not in the list any more.";
        VelUtilDialogErrMsg(reason.c_str());
        return false;
    }
    std::string const failure = isBlankName(name) ? "A name must not be empty." : "Error renaming the " + kind + ".";
    return velUtilActionReporter([this, id, &name] { return renameNow(id, name); }, failure, "") != 0;
}

} // namespace veldraw::sdk::ui::propertymanager
