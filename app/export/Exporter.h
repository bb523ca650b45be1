#pragma once

#include "app/export/writing/ExportError.h"
#include "kernel/base/Progress.h"
#include "kernel/session/Session.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace veldraw::app {

/// What a save may replace.
enum class Replacing
{
    ChosenFile, ///< the file that the user asked for alone
    AllNeeded   ///< others too
};

/// Writes a data set; the extension decides on the format, see writableFormats() and their writers.
///
/// Numbers are written as they are in memory; passive variables are left out. Whenever it ends, there is all that was there before or
/// all that is new (PendingSave).
/// @param dataSet  all of its values are loaded
/// @param progress gets a total
/// @return what the user should know: values left out, several files instead of one
/// @throws WouldReplaceMore, ExportError, kernel::Interrupted; nothing is written then
std::vector<std::string> exportDataSet(kernel::DataSet const& dataSet, QString const& path, kernel::Progress& progress,
                                       Replacing replacing = Replacing::ChosenFile);

/// The same when nobody watches.
std::vector<std::string> exportDataSet(kernel::DataSet const& dataSet, QString const& path,
                                       Replacing replacing = Replacing::ChosenFile);

/// What exportDataSet() would have to replace besides the file @p path, to be asked about: "the folder \"a\" with 3 tables"; empty for nothing, and
/// where it would refuse anyway.
QString alsoReplaced(kernel::DataSet const& dataSet, QString const& path);

/// Whether exportDataSet() would replace a file @p path that is there, to be asked about; not where it makes a folder of tables instead, or
/// would refuse anyway.
bool replacesFile(kernel::DataSet const& dataSet, QString const& path);

/// Where a data set stands that exportDataSet() has saved as @p path: that file, or the folder that several tables have instead.
QString savedPath(kernel::DataSet const& dataSet, QString const& path);

/// Loads what is not loaded of a data set, dimensions and values, so that it can be written. Nothing happens when all is.
/// @return false when that failed or was cancelled; Session::lastError() says why
bool loadWholeDataSet(kernel::Session& session, kernel::DataSet& dataSet);

/// Filters for a file dialog.
QStringList exportNameFilters();

} // namespace veldraw::app
