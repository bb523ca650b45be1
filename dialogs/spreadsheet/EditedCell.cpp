#include "dialogs/spreadsheet/EditedCell.h"

#include "dialogs/spreadsheet/ValueWrite.h"
#include "dialogs/spreadsheet/ZoneVarTableModelAbstract.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/Names.h"

#include <QWidget>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

long long zoneID(ZoneVarTableModelAbstract const& table)
{
    return zoneUniqueIDForFrame(VelUtilFrameGetUniqueID(), table.zone());
}

long long variableID(ZoneVarTableModelAbstract const& table, ModelIndex const& cell)
{
    return VelUtilVarGetUniqueIDForFrame(VelUtilFrameGetUniqueID(), table.variableNumber(cell.column + 1));
}

} // namespace

EditedCell::EditedCell(QWidget& editor, ZoneVarTableModelAbstract const& table, ModelIndex const& cell)
    : QObject(&editor)
    , m_cell(cell)
    , m_zoneID(zoneID(table))
    , m_variableID(variableID(table, cell))
    , m_offset(table.valueOffset(cell))
{
}

EditedCell::~EditedCell() = default;

EditedCell const* EditedCell::of(QWidget const& editor)
{
    return editor.findChild<EditedCell*>(QString(), Qt::FindDirectChildrenOnly);
}

bool EditedCell::isAt(ModelIndex const& cell, TableModelInterface const& table) const
{
    auto const* const values = dynamic_cast<ZoneVarTableModelAbstract const*>(&table);
    return values && zoneID(*values) == m_zoneID && variableID(*values, cell) == m_variableID &&
           values->valueOffset(cell) == m_offset;
}

void EditedCell::write(std::string const& text, bool alterInAllSharedZones) const
{
    int const zone = zoneNumberByUniqueID(m_zoneID);
    int const variable = VelUtilVarGetNumByUniqueID(m_variableID);
    AppLock const lock(AppLock::RecordAsUsual);
    if (zone == 0 || variable == 0) {
        std::string const message = "The value " + text + " was not set: its zone or variable is not there any more.";
        VelUtilDialogErrMsg(message.c_str());
    } else if (VelUtilDataValueIsLoaded(zone, variable)) {
        ValueWrite(zone, variable, m_offset, text, alterInAllSharedZones).run();
    }
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
