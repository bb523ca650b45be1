#pragma once

#include "app/export/writing/Writer.h"

namespace veldraw::app {

/// Writes a data set with one zone as a VTK XML file of its own. The extension chooses the kind of grid: .vts for an ordered zone, .vti for
/// one whose points form a uniform grid, .vtu for a finite-element zone, .vtp for lines or surface cells.
class OneZoneWriter : public Writer
{
public:
    void write(kernel::DataSet const& dataSet, std::string const& path, ExportContext const& context) override;
};

} // namespace veldraw::app
