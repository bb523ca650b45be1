#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads surfaces without a mesh in between: stereolithography (.stl), polygon (.ply) and Wavefront object files (.obj). Each solid of an STL file is a
/// zone with its name; the others are one zone. All is read at once.
class SurfaceReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
