#pragma once

#include "app/files/ImportError.h"
#include "app/files/NamedFiles.h"
#include "app/files/NumberedFiles.h"
#include "app/import/reading/Deferral.h"
#include "kernel/base/Progress.h"
#include "kernel/data/DataSet.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// What an import brings.
struct ImportResult
{
    std::shared_ptr<kernel::DataSet> dataSet; ///< never null, with at least one zone
    std::vector<std::string> remarks; ///< what the user should know: converted types, cells left out and the like
};

/// Reads a file into a fresh data set, all or nothing. The extension decides on the format, see readableFormats() and their
/// readers. Variables of different zones belong together by name; a zone that lacks one has a passive field there.
/// @param path     a file that exists
/// @param deferral which values are loaded at once, where the format allows to load them later
/// @param progress gets a total
/// @param outsidePaths what becomes of other files that the file names outside of its folder
/// @throws ImportError the file cannot be read, is damaged, has no points, or changed while it was read
/// @throws OutsidePathsError, kernel::Interrupted
ImportResult importFile(QString const& path, Deferral deferral, kernel::Progress& progress,
                        OutsidePaths outsidePaths = OutsidePaths::Refuse);

/// The same when nobody watches.
ImportResult importFile(QString const& path, Deferral deferral = Deferral::Auto);

/// Reads one file, or several that are the moments of a transient data set: their numbers are its times (see groupsOf()).
ImportResult importGroup(FileGroup const& group, Deferral deferral, kernel::Progress& progress,
                         OutsidePaths outsidePaths = OutsidePaths::Refuse);

/// Filters for a file dialog, the one for everything that can be read first.
QStringList importNameFilters();

} // namespace veldraw::app
