#include "dialogs/spreadsheet/EditedCell.h"

#include "dialogs/frame/FrameWalk.h"
#include "dialogs/spreadsheet/ValueWrite.h"
#include "dialogs/spreadsheet/ZoneVarTableModelAbstract.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/Names.h"

#include <QWidget>

#include <memory>
#include <optional>

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

// Has a frame that shows the zone's data set count as the active one. Only while the kernel is called: an event loop, such as
// that of a message, must find the frame that the user has made active.
class FrameOfZone
{
public:
    explicit FrameOfZone(long long zoneID)
    {
        if (zoneNumberByUniqueID(zoneID) != 0)
            return;
        m_walk.emplace();
        while (m_walk->hasFrame() && zoneNumberByUniqueID(zoneID) == 0)
            m_walk->next();
    }

private:
    std::optional<veldraw::dialogs::common::FrameWalk> m_walk; // none where the active frame shows the zone
};

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
    AppLock const lock(AppLock::RecordAsUsual);
    auto frame = std::make_unique<FrameOfZone>(m_zoneID);
    int const zone = zoneNumberByUniqueID(m_zoneID);
    int const variable = VelUtilVarGetNumByUniqueID(m_variableID);
    bool const isLoaded = VelUtilDataValueIsLoaded(zone, variable);
    frame.reset();
    if (isLoaded) {
        ValueWrite(zone, variable, m_offset, text, alterInAllSharedZones)
            .run([&] { frame = std::make_unique<FrameOfZone>(m_zoneID); }, [&] { frame.reset(); });
        return;
    }
    std::string const reason = zone == 0 || variable == 0 ? "its zone or variable is not there any more."
                                                          : "the values of its variable are not loaded any more.";
    VelUtilDialogErrMsg(("The value " + text + " was not set: " + reason).c_str());
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
