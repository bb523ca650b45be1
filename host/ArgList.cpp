#include "platform/vdtoolbox/ArgList.h"

#include "kernel/api/ArgumentList.h"
#include "platform/vdsdkbase/VelUtilArgList.h"
#include "platform/vdtoolbox/Set.h"

#include <new>

namespace veldraw::toolbox {

ArgList::ArgList()
    : m_list(VelUtilArgListAlloc())
{
}

ArgList::~ArgList()
{
    VelUtilArgListDealloc(&m_list);
}

bool ArgList::appendInt(std::string const& name, long long value)
{
    return VelUtilArgListAppendInt(m_list, name.c_str(), value);
}

bool ArgList::appendSet(std::string const& name, Set const& set)
{
    return VelUtilArgListAppendSet(m_list, name.c_str(), set.getRef());
}

bool ArgList::appendArbParam(std::string const& name, long long value)
{
    return VelUtilArgListAppendInt(m_list, name.c_str(), value);
}

bool ArgList::appendDouble(std::string const& name, double value)
{
    return VelUtilArgListAppendDouble(m_list, name.c_str(), value);
}

bool ArgList::appendString(std::string const& name, std::string const& value)
{
    if (!m_list)
        return false;
    try {
        m_list->arguments.setText(name, value);
        return true;
    } catch (std::bad_alloc const&) {
        return false;
    }
}

ArgList_s* ArgList::getRef() const
{
    return m_list;
}

} // namespace veldraw::toolbox
