#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads text tables with a header line (.csv .tsv .txt) by CsvReader: one ordered zone with a variable a column.
///
/// Its rows may be points in a plane or in space that stand each for itself.
/// They are when columns called X, Y and Z tell where they are and all three vary. Where only two do, none of them may run through
/// the table: a curve over an axis has a coordinate that never turns back and goes on in more than half of its rows. Points along a
/// line parallel to an axis are a curve over it. Rows in the order of a column called time are a series in time, and where no more
/// than two coordinates vary, those in the order of a column called t.
class TableReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
