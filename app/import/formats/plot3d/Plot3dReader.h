#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads PLOT3D files in binary form: a grid (.xyz), with the solution (.q) and the functions (.f) of the same name beside it. Each block is an ordered
/// zone; marks of the grid are the variable IBlank. Values may stay in the files.
class Plot3dReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
