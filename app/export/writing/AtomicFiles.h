#pragma once

#include "kernel/base/Progress.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// Files that appear once all of them are complete: they are written beside their targets under other names and renamed by
/// commit(), one after the other. What was not committed is removed again.
class AtomicFiles
{
public:
    AtomicFiles() = default;
    ~AtomicFiles();

    /// Creates an empty file beside @p target. A target that is a link stands for the file it leads to.
    /// @return the path to write to
    /// @throws ExportError no permission, no such folder, or the target is a folder or a device
    std::string add(std::string const& target);

    /// Creates a folder for some of the files unless it is there; removed with them. @throws ExportError
    void addFolder(std::string const& folder);

    /// Puts the files in place; permissions of files that stood there are kept.
    /// @param progress hears how much of them has reached the disk; it may throw, and nothing is in place then
    /// @throws ExportError when the disk takes the files back; nothing is in place then, unless a rename failed half way
    void commit(kernel::Progress& progress);

    AtomicFiles(AtomicFiles const&) = delete;
    AtomicFiles& operator=(AtomicFiles const&) = delete;

private:
    struct File
    {
        std::string temporary;
        std::string target;
    };

    std::vector<File> m_files;
    std::vector<std::string> m_folders;
};

} // namespace veldraw::app
