#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdtoolbox/Set.h"

#include <string>

namespace veldraw::toolbox {

/// What changed in the kernel. Valid during the delivery only.
class VELDRAW_PLATFORM_API StateChangeEventInterface
{
public:
    virtual ~StateChangeEventInterface() = default;

    /// StateChange_e as a number.
    virtual int kind() const = 0;

    /// Whether the event has style parameters at all.
    virtual bool hasStyleParam() const = 0;

    /// @param position one-based
    virtual bool hasStyleParam(int position) const = 0;

    /// Name at a place of the changed style path; empty for a position that does not exist.
    /// @param position one-based; 1 is the top-level name
    virtual std::string styleParam(int position) const = 0;

    virtual bool hasZones() const = 0;
    virtual bool hasVars() const = 0;

    /// One-based numbers of the variables that it is about.
    virtual Set vars() const = 0;

    /// One-based numbers of the zones that it is about.
    virtual Set zones() const = 0;
};

} // namespace veldraw::toolbox
