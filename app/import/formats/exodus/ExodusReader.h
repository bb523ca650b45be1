#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads Exodus II files (.e .exo .ex2): each block is a zone with its name, each moment has zones of its own, in the strands of their blocks. Values at
/// nodes are nodal, those of elements cell-centred. All is read at once.
class ExodusReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
