#pragma once

#include "app/import/zones/ImportedZone.h"
#include "kernel/data/DataSet.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// Puts imported zones together: variables are matched by name, and a zone that lacks one gets a passive field. The n-th zone of each
/// time step belongs to strand n where the file does not say otherwise.
std::shared_ptr<kernel::DataSet> dataSetOf(std::vector<ImportedZone> zones, std::string const& title);

} // namespace veldraw::app
