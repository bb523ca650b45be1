#pragma once

#include <Qt>

namespace veldraw::ui {

/// Shows a cursor all over the application for its scope. It nests.
class OverrideCursor
{
public:
    explicit OverrideCursor(Qt::CursorShape shape);
    OverrideCursor(OverrideCursor const&) = delete;
    OverrideCursor& operator=(OverrideCursor const&) = delete;
    ~OverrideCursor();
};

} // namespace veldraw::ui
