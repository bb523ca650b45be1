#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>

namespace veldraw::toolbox {

class Set;

/// Named arguments of a kernel call. Each append copies what it is given and returns false when there is no memory for
/// it.
class VELDRAW_PLATFORM_API ArgList
{
public:
    ArgList();
    virtual ~ArgList();

    bool appendInt(std::string const& name, long long value);
    bool appendSet(std::string const& name, Set const& set);

    /// Appends a number of any meaning, for instance the address of a result.
    bool appendArbParam(std::string const& name, long long value);

    bool appendDouble(std::string const& name, double value);
    bool appendString(std::string const& name, std::string const& value);

    /// The handle for a kernel call; it stays the list's. Null when there was no memory for it.
    ArgList_s* getRef() const;

    ArgList(ArgList const&) = delete;
    ArgList& operator=(ArgList const&) = delete;

private:
    ArgList_s* m_list;
};

} // namespace veldraw::toolbox
