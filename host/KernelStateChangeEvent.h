#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"

namespace veldraw::kernel {
struct StateChangeEvent;
}

namespace veldraw::host {

/// The kernel's event as the platform tells it. Refers to the kernel's event, which must outlive it.
class VELDRAW_PLATFORM_API KernelStateChangeEvent : public toolbox::StateChangeEventInterface
{
public:
    explicit KernelStateChangeEvent(kernel::StateChangeEvent const& event);

    int kind() const override;
    bool hasStyleParam() const override;
    bool hasStyleParam(int position) const override;
    std::string styleParam(int position) const override;
    bool hasZones() const override;
    bool hasVars() const override;
    toolbox::Set vars() const override;
    toolbox::Set zones() const override;

private:
    kernel::StateChangeEvent const& m_event;
};

} // namespace veldraw::host
