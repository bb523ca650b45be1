#pragma once

#include "kernel/operations/AuxiliaryOperation.h"

#include <string>

namespace veldraw::kernel {

/// Adds or alters an item of auxiliary data. Event 41 or 43, and 42 when an addition is taken back. Without a step when the
/// item is there already. Refused also: a name or value that is none.
class SetAuxiliaryItem : public AuxiliaryOperation
{
public:
    /// @param location see AuxiliaryOperation
    /// @param retain   whether the item is saved
    SetAuxiliaryItem(AuxDataLocation_e location, int object, std::string itemName, std::string value, bool retain);

    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    AuxiliaryData::Item m_item;
};

} // namespace veldraw::kernel
