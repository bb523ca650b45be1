#pragma once

#include "dialogs/property/DialogsApi.h"

#include <Qt>

namespace veldraw::ui {

/// Shows a cursor all over the application for its scope. It nests.
class VDSDKDIALOGS_DATA_QT_API OverrideCursor
{
public:
    explicit OverrideCursor(Qt::CursorShape shape);
    OverrideCursor(OverrideCursor const&) = delete;
    OverrideCursor& operator=(OverrideCursor const&) = delete;
    ~OverrideCursor();
};

} // namespace veldraw::ui
