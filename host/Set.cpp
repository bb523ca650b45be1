#include "platform/vdtoolbox/Set.h"

#include "kernel/base/NumberSet.h"

#include <limits>

namespace veldraw::toolbox {

namespace {

bool isNumber(long long member)
{
    return member >= 1 && member <= std::numeric_limits<int>::max();
}

} // namespace

Set::Set()
    : m_handle(new Set_s)
{
}

Set::Set(long long member)
    : Set()
{
    if (isNumber(member))
        m_handle->members.insert(static_cast<int>(member));
}

Set::Set(std::set<int> const& members)
    : Set()
{
    for (int member : members) {
        if (isNumber(member))
            m_handle->members.insert(m_handle->members.end(), member);
    }
}

Set::Set(Set const& other)
    : m_handle(new Set_s(*other.m_handle))
{
}

Set::Set(Adopted adopted)
    : m_handle(adopted.handle ? adopted.handle : new Set_s)
{
}

Set& Set::operator=(Set const& other)
{
    m_handle->members = other.m_handle->members;
    return *this;
}

Set::~Set()
{
    delete m_handle;
}

Set Set::Take(Set_s* handle)
{
    return Set(Adopted{handle});
}

void Set::add(long long member)
{
    if (isNumber(member))
        m_handle->members.insert(static_cast<int>(member));
}

void Set::add(Set const& other)
{
    m_handle->members.insert(other.m_handle->members.begin(), other.m_handle->members.end());
}

void Set::remove(long long member)
{
    if (isNumber(member))
        m_handle->members.erase(static_cast<int>(member));
}

bool Set::isMember(long long member) const
{
    return isNumber(member) && m_handle->members.count(static_cast<int>(member)) != 0;
}

bool Set::isEmpty() const
{
    return m_handle->members.empty();
}

long long Set::size() const
{
    return static_cast<long long>(m_handle->members.size());
}

Set_s* Set::getRef() const
{
    return m_handle;
}

bool Set::operator!=(Set const& other) const
{
    return m_handle->members != other.m_handle->members;
}

bool Set::operator==(Set const& other) const
{
    return m_handle->members == other.m_handle->members;
}

Set::Members Set::members() const
{
    return kernel::toVector(m_handle->members);
}

} // namespace veldraw::toolbox
