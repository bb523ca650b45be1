#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads lists of files: collections (.pvd) and series in JSON (.series).
class SeriesReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
