#pragma once

#include <QString>

#include <string>
#include <vector>

namespace veldraw::app {

/// A name that comes from somewhere else, in a question: ends of lines and turns of the writing direction, which could make it look like
/// another one, are replaced.
QString legible(QString name);

/// Such names, each on a line of its own; of very many the first ones, and how many more there are.
QString linesOf(std::vector<std::string> const& names);

} // namespace veldraw::app
