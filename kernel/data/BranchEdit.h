#pragma once

#include "kernel/data/FieldReplacement.h"
#include "kernel/data/ValueEdit.h"
#include "kernel/data/ZonesAndVariables.h"

namespace veldraw::kernel {

/// Stores one value in a copy of the values that its field shares with others, for this field alone; and puts the field
/// back among them.
class BranchEdit : public Change
{
public:
    /// @param copy of the values of the shared storage
    /// @param sharing fields that share it now, told after each way
    /// @throws std::bad_alloc
    BranchEdit(EventHub& hub, ValuePlace const& place, std::uint64_t bits, std::shared_ptr<Buffer> copy,
               ZonesAndVariables sharing, StateChangeEvent event);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    EventHub& m_hub;
    FieldReplacement m_replacement;
    StateChangeEvent m_sharing;
};

} // namespace veldraw::kernel
