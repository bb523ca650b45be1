#pragma once

#include "app/commandline/CommandLineOptions.h"
#include "app/commands/ProgramOperations.h"
#include "app/files/NumberedFiles.h"
#include "kernel/session/Session.h"

#include <QTextStream>

namespace veldraw::app {

/// Opens and saves files for a batch. What there is to say besides failures goes to the stream for errors, "veldraw: " first.
class BatchFiles : public FileOperations
{
public:
    /// @param options what they say on reading holds for all files
    BatchFiles(kernel::Session& session, QTextStream& err, CommandLineOptions const& options);

    /// Opens several files, each in a frame of its own; those that cannot be opened are told and left out.
    /// @return those that could be opened. @throws std::runtime_error when there is no place for them
    QStringList openAll(QStringList const& files);

    /// Whether the last openAll() has opened all files.
    bool areAllOpen() const { return m_areAllOpen; }

    void open(QStringList const& paths, bool inNewFrames) override;
    void save(QString const& path, bool overwrite) override;
    void savePicture(QString const& path) override;

    /// @throws std::runtime_error that names files which were cut while values were read from them
    static void requireWholeFiles();

private:
    using Frames = std::vector<std::shared_ptr<kernel::Frame>>;

    Frames read(std::vector<FileGroup> const& groups, QStringList& opened, QStringList& problems);
    void put(Frames frames, QStringList const& opened, bool inNewFrames);
    void tell(QString const& text);

    kernel::Session& m_session;
    QTextStream& m_err;
    CommandLineOptions const& m_options;
    bool m_areAllOpen = false;
};

} // namespace veldraw::app
