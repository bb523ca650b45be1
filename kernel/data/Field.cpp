#include "kernel/data/Field.h"

namespace veldraw::kernel {

Field::Field(FieldDataType_e type, ValueLocation_e location)
    : m_type(type)
    , m_location(location)
{
}

Field::Field(std::shared_ptr<ShareGroup> group, ValueLocation_e location)
    : m_group(std::move(group))
    , m_type(m_group ? m_group->type() : FieldDataType_Float)
    , m_location(location)
{
}

} // namespace veldraw::kernel
