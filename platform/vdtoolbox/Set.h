#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <memory>
#include <set>
#include <vector>

namespace veldraw::toolbox {

/// An ordered set of one-based numbers of zones, variables or line maps, over a kernel handle that it owns.
/// A value type. Copies share the numbers until one of them changes or is asked for its handle, which stays the same from then on.
class VELDRAW_PLATFORM_API Set
{
public:
    typedef std::vector<int> Members;

    Set();

    /// The set with this one member. Deliberately implicit: a number is a set of one.
    Set(long long member);

    Set(std::set<int> const& members);
    Set(Set const& other);
    Set& operator=(Set const& other);
    virtual ~Set();

    /// Takes ownership of a kernel handle; null gives an empty set.
    static Set Take(Set_s* handle);

    /// Inserts a number. Numbers that no zone, variable or map can have (below 1, beyond int) are ignored.
    virtual void add(long long member);
    virtual void add(Set const& other);

    /// Takes a number out; nothing happens when it is not a member.
    virtual void remove(long long member);

    virtual bool isMember(long long member) const;
    virtual bool isEmpty() const;
    virtual long long size() const;

    /// The handle for a kernel call; it stays the set's. Never null.
    virtual Set_s* getRef() const;

    virtual bool operator!=(Set const& other) const;
    virtual bool operator==(Set const& other) const;

    /// The numbers in ascending order, as a copy: safe against changes while walking.
    virtual Members members() const;

private:
    struct Adopted
    {
        Set_s* handle;
    };
    explicit Set(Adopted adopted);

    Set_s& own() const;

    mutable std::shared_ptr<Set_s> m_handle;
    mutable bool m_isHandedOut = false; // somebody may write through it
};

} // namespace veldraw::toolbox
