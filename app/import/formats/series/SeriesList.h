#pragma once

#include "app/import/reading/FileSeries.h"

#include <string>

namespace veldraw::app {

/// The entries of a collection file (.pvd): XML with a "DataSet" for each file, its "timestep", "group" and "part".
/// @throws ImportError with the reason, kernel::Interrupted
SeriesList collectionOf(std::string const& path, kernel::Progress const& progress);

/// The entries of a list in JSON (.series): "files" with a "name" and a "time" each; where a time is missing, the place in the list.
/// @throws ImportError with the reason, kernel::Interrupted
SeriesList jsonSeriesOf(std::string const& path, kernel::Progress const& progress);

} // namespace veldraw::app
