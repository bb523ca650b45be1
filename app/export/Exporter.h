#pragma once

#include "app/export/ExportError.h"
#include "kernel/compute/Progress.h"
#include "kernel/data/DataSet.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace veldraw::app {

/// What an export has written.
struct ExportResult
{
    QStringList files;                ///< the file that was asked for first, or those that stand for it
    std::vector<std::string> remarks; ///< what the user should know: values left out, several files instead of one
};

/// Writes a data set; the extension decides on the format.
///
/// .vtm: any data set, its pieces in a folder beside it, named as the file. .vts: one ordered zone; .vti: one ordered
/// zone whose points form a uniform grid; .vtu: one finite-element zone; .vtp: one zone of surface or line cells.
/// Numbers are written as they are in memory, and the components of an array that is still whole as an array again (ArrayPlan); so is
/// what says which points and cells are hidden. A piece that came as .vtp is one again. Passive variables are left out. .csv, .tsv: a column a nodal variable, 17
/// significant digits (9 for float); several zones become several files, with the zone's number appended to the name.
///
/// Everything is written to temporary files beside the target first and renamed at the end: a failure leaves old files
/// alone.
/// @param progress gets a total
/// @throws ExportError, kernel::Interrupted; nothing is written then
ExportResult exportDataSet(kernel::DataSet const& dataSet, QString const& path, kernel::Progress& progress);

/// The same when nobody watches.
ExportResult exportDataSet(kernel::DataSet const& dataSet, QString const& path);

/// Filters for a file dialog.
QStringList exportNameFilters();

} // namespace veldraw::app
