#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads an array of NumPy (.npy) or several (.npz): those of one shape are the variables of an ordered zone, in which the last axis is I. X, Y and Z are
/// the indices from 0 where no array has such a name. All is read at once.
class NumpyReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
