#pragma once

#include "app/export/writing/ExportError.h"
#include "app/export/writing/PendingSave.h"
#include "kernel/base/Progress.h"
#include "kernel/data/DataSet.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// What a writer works with besides the data set.
struct ExportContext
{
    kernel::Progress& progress;        ///< has workOf() the data set, and as much again, as its total
    std::vector<std::string>& remarks; ///< take sentences for the user: values left out, several files instead of one
};

/// Writes data sets in one format.
class Writer
{
public:
    virtual ~Writer() = default;

    /// What write() would replace besides the file that the user asked for: "the folder \"a\" with 3 tables"; empty for nothing.
    /// @throws ExportError as write()
    virtual std::string alsoReplaces(kernel::DataSet const& dataSet, std::string const& path) const;

    /// What write() makes: the file that the user asked for, or a folder instead of it.
    virtual std::string madePath(kernel::DataSet const& dataSet, std::string const& path) const;

    /// Writes what commit() of the result puts in place.
    /// @param dataSet has zones, and all of their values are loaded
    /// @param path of the file that the user asked for
    /// @throws ExportError with the reason alone: who called names the file; kernel::Interrupted
    virtual std::unique_ptr<PendingSave> write(kernel::DataSet const& dataSet, std::string const& path,
                                               ExportContext const& context) = 0;
};

/// A measure of the bytes that a zone takes in a file.
std::int64_t workOf(kernel::Zone const& zone);

/// Names of all variables, each once: a name that is taken gets " (2)" and so on, an empty one becomes "Variable n".
std::vector<std::string> uniqueVariableNames(kernel::DataSet const& dataSet);

} // namespace veldraw::app
