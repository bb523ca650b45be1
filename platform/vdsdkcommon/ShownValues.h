#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdtoolbox/Set.h"

#include <memory>

namespace veldraw::sdk {

/// Declares the values that a dialog shows. The application keeps them in memory as far as they are loaded, until others are
/// declared or the object is gone.
class VELDRAW_PLATFORM_API ShownValues
{
public:
    ShownValues();
    ~ShownValues();

    /// Declares values of a zone in place of what was declared before. Numbers that do not exist are left out.
    /// @param zone, variables one-based numbers in the active data set
    void set(int zone, toolbox::Set const& variables);

    /// Declares nothing any more.
    void clear();

    ShownValues(ShownValues const&) = delete;
    ShownValues& operator=(ShownValues const&) = delete;

private:
    std::shared_ptr<void const> m_declared;
};

} // namespace veldraw::sdk
