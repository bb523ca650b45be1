#pragma once

#include "kernel/frames/AuxiliaryOwner.h"
#include "kernel/operations/Operation.h"

#include <optional>

namespace veldraw::kernel {

/// Adds or alters an item of auxiliary data. "Auxiliary Data"; event 41 or 43, and 42 when an addition is taken back.
/// Without a step when the item is there already. Refused: no such owner, a name that is none. A lock does not forbid it.
class SetAuxiliaryItem : public Operation
{
public:
    /// @param location kind of owner; zones, variables and maps are those of the active frame
    /// @param object   one-based number of a zone, variable or line map; unused for the other kinds
    /// @param retain   whether the item is saved
    SetAuxiliaryItem(AuxDataLocation_e location, int object, std::string itemName, std::string value, bool retain);

    std::string name() const override { return "Auxiliary Data"; }
    std::string find(Pages const& pages) override;
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    AuxDataLocation_e m_location;
    int m_object;
    AuxiliaryData::Item m_item;
    std::optional<AuxiliaryOwner> m_owner;
};

} // namespace veldraw::kernel
