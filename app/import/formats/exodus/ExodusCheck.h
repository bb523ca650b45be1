#pragma once

#include <string>

namespace veldraw::app {

/// Holds a file of the classic forms of netCDF (versions 1, 2 and 5), in which Exodus II files stand, against what its own header says: VTK's reader takes
/// what is not there for zeros. Other files are left to that reader: those in HDF5 tell by themselves that they are incomplete.
/// Form: "NetCDF Classic Format Specification", Unidata.
/// @return whether the file may be compressed, which HDF5 files may
/// @throws ImportError where the header is damaged, or the file ends too early
bool checkExodus(std::string const& path);

} // namespace veldraw::app
