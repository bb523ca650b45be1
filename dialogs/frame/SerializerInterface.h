#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw::common {

/// State that outlives the closing of a dialog.
class VDSDKDIALOGS_DATA_QT_API SerializerInterface
{
public:
    /// Remembers the present state.
    virtual void save() const = 0;
    /// Brings back what was saved last; nothing happens when nothing was.
    virtual void restore() const = 0;
    virtual ~SerializerInterface();
};

} // namespace veldraw::common
