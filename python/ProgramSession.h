#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/operations/Operation.h"
#include "operations/Registry.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {
class Session;
}

namespace veldraw::python {

/// The session behind the C functions, as Python works in it. Each function here lets an operation of another thread end first, and raises
/// what Ctrl+C raises.

/// All operations, those with files included.
operations::Registry const& registry();

kernel::Session& session();

/// Runs a command as the command line does. @throws Failure with the reason, pybind11::error_already_set
void run(operations::Command const& command);

/// Has the session carry out an operation that no command stands for. @throws as run()
void perform(kernel::Operation& operation);

/// Runs work that changes nothing in the session, without the global lock. @throws as run()
void runWork(std::string const& name, std::function<void(kernel::Progress&)> const& work);

/// Loads the values of a variable, or the dimensions of a zone, unless they are loaded; nothing of that is recorded. @throws as run()
void loadValues(kernel::DataSet const& dataSet, int zone, int variable);
void loadDimensions(kernel::DataSet const& dataSet, int zone);

void undo(); ///< @throws as run()
void redo(); ///< @throws as run()

/// @param deferral auto, always or never. @return the data set of the first file. @throws as run()
std::shared_ptr<kernel::DataSet> openFiles(std::vector<std::string> const& paths, std::string const& deferral,
                                           bool inNewFrames, bool followPaths);

/// Saves a data set that a frame shows. @throws as run()
void saveFile(std::shared_ptr<kernel::DataSet> const& dataSet, std::string const& path, bool overwrite);

/// Shows a new data set in a frame. @param inNewFrame otherwise instead of all that is open. @throws as run()
void show(std::shared_ptr<kernel::DataSet> const& dataSet, bool inNewFrame);

} // namespace veldraw::python
