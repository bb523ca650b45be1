#pragma once

#include "app/files/ImportError.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// What becomes of files that a file names outside of its own folder, such as "../other.raw".
enum class OutsidePaths
{
    Refuse, ///< OutsidePathsError
    Follow
};

/// A file names others outside of its folder, and nobody has allowed to read them.
class OutsidePathsError : public ImportError
{
public:
    /// @param paths where the names lead, absolute, each once; one at least
    OutsidePathsError(std::string const& text, std::vector<std::string> paths);

    std::vector<std::string> const& paths() const { return m_paths; }

private:
    std::vector<std::string> m_paths;
};

/// The path by which a file is opened that another file names.
/// @param path of the file that names it, whose folder relative names start in
/// @param name as it stands there
std::string namedFile(std::string const& path, std::string const& name);

/// Looks for files that another one needs. @param path of the file that names them
/// @throws ImportError that names those that cannot be read
void requireReadable(std::string const& path, std::vector<std::string> const& names);

/// Holds names that stand in a file against its folder. Only their text counts: where a link in the folder leads is up to whoever made the
/// link, whereas a name may come from anybody.
/// @param path of the file that has the names
/// @throws OutsidePathsError when some of them lead out of the folder, unless they are followed
void requireInside(std::string const& path, std::vector<std::string> const& names, OutsidePaths outside);

} // namespace veldraw::app
