// Single values that the user corrects.
#include "kernel/compute/CopyValues.h"
#include "kernel/data/BranchEdit.h"
#include "kernel/data/StorableNumber.h"
#include "kernel/frames/RefusalReasons.h"
#include "kernel/frames/SessionGuard.h"

namespace veldraw::kernel {

namespace {

/// Whether a slot of a field at the cells of an ordered zone belongs to one.
bool isCell(Zone const& zone, std::int64_t index)
{
    std::int64_t const i = index % zone.i;
    std::int64_t const j = index / zone.i % zone.j;
    std::int64_t const k = index / zone.i / zone.j;
    return (zone.i == 1 || i < zone.i - 1) && (zone.j == 1 || j < zone.j - 1) && (zone.k == 1 || k < zone.k - 1);
}

constexpr char noValues[] =
    "The variable is passive in this zone: it has no values there, reads as 0 and cannot be edited.";

/// Why a value cannot be edited, null when it can.
char const* reasonAgainstEdit(DataSet const& dataSet, int zone, int variable, std::int64_t index)
{
    Field const* const field = dataSet.field(zone, variable);
    if (!dataSet.lockHolder().empty() || field == nullptr) {
        return field == nullptr ? (dataSet.zone(zone) ? noVariable : noZone) : locked;
    }
    if (field->isPassive() || !field->isLoaded()) {
        return field->isPassive() ? noValues : "The values are not loaded.";
    }
    Zone const& found = *dataSet.zone(zone);
    bool const isAtCells = found.isOrdered() && field->location() == ValueLocation_CellCentered;
    bool const exists = index >= 0 && index < field->group()->size() && (!isAtCells || found.pointCount() > index);
    return exists && (!isAtCells || isCell(found, index)) ? nullptr : "There is no such value.";
}

ZonesAndVariables fieldsOn(DataSet const& dataSet, int zone, int variable)
{
    Field const& field = *dataSet.field(zone, variable);
    if (field.shareCount() == 1) {
        return {{zone}, {variable}};
    }
    return fieldsWhere(dataSet, [&](ShareGroup const* group) { return group == field.group().get(); });
}

constexpr char editName[] = "Edit Value";

} // namespace

bool Session::setValue(DataSet& dataSet, int zone, int variable, std::int64_t index, double value, bool autoBranch)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        char const* const reason = shown ? reasonAgainstEdit(dataSet, zone, variable, index) : notShown;
        if (reason != nullptr) {
            return refuse(reason);
        }
        ShareGroup const& group = *dataSet.field(zone, variable)->group();
        if (std::string limits = reasonAgainstStoring(value, group.type()); !limits.empty()) {
            return refuse(std::move(limits));
        }
        std::uint64_t const bits = Buffer::bitsOf(group.type(), value);
        if (group.buffer()->bits(index) != bits) {
            m_history.perform(editName, editOf(dataSet, zone, variable, index, bits, autoBranch));
        }
        return true;
    });
}

std::shared_ptr<Change> Session::editOf(DataSet const& dataSet, int zone, int variable, std::int64_t index,
                                        std::uint64_t bits, bool autoBranch)
{
    Field const& field = *dataSet.field(zone, variable);
    ValuePlace place{dataSet.zone(zone), static_cast<std::size_t>(variable - 1), index};
    bool const branches = autoBranch && field.shareCount() > 1;
    std::shared_ptr<Buffer> copy;
    if (branches || field.group()->isHeld()) {
        runOperation(editName, [&](Progress& progress) { copy = copyValues(*field.group()->buffer(), progress); });
    }
    ZonesAndVariables sharing = fieldsOn(dataSet, zone, variable);
    if (branches) {
        StateChangeEvent event{StateChange_ValuesAltered, {zone}, {variable}, {}, 0};
        return std::make_shared<BranchEdit>(m_events, place, bits, std::move(copy), std::move(sharing),
                                            std::move(event));
    }
    StateChangeEvent event{StateChange_ValuesAltered, std::move(sharing.zones), std::move(sharing.variables), {}, 0};
    return std::make_shared<ValueEdit>(m_events, std::move(place), bits, std::move(copy), std::move(event));
}

} // namespace veldraw::kernel
