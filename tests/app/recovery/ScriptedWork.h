#pragma once

#include "app/commandline/BatchFiles.h"
#include "operations/CommandRunner.h"

#include <cstdint>
#include <string>
#include <vector>

namespace veldraw::tests {

/// Works in the session as a user of the window does, by lines of text: commands, "undo" and "redo".
class ScriptedWork : private app::FileOperations
{
public:
    ScriptedWork();
    ~ScriptedWork() override;

    /// @return false when it was refused
    bool run(std::string const& line);

    /// What opens files where work is repeated.
    app::FileOperations& files() { return *this; }

private:
    void open(QStringList const& paths, bool inNewFrames) override;
    void save(QString const& path, bool overwrite) override;
    void savePicture(QString const& path, app::PictureOptions const& options) override;

    kernel::Session& m_session;
    QString m_told;
    QTextStream m_stream;
    app::CommandLineOptions m_options;
    app::BatchFiles m_files;
    operations::Registry m_operations;
    operations::CommandRunner m_runner;
};

/// Saves a data set of two zones with values in double and single precision. @param path a .vtm
void writeSampleFile(std::string const& path);

/// A number for all that the page has of data: names, kinds, which fields share their values, and each bit of them.
std::uint64_t digestOfSession();

/// Many steps on files that writeSampleFile() has made, each time the same: edits, computations, zones, a second frame, undo and redo, saves.
/// @param folder where is saved
std::vector<std::string> longWork(std::string const& file, std::string const& secondFile, std::string const& folder);

} // namespace veldraw::tests
