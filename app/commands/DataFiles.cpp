#include "app/commands/DataFiles.h"

#include "app/export/Exporter.h"
#include "app/files/MappedMemory.h"
#include "app/import/Importer.h"
#include "app/import/child/ReadingChild.h"
#include "kernel/operations/AddFrame.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <stdexcept>

namespace veldraw::app {

namespace {

std::string fileName(QString const& path)
{
    return QFileInfo(path).fileName().toStdString();
}

std::runtime_error cannotSave(QString const& path, std::string const& reason)
{
    return std::runtime_error("Cannot save \"" + path.toStdString() + "\": " + reason);
}

} // namespace

QStringList DataFiles::openAll(QStringList const& files)
{
    std::vector<FileGroup> const groups = groupsOf(files);
    QStringList opened;
    QStringList problems;
    Frames const frames = read(groups, opened, problems);
    put(frames, opened, false);
    for (QString const& problem : problems)
        tell(problem);
    m_areAllOpen = problems.isEmpty();
    QStringList names; // a series has that of its first file
    for (FileGroup const& group : groups)
        if (opened.contains(group.paths.first()))
            names.push_back(group.paths.first());
    return names;
}

std::shared_ptr<kernel::Frame> DataFiles::readGroup(FileGroup const& group)
{
    QString const file = group.paths.first();
    ImportResult result;
    m_session.runOperation("Open " + fileName(file), [&](kernel::Progress& progress) {
        result = importGroup(group, m_reading.deferral, progress, m_reading.outsidePaths);
    });
    auto frame = std::make_shared<kernel::Frame>(group.name.toStdString(), kernel::Rectangle{});
    frame->dataSet = result.dataSet;
    for (std::string const& remark : result.remarks)
        tell(QStringLiteral("%1: %2").arg(file, QString::fromStdString(remark)));
    return frame;
}

DataFiles::Frames DataFiles::read(std::vector<FileGroup> const& groups, QStringList& opened, QStringList& problems)
{
    Frames frames;
    for (FileGroup const& group : groups) {
        // What one file has done to its reader is nothing to the next.
        auto const end = qScopeGuard([] { ReadingChild::endKept(); });
        try {
            frames.push_back(readGroup(group));
            opened.append(group.paths);
        } catch (kernel::Interrupted const&) {
            throw;
        } catch (OutsidePathsError const& error) {
            problems.push_back(QString::fromStdString(error.what()) + QLatin1Char(' ') + adviceToFollow());
        } catch (std::exception const& error) {
            problems.push_back(QString::fromStdString(error.what()));
        }
    }
    return frames;
}

void DataFiles::put(Frames frames, QStringList const& opened, bool inNewFrames)
{
    if (frames.empty())
        return;
    kernel::CommandText const command = openCommand(opened, inNewFrames);
    bool isDone = false;
    if (inNewFrames) {
        kernel::AddFrame adding(std::move(frames));
        adding.setCommand(command);
        isDone = m_session.perform(adding);
    } else {
        isDone = m_session.openPage(std::move(frames));
        if (isDone)
            m_session.journal().add(command.text(), m_session.pages());
    }
    if (!isDone)
        throw std::runtime_error(opened.join(QStringLiteral(", ")).toStdString() + ": " + m_session.lastError());
}

void DataFiles::open(QStringList const& paths, bool inNewFrames)
{
    QStringList opened;
    QStringList problems;
    Frames const frames = read(groupsOf(paths), opened, problems);
    if (!problems.isEmpty())
        throw std::runtime_error(problems.join(QLatin1Char(' ')).toStdString());
    put(frames, opened, inNewFrames);
}

void DataFiles::save(QString const& path, bool overwrite)
{
    auto const dataSet = m_session.activeDataSet();
    if (!dataSet)
        throw cannotSave(path, "there is no data set.");
    if (!loadWholeDataSet(m_session, *dataSet))
        throw cannotSave(path, m_session.lastError());
    std::vector<std::string> remarks;
    try {
        m_session.runOperation("Save " + fileName(path), [&](kernel::Progress& progress) {
            remarks = exportDataSet(*dataSet, path, progress, overwrite ? Replacing::AllNeeded : Replacing::ChosenFile);
        });
    } catch (WouldReplaceMore const& error) {
        throw std::runtime_error(std::string(error.what()) + ' ' + adviceToOverwrite().toStdString());
    }
    for (std::string const& remark : remarks)
        tell(QStringLiteral("%1: %2").arg(path, QString::fromStdString(remark)));
}

void DataFiles::requireWholeFiles()
{
    std::vector<std::string> const cutFiles = takeCutFiles();
    if (!cutFiles.empty())
        throw std::runtime_error(cutFileWarning(cutFiles));
}

} // namespace veldraw::app
