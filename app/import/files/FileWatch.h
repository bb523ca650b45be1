#pragma once

#include "app/import/files/FileStamp.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// Notices when a file is changed by somebody else while it is being read.
class FileWatch
{
public:
    /// Notes the present size and modification time. @throws ImportError when the file cannot be looked at
    void add(std::string const& path) { m_files.emplace_back(path); }

    /// Compares all files with what was noted. @throws ImportError naming the first one that differs
    void check() const;

private:
    std::vector<FileStamp> m_files;
};

} // namespace veldraw::app
