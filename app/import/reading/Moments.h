#pragma once

#include "app/import/reading/Reader.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace veldraw::app {

/// Reads one moment of a file, by its number from 0.
using ReadMoment = std::function<std::vector<ImportedZone>(std::size_t moment, ImportContext const& context)>;

/// Reads all moments of a file that has several, as if each were a file of a series: zones of one name are a strand. With one moment, or none, there
/// are no strands.
/// @param path  of a file with something in it
/// @param times of the moments; with none of them the moment 0 is read, and zones have the times that they have
/// @throws ImportError naming the time that cannot be read; kernel::Interrupted
std::vector<ImportedZone> readMoments(std::string const& path, std::vector<double> const& times,
                                      ImportContext const& context, ReadMoment const& read);

} // namespace veldraw::app
