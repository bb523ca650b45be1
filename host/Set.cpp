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
    : m_handle(std::make_shared<Set_s>())
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
            m_handle->members.insert(member);
    }
}

Set::Set(Set const& other)
    : m_handle(other.m_isHandedOut ? std::make_shared<Set_s>(*other.m_handle) : other.m_handle)
{
}

Set::Set(Adopted adopted)
    : m_handle(adopted.handle ? std::shared_ptr<Set_s>(adopted.handle) : std::make_shared<Set_s>())
{
}

Set::~Set() = default;

Set& Set::operator=(Set const& other)
{
    if (m_isHandedOut)
        m_handle->members = other.m_handle->members;
    else
        m_handle = Set(other).m_handle;
    return *this;
}

Set Set::Take(Set_s* handle)
{
    return Set(Adopted{handle});
}

/// The numbers, of this set alone.
Set_s& Set::own() const
{
    if (m_handle.use_count() > 1)
        m_handle = std::make_shared<Set_s>(*m_handle);
    return *m_handle;
}

void Set::add(long long member)
{
    if (isNumber(member))
        own().members.insert(static_cast<int>(member));
}

void Set::add(Set const& other)
{
    std::shared_ptr<Set_s> const added = other.m_handle;
    own().members.insert(added->members.begin(), added->members.end());
}

void Set::remove(long long member)
{
    if (isMember(member))
        own().members.erase(static_cast<int>(member));
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
    Set_s& handle = own();
    m_isHandedOut = true;
    return &handle;
}

bool Set::operator!=(Set const& other) const
{
    return !(*this == other);
}

bool Set::operator==(Set const& other) const
{
    return m_handle == other.m_handle || m_handle->members == other.m_handle->members;
}

Set::Members Set::members() const
{
    return toVector(m_handle->members);
}

} // namespace veldraw::toolbox
