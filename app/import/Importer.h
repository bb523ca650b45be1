#pragma once

#include "app/import/Deferral.h"
#include "app/import/ImportError.h"
#include "app/import/ImportResult.h"
#include "kernel/compute/Progress.h"

#include <QString>
#include <QStringList>

namespace veldraw::app {

/// Reads a file into a fresh data set, all or nothing. The extension decides on the format.
///
/// VTK XML (.vti .vtr .vts .vtu .vtp .vtm) and legacy (.vtk) files: one zone a block, named as the block, or as the
/// file when it has no blocks. Coordinates become the variables X, Y and Z; a vector "v" becomes v_X, v_Y, v_Z, an
/// array of more than three components v_1, v_2 and so on; a name that is taken gets " (2)". Point data are nodal, cell
/// data cell-centred. Variables of different blocks belong together by name; a block that lacks one has a passive field
/// there. Field data of a block that mean something:
///   - TimeValue (a number): the zone's solution time;
///   - StrandId (a number from 0): the zone's time strand;
///   - TimeStep (a number) without StrandId: the n-th block of each time step belongs to strand n, and the step is the
///     solution time where there is no TimeValue;
///   - ZoneName, ZoneType, IsScattered, CoordinateNames, VariableNames, ArrayVariables: written by our export, so that a
///     data set comes back as it was.
/// An array of bytes called vtkGhostType is no variable, but says which points or cells are hidden (kernel::Blanking).
///
/// CSV and TSV files (.csv .tsv .txt): see CsvReader. MetaImage files (.mhd .mha): see MetaImageImport.
///
/// @param path     a file that exists
/// @param deferral which values are loaded at once, where the format allows to load them later
/// @param progress gets a total
/// @throws ImportError the file cannot be read, is damaged, has no points, or changed while it was read
/// @throws kernel::Interrupted
ImportResult importFile(QString const& path, Deferral deferral, kernel::Progress& progress);

/// The same when nobody watches.
ImportResult importFile(QString const& path, Deferral deferral = Deferral::Auto);

/// Filters for a file dialog, the one for everything that can be read first.
QStringList importNameFilters();

} // namespace veldraw::app
