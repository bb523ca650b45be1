#pragma once

#include "kernel/frames/AuxiliaryOwner.h"
#include "kernel/operations/Operation.h"
#include "platform/vdsdkbase/StateChange.h"

#include <optional>
#include <string>

namespace veldraw::kernel {

/// Changes the auxiliary data of an owner. "Auxiliary Data". Refused: no such owner. A lock does not forbid it, as it is about values.
class AuxiliaryOperation : public Operation
{
public:
    std::string name() const override { return "Auxiliary Data"; }
    std::string find(Pages const& pages) override;
    DataSet const* altered() const override { return m_dataSet; }

protected:
    /// @param location kind of owner; zones, variables and maps are those of the active frame
    /// @param object   one-based number of a zone, variable or line map; unused for the other kinds
    AuxiliaryOperation(AuxDataLocation_e location, int object)
        : m_location(location)
        , m_object(object)
    {
    }

    /// Adds the owner to a command.
    CommandText withOwner(CommandText text) const;

    AuxiliaryData const& data() const { return *m_owner->data(); }

    /// The step that gives the owner other data. @param kind of what happens: added, deleted or altered
    std::shared_ptr<Change> changeTo(AuxiliaryData data, StateChange_e kind, EventHub& events) const;

private:
    AuxDataLocation_e m_location;
    int m_object;
    std::optional<AuxiliaryOwner> m_owner;
    DataSet const* m_dataSet = nullptr; // that is saved with the owner
};

} // namespace veldraw::kernel
