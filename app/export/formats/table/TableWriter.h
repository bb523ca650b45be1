#pragma once

#include "app/export/writing/Writer.h"

namespace veldraw::app {

/// Writes the nodal variables of each zone as a text table (.csv with commas, .tsv with tabs): a header line, and a row a point.
/// Retained auxiliary data of the data set stand above that in comment lines.
///
/// Numbers have as many digits as it takes to read them back as they were. Several zones become several files, with the zone's number
/// appended to the name, in a folder that has the name and "_tables" in the place of the extension.
class TableWriter : public Writer
{
public:
    std::string alsoReplaces(kernel::DataSet const& dataSet, std::string const& path) const override;
    std::string madePath(kernel::DataSet const& dataSet, std::string const& path) const override;
    std::unique_ptr<PendingSave> write(kernel::DataSet const& dataSet, std::string const& path,
                                       ExportContext const& context) override;
};

} // namespace veldraw::app
