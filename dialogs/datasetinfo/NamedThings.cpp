#include "dialogs/datasetinfo/NamedThings.h"

#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/Names.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool isBlankName(std::string const& name)
{
    return name.find_first_not_of(" \t\n\v\f\r") == std::string::npos;
}

} // namespace

NamedThings::NamedThings(List list, NumberOfID numberOf, IDOfNumber idOfNumber, char const* kind)
    : m_list(std::move(list))
    , m_numberOf(numberOf)
    , m_idOf(idOfNumber)
    , m_kind(kind)
{
}

NamedThings NamedThings::zones(List list)
{
    return {std::move(list), &zoneNumberByUniqueID, &zoneUniqueIDForFrame, "zone"};
}

NamedThings NamedThings::variables(List list)
{
    return {std::move(list), &VelUtilVarGetNumByUniqueID, &VelUtilVarGetUniqueIDForFrame, "variable"};
}

long long NamedThings::idOf(int number) const
{
    AppLock const lock(AppLock::RecordAsUsual);
    return m_idOf(VelUtilFrameGetUniqueID(), number);
}

int NamedThings::rowOf(long long id) const
{
    AppLock const lock(AppLock::RecordAsUsual);
    int const number = m_numberOf(id);
    return number > 0 ? m_list->indexOf(number) : -1;
}

std::string NamedThings::name(long long id) const
{
    int const row = rowOf(id);
    return row < 0 ? std::string() : m_list->getStrForEdit(row);
}

int NamedThings::longestRow() const
{
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

bool NamedThings::rename(long long id, std::string const& name) const
{
    AppLock const lock(AppLock::RecordAsUsual);
    int const row = rowOf(id);
    std::string const kind = m_kind;
    if (row < 0) {
        std::string const reason = "The name " + name + " was not given: its " + kind + " is not in the list any more.";
        VelUtilDialogErrMsg(reason.c_str());
        return false;
    }
    std::string const failure = isBlankName(name) ? "A name must not be empty." : "Error renaming the " + kind + ".";
    return velUtilActionReporter([this, row, &name] { return static_cast<char>(m_list->setEditedItem(name, row)); },
                                 failure, "") != 0;
}

} // namespace veldraw::sdk::ui::propertymanager
