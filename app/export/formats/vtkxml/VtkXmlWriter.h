#pragma once

#include "app/export/writing/Writer.h"

namespace veldraw::app {

/// Writes VTK XML files.
///
/// A multi-block file (.vtm) takes any data set: it names its pieces, one a zone, in a folder beside it that has the name of the file. The
/// others take one zone: .vts an ordered one, .vti one whose points form a uniform grid, .vtu a finite-element zone, .vtp lines or
/// surface cells.
class VtkXmlWriter : public Writer
{
public:
    std::unique_ptr<PendingSave> write(kernel::DataSet const& dataSet, std::string const& path,
                                       ExportContext const& context) override;
};

} // namespace veldraw::app
