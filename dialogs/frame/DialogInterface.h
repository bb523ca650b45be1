#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw {

/// What the application drives a dialog through.
class VDSDKDIALOGS_DATA_QT_API DialogInterface
{
public:
    /// Brings the dialog to the front, opening it if it is closed, and returns at once.
    virtual void launch() = 0;
    /// Takes the dialog off the screen. The object and all its settings stay.
    virtual void drop() = 0;
    /// Brings the dialog's widgets up to date now instead of at the next idle moment.
    virtual void updateContent() = 0;
    virtual ~DialogInterface();
};

} // namespace veldraw
