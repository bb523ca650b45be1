#pragma once

#include "kernel/frames/Session.h"

namespace veldraw::app {

/// Loads what is not loaded of a data set, dimensions and values, so that it can be written. Nothing happens when all is.
/// @return false when that failed or was cancelled; Session::lastError() says why
bool loadWholeDataSet(kernel::Session& session, kernel::DataSet& dataSet);

} // namespace veldraw::app
