#pragma once

#include "app/files/ImportError.h"
#include "app/vtk/VtkErrorCapture.h"

#include <string>

namespace veldraw::app {

/// What VTK says of a file without the file's path, which may be that of a copy in memory: who called knows which file it is.
inline std::string withoutPath(std::string text, std::string const& path)
{
    for (std::string const& words : {" for file: " + path, " file " + path, " " + path}) {
        for (std::size_t at = text.find(words); at != std::string::npos; at = text.find(words))
            text.erase(at, words.size());
    }
    return text;
}

/// @param path of the file, or of its copy @throws ImportError when VTK has complained of anything
inline void throwOnError(VtkErrorCapture const& errors, std::string const& path)
{
    std::string const reason = withoutPath(errors.firstError(), path);
    if (errors.hasErrors())
        throw ImportError("it is damaged, incomplete or of another kind" +
                          (reason.empty() ? reason : " (" + reason + ")"));
}

} // namespace veldraw::app
