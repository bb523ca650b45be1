#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/AuxiliaryData.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <functional>

namespace veldraw::kernel {

class Pages;

/// The owner of auxiliary data. It is looked up by its number once and then kept by identity, so it is still found when its
/// number has changed.
class AuxiliaryOwner
{
public:
    /// @param location kind of owner; zones, variables and maps are those of the active frame
    /// @param object one-based number of a zone, variable or line map; unused for the other kinds
    AuxiliaryOwner(Pages const& pages, AuxDataLocation_e location, int object);

    /// The owner's data; null when there is no such owner, or not any more.
    AuxiliaryData* data() const;

private:
    std::function<AuxiliaryData*()> m_find;
};

} // namespace veldraw::kernel
