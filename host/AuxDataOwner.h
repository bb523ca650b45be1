#pragma once

#include "kernel/data/AuxiliaryData.h"
#include "kernel/data/Identifier.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <functional>

namespace veldraw::host {

/// Who owns auxiliary data, found once by its place and from then on by identity: it is still found when its number
/// changes.
class AuxDataOwner
{
public:
    /// @param object one-based number of a zone, variable or line map; unused for the other kinds
    AuxDataOwner(AuxDataLocation_e location, int object);

    /// The owner's data as long as the owner is in the kernel, else null.
    kernel::AuxiliaryData* data() const;

private:
    std::function<kernel::AuxiliaryData*()> m_find;
};

} // namespace veldraw::host
