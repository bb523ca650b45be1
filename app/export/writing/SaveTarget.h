#pragma once

#include "app/export/writing/FileRights.h"

#include <optional>
#include <string>

namespace veldraw::app {

/// The file that a save makes or replaces, after a look at whether that does harm.
///
/// A new file takes the place of the old one. That is refused where it would end more than the old content: for what is no file,
/// for files that are write-protected or have a second name, and for those whose owner or rights cannot be kept.
class SaveTarget
{
public:
    /// @param path a link stands for the file it leads to, whether that is there or not
    /// @throws ExportError with the reason
    explicit SaveTarget(std::string const& path);

    std::string const& path() const { return m_path; } ///< behind all links
    std::string folder() const;                        ///< never empty
    std::string name() const;

    /// Those of the file that is there.
    std::optional<FileRights> const& rights() const { return m_rights; }

    /// Looks again whether a new file may take the place, and whether the place is as it was. @throws ExportError
    void check() const;

private:
    void checkPlace() const;

    std::string m_path;
    std::optional<FileRights> m_rights;
};

/// A path behind all links, also of a file that is not there yet. @throws ExportError
std::string behindLinks(std::string const& path);

/// Whether somebody has asked for a file not to be changed. @throws ExportError that cannot be found out
bool isWriteProtected(std::string const& path);

/// The folder that a path names a file in; "." for a name alone.
std::string folderOf(std::string const& path);

} // namespace veldraw::app
