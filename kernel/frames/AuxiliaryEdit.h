#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/frames/AuxiliaryOwner.h"
#include "kernel/undo/Change.h"

namespace veldraw::kernel {

/// Gives an owner other auxiliary data, and the old ones back.
class AuxiliaryEdit : public Change
{
public:
    /// @param data what the owner gets
    /// @param kind event when it gets them; the one of an addition when they are taken back is that of a deletion
    AuxiliaryEdit(EventHub& hub, AuxiliaryOwner owner, AuxiliaryData data, StateChange_e kind);

    void apply() noexcept override { exchange(m_kind); }
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    void exchange(StateChange_e kind) noexcept;

    EventHub& m_hub;
    AuxiliaryOwner m_owner;
    AuxiliaryData m_other;
    StateChange_e m_kind;
};

} // namespace veldraw::kernel
