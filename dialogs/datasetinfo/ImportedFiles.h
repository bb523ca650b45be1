#pragma once

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// The files and folders that the active data set came from, as the kernel remembers its loads; each is followed by a line feed.
/// A load whose instructions cannot be read adds none.
std::string importedFiles();

} // namespace veldraw::sdk::ui::propertymanager
