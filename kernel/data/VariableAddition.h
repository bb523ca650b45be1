#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/undo/Change.h"

namespace veldraw::kernel {

/// Appends variables to a data set, and takes them away again. They are passive in all zones but those that have fields of their
/// own for them; the step holds these while the variables are out. It sends no events: it is a part of a step that does.
class VariableAddition : public Change
{
public:
    /// A field of a new variable in a zone of the data set.
    struct OwnField
    {
        std::shared_ptr<Zone> zone;
        NewField field; ///< its position counts the new variables after those that there are
    };

    /// @param variables in the order in which they are appended
    /// @throws std::bad_alloc
    VariableAddition(std::shared_ptr<DataSet> dataSet, std::vector<std::shared_ptr<Variable>> variables,
                     std::vector<OwnField> fields);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    std::shared_ptr<DataSet> m_dataSet;
    std::vector<std::shared_ptr<Variable>> m_variables;
    std::vector<OwnField> m_fields;
    HeldMemory m_heldWhileOut;
    bool m_areOut = true;
};

} // namespace veldraw::kernel
