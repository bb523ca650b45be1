#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/AuxiliaryData.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <functional>

namespace veldraw::kernel {

class Pages;

/// Who owns auxiliary data, found once by its place and from then on by identity: it is still found when its number
/// changes.
class AuxiliaryOwner
{
public:
    /// @param location kind of owner; zones, variables and maps are those of the active frame
    /// @param object one-based number of a zone, variable or line map; unused for the other kinds
    AuxiliaryOwner(Pages const& pages, AuxDataLocation_e location, int object);

    /// The owner's data; null when there is, or is any more, no such owner.
    AuxiliaryData* data() const;

private:
    std::function<AuxiliaryData*()> m_find;
};

} // namespace veldraw::kernel
