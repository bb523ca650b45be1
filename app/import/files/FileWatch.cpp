#include "app/import/files/FileWatch.h"

#include "app/import/ImportError.h"

namespace veldraw::app {

void FileWatch::check() const
{
    for (FileStamp const& before : m_files) {
        if (before.differsFrom(FileStamp(before.path())))
            throw ImportError("another program changed \"" + before.path() +
                              "\" while it was read; try again when it has finished");
    }
}

} // namespace veldraw::app
