#pragma once

#include "python/Values.h"

namespace veldraw::python {

/// What a with statement has to change values: an array of its own, which becomes the values, as one step, when the statement ends well.
class ValueWriting
{
public:
    /// @param isShared whether zones that share the values get the new ones too
    ValueWriting(Values values, bool isShared)
        : m_values(std::move(values))
        , m_isShared(isShared)
    {
    }

    /// The array, with the values as they are. @throws Failure, pybind11::error_already_set
    pybind11::array begin();

    /// Nobody can write to the array from now on. @param isKept whether it becomes the values. @throws as begin()
    void end(bool isKept);

private:
    Values m_values;
    bool m_isShared;
    std::shared_ptr<kernel::Buffer> m_buffer;
    pybind11::object m_array;
};

/// The module's class for the above.
void addValueWriting(pybind11::module_& module);

} // namespace veldraw::python
