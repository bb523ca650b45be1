#pragma once

#include "app/commands/ProgramOperations.h"
#include "app/files/NamedFiles.h"
#include "app/files/NumberedFiles.h"
#include "app/import/reading/Deferral.h"
#include "kernel/session/Session.h"

namespace veldraw::app {

/// Opens and saves files for whoever has no window: the command line, and Python.
class DataFiles : public FileOperations
{
public:
    /// How files are read.
    struct Reading
    {
        Deferral deferral = Deferral::Auto;
        OutsidePaths outsidePaths = OutsidePaths::Refuse;
    };

    DataFiles(kernel::Session& session, Reading reading)
        : m_session(session)
        , m_reading(reading)
    {
    }

    /// From now on files are read in this way.
    void setReading(Reading reading) { m_reading = reading; }

    /// Opens several files, each in a frame of its own; those that cannot be opened are told and left out.
    /// @return those that could be opened. @throws std::runtime_error when there is no place for them
    QStringList openAll(QStringList const& files);

    /// Whether the last openAll() has opened all files.
    bool areAllOpen() const { return m_areAllOpen; }

    void open(QStringList const& paths, bool inNewFrames) override;
    void save(QString const& path, bool overwrite) override;

    /// @throws std::runtime_error that names files which were cut while values were read from them
    static void requireWholeFiles();

protected:
    /// Tells the user something besides a failure.
    virtual void tell(QString const& text) = 0;

    // How the user allows what was refused, as sentences.
    virtual QString adviceToFollow() const = 0;
    virtual QString adviceToOverwrite() const = 0;

    kernel::Session& session() const { return m_session; }

private:
    using Frames = std::vector<std::shared_ptr<kernel::Frame>>;

    Frames read(std::vector<FileGroup> const& groups, QStringList& opened, QStringList& problems);
    std::shared_ptr<kernel::Frame> readGroup(FileGroup const& group);
    void put(Frames frames, QStringList const& opened, bool inNewFrames);

    kernel::Session& m_session;
    Reading m_reading;
    bool m_areAllOpen = false;
};

} // namespace veldraw::app
