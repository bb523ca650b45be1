#pragma once

#include "app/files/PictureOptions.h"
#include "kernel/operations/CommandText.h"
#include "operations/Registry.h"

#include <QStringList>

namespace veldraw::app {

/// Does with files what commands ask for.
class FileOperations
{
public:
    FileOperations() = default;
    virtual ~FileOperations() = default;

    // Each throws std::exception with the reason when it fails; nothing has changed then.
    virtual void open(QStringList const& paths, bool inNewFrames) = 0; ///< otherwise instead of all that is open
    virtual void save(QString const& path, bool overwrite) = 0;        ///< the active data set
    virtual void savePicture(QString const& path, PictureOptions const& options) = 0;

    FileOperations(FileOperations const&) = delete;
    FileOperations& operator=(FileOperations const&) = delete;
};

/// The command that opens files. @param paths of one series, or of files that each get a frame
kernel::CommandText openCommand(QStringList const& paths, bool inNewFrames);

/// The commands that save the active data set and a picture.
kernel::CommandText saveCommand(QString const& path, bool overwrite);
kernel::CommandText savePictureCommand(QString const& path, PictureOptions const& options = {});

/// The name of the operation that stands for the commands of a script.
constexpr char runScriptName[] = "run";
operations::OperationEntry runScriptEntry();

/// The name of the operation that makes a picture, for which a display is needed.
constexpr char savePictureName[] = "save-picture";

/// All operations of the program: those of the kernel, and those with files.
/// @param files is used when one of the latter runs; null for a registry to look things up in
operations::Registry programOperations(FileOperations* files = nullptr);

} // namespace veldraw::app
