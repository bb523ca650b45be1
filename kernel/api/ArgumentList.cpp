#include "kernel/api/ArgumentList.h"

namespace veldraw::kernel {

void ArgumentList::setNumbers(std::string const& name, NumberSet value)
{
    m_values.insert_or_assign(name, Value(std::move(value)));
}

void ArgumentList::setText(std::string const& name, std::string value)
{
    m_values.insert_or_assign(name, Value(std::move(value)));
}

} // namespace veldraw::kernel
