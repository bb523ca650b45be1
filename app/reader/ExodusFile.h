#pragma once

#include <vtk_exodusII.h>

#include <cstdint>
#include <string>

namespace veldraw::app {

/// An Exodus II file that is open beside VTK's reader, which believes what the file says of itself: it hands over what was in memory where a variable
/// has no values, and looks beyond its nodes where a cell says so.
class ExodusFile
{
public:
    explicit ExodusFile(std::string const& path);
    ~ExodusFile();

    /// @param moment one-based; 0: of a file without moments
    /// @return in a few words what VTK's reader would stumble over; empty where it can read that moment
    std::string faultAt(int moment) const;

    /// @return whether the nodes have one coordinate: VTK's reader leaves the others to chance then
    bool isOnAxis() const { return ex_inquire_int(m_file, EX_INQ_DIM) == 1; }

    ExodusFile(ExodusFile const&) = delete;
    ExodusFile& operator=(ExodusFile const&) = delete;

private:
    bool hasNamesOfVariables() const;
    bool hasSoundCells() const;
    bool hasAllValues(int moment) const;
    bool hasAllValuesOfBlocks(ex_entity_type type, ex_inquiry blocks, int moment) const;
    bool hasValues(ex_entity_type type, std::int64_t id, int moment) const;
    int variablesOf(ex_entity_type type) const;

    int m_bytesOfNumber = 8; // as they are wanted
    int m_bytesInFile = 0;
    float m_version = 0.0F;
    int m_file; // its number for netCDF too
};

} // namespace veldraw::app
