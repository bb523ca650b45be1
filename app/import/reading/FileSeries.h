#pragma once

#include "app/import/reading/Reader.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// A file that is one moment of a transient data set, or of a part of it.
struct SeriesEntry
{
    std::string path; ///< by which it is opened
    std::string file; ///< as the user, or a list, spells it, for messages
    std::string part; ///< the same for all moments of one part
    std::string name; ///< of its zone; empty for that of the file
    double time = 0.0;
};

using SeriesList = std::vector<SeriesEntry>;

/// Reads files as the moments of a transient data set, each by `ImportContext::readOther`.
///
/// What is one part is a strand: files of the same part, and in files of several blocks those of the same name. The entries say the
/// times, whatever the files say. Where all files are of one moment, they are parts of a data set without strands. Of a long series only the
/// first moment is loaded, and the others when they are shown.
/// @throws ImportError naming the file that cannot be read; kernel::Interrupted
std::vector<ImportedZone> readSeries(SeriesList const& list, ImportContext const& context);

} // namespace veldraw::app
