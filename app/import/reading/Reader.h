#pragma once

#include "app/files/FileStamp.h"
#include "app/files/ImportError.h"
#include "app/files/NamedFiles.h"
#include "app/import/reading/LoadingPlan.h"
#include "app/import/zones/ImportedZone.h"
#include "kernel/base/Progress.h"

#include <functional>
#include <string>
#include <vector>

namespace veldraw::app {

/// What a reader works with besides its file.
struct ImportContext
{
    std::string title;          ///< name of a zone that the file does not name
    FileWatch& watch;           ///< has the file; gets each other one that is read for it, which the user is told of
    LoadingPlan& plan;          ///< decides which values are loaded at once
    kernel::Progress& progress; ///< has a total, which is the whole import's
    std::vector<std::string>& remarks; ///< take sentences for the user: what was converted, left out and the like
    OutsidePaths outsidePaths = OutsidePaths::Refuse; ///< for names of other files that stand in the file
    /// Reads a file of any format, for one that lists others; empty where these must not be read.
    std::function<std::vector<ImportedZone>(std::string const& path, ImportContext const& context)> readOther{};
};

/// Reads the files of one format.
///
///     std::vector<ImportedZone> ListReader::read(std::string const& path, ImportContext const& context)
///     {
///         std::shared_ptr<kernel::Buffer> const values = readList(path, context.progress); // throws ImportError("The list has no end.")
///         ImportedZone zone;
///         zone.zone = std::make_shared<kernel::Zone>(context.title, ZoneType_Ordered, values->size(), 1, 1);
///         zone.addField("X", kernel::Field(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal));
///         return {zone};
///     }
///
/// A reader is made by the table ReadableFormats for one file, and runs on a thread of its own. Write none for another extension of a
/// format that has one: that is a word in the table. A library that damaged files can crash is not called here but by a process of its
/// own (ReadingChild).
class Reader
{
public:
    virtual ~Reader() = default;

    /// Reads a whole file, or notes in loaders what is left in it.
    /// @param path of a regular file with something in it, that can be read
    /// @return its zones with their points; none where it has no points
    /// @throws ImportError with the reason alone: who called names the file; kernel::Interrupted
    virtual std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) = 0;
};

} // namespace veldraw::app
