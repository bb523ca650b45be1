#pragma once

#include "app/export/writing/Writer.h"

namespace veldraw::app {

/// Writes any data set as VTK XML: a file (.vtm) that names its pieces, one a zone, in a folder beside it that has the name of the file.
class MultiBlockWriter : public Writer
{
public:
    void write(kernel::DataSet const& dataSet, std::string const& path, ExportContext const& context) override;
};

} // namespace veldraw::app
