#pragma once

#include "app/files/ImportError.h"
#include "app/vtk/VtkErrorCapture.h"

namespace veldraw::app {

/// @throws ImportError when VTK has complained of anything
inline void throwOnError(VtkErrorCapture const& errors)
{
    std::string const reason = errors.firstError();
    if (errors.hasErrors())
        throw ImportError("it is damaged, incomplete or of another kind" +
                          (reason.empty() ? reason : " (" + reason + ")"));
}

} // namespace veldraw::app
