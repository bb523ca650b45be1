#pragma once

#include <optional>
#include <set>
#include <string>
#include <sys/stat.h>

namespace veldraw::app {

/// A file's entry in its folder; a link is one itself. @throws ExportError that cannot be found out
std::optional<struct stat> entryAt(std::string const& path);

/// Names of all that stands in a folder. @throws ExportError
std::set<std::string> namesIn(std::string const& folder);

/// Whether a regular file has this name; a link is none. @throws ExportError that cannot be found out
bool isFile(std::string const& path);

/// Whether a folder, or a link to one, has this name. @throws ExportError something else has
bool isFolder(std::string const& path);

} // namespace veldraw::app
