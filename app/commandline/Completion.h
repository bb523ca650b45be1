#pragma once

#include "operations/Registry.h"

#include <QString>

namespace veldraw::app {

/// Whether there is a completion for this shell.
bool isCompletedShell(QString const& shell);

/// A script that has a shell complete the options of the program, and after --do the names and parameters of operations.
/// @param shell "bash", "zsh" or "fish"
QString completionScript(QString const& shell, operations::Registry const& registry);

} // namespace veldraw::app
