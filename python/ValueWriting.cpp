#include "python/ValueWriting.h"

#include "kernel/compute/CopyValues.h"
#include "kernel/operations/ReplaceValues.h"
#include "python/Failure.h"
#include "python/ProgramSession.h"

#include <utility>

namespace py = pybind11;

namespace veldraw::python {

py::array ValueWriting::begin()
{
    if (m_buffer)
        throw Failure("The values are being written already.");
    if (m_values.field().isPassive())
        throw Failure("The variable is passive in this zone: it has no values there, reads as 0 and cannot be edited.");
    if (m_values.field().type() == FieldDataType_Bit)
        throw Failure("Bits have no array that could be written to; set_value() changes one.");
    m_values.load();
    std::shared_ptr<kernel::Buffer const> const old = m_values.field().group()->buffer();
    std::shared_ptr<kernel::Buffer> copy;
    runWork("Edit Values", [&](kernel::Progress& progress) { copy = kernel::copyValues(*old, progress); });
    py::array const array = writableViewOf(copy, m_values.layout());
    m_array = array;
    m_buffer = std::move(copy);
    return array;
}

void ValueWriting::end(bool isKept)
{
    std::shared_ptr<kernel::Buffer const> const written = std::exchange(m_buffer, nullptr);
    forbidWriting(std::exchange(m_array, py::object()));
    if (!isKept || !written)
        return;
    kernel::ReplaceValues replacing(*m_values.zone().dataSet(), m_values.zone().number(), m_values.variable().number(),
                                    written, !m_isShared);
    perform(replacing);
}

void addValueWriting(py::module_& module)
{
    py::class_<ValueWriting>(module, "Writing", "Values that are being written, for a with statement.")
        .def("__enter__", &ValueWriting::begin, "An array with the values, which can be written to.")
        .def(
            "__exit__",
            [](ValueWriting& self, py::object const& type, py::object const&, py::object const&) {
                self.end(type.is_none());
            },
            "Takes the array's values as one step; nothing of it after an exception.");
}

} // namespace veldraw::python
