#pragma once

#include <QTextStream>

namespace veldraw::app {

/// Writes what is still pending. @return why not everything could be written; empty when all was
QString outputProblem(QTextStream& out);

} // namespace veldraw::app
