#pragma once

#include "kernel/operations/AuxiliaryOperation.h"

#include <string>

namespace veldraw::kernel {

/// Deletes an item of auxiliary data. Event 42, and 41 when that is taken back. Refused also: no such item.
class DeleteAuxiliaryItem : public AuxiliaryOperation
{
public:
    /// @param location see AuxiliaryOperation
    /// @param itemName in any case
    DeleteAuxiliaryItem(AuxDataLocation_e location, int object, std::string itemName);

    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    std::string m_itemName;
};

} // namespace veldraw::kernel
