#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads EnSight Gold cases (.case), with all files that they name: each part is a zone with its name, each moment of a transient one has zones of its
/// own, in the strands of their parts. Values at nodes are nodal, those of elements cell-centred. Constants are auxiliary data of the data set. All is
/// read at once.
class EnSightReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
