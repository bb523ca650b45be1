#include "app/commandline/BatchFiles.h"

#include "app/export/Exporter.h"
#include "app/files/MappedMemory.h"
#include "app/import/Importer.h"
#include "app/import/child/ReadingChild.h"
#include "app/plot/PageView.h"
#include "app/window/PictureFile.h"
#include "kernel/operations/AddFrame.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QScopeGuard>

#include <stdexcept>

namespace veldraw::app {

namespace {

QSize const pictureSize(1200, 900);

std::string nameOf(QString const& path)
{
    return QFileInfo(path).fileName().toStdString();
}

std::runtime_error cannotSave(QString const& path, std::string const& reason)
{
    return std::runtime_error("Cannot save \"" + path.toStdString() + "\": " + reason);
}

} // namespace

BatchFiles::BatchFiles(kernel::Session& session, QTextStream& err, CommandLineOptions const& options)
    : m_session(session)
    , m_err(err)
    , m_options(options)
{
}

void BatchFiles::tell(QString const& text)
{
    m_err << QStringLiteral("veldraw: %1\n").arg(text);
}

QStringList BatchFiles::openAll(QStringList const& files)
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

BatchFiles::Frames BatchFiles::read(std::vector<FileGroup> const& groups, QStringList& opened, QStringList& problems)
{
    Frames frames;
    for (FileGroup const& group : groups) {
        QString const file = group.paths.first();
        // What one file has done to its reader is nothing to the next.
        auto const end = qScopeGuard([] { ReadingChild::endKept(); });
        try {
            ImportResult result;
            m_session.runOperation("Open " + nameOf(file), [&](kernel::Progress& progress) {
                result = importGroup(group, m_options.deferral, progress, m_options.outsidePaths);
            });
            auto const frame = std::make_shared<kernel::Frame>(group.name.toStdString(), kernel::Rectangle{});
            frame->dataSet = result.dataSet;
            frames.push_back(frame);
            opened.append(group.paths);
            for (std::string const& remark : result.remarks)
                tell(QStringLiteral("%1: %2").arg(file, QString::fromStdString(remark)));
        } catch (kernel::Interrupted const&) {
            throw;
        } catch (OutsidePathsError const& error) {
            problems.push_back(QString::fromStdString(error.what()) +
                               QStringLiteral(" They are read with --follow-paths."));
        } catch (std::exception const& error) {
            problems.push_back(QString::fromStdString(error.what()));
        }
    }
    return frames;
}

void BatchFiles::put(Frames frames, QStringList const& opened, bool inNewFrames)
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

void BatchFiles::open(QStringList const& paths, bool inNewFrames)
{
    QStringList opened;
    QStringList problems;
    Frames const frames = read(groupsOf(paths), opened, problems);
    if (!problems.isEmpty())
        throw std::runtime_error(problems.join(QLatin1Char(' ')).toStdString());
    put(frames, opened, inNewFrames);
}

void BatchFiles::save(QString const& path, bool overwrite)
{
    auto const dataSet = m_session.activeDataSet();
    if (!dataSet)
        throw cannotSave(path, "there is no data set.");
    if (!loadWholeDataSet(m_session, *dataSet))
        throw cannotSave(path, m_session.lastError());
    std::vector<std::string> remarks;
    try {
        m_session.runOperation("Save " + nameOf(path), [&](kernel::Progress& progress) {
            remarks = exportDataSet(*dataSet, path, progress, overwrite ? Replacing::AllNeeded : Replacing::ChosenFile);
        });
    } catch (WouldReplaceMore const& error) {
        throw std::runtime_error(std::string(error.what()) + " Give --overwrite to allow that.");
    }
    for (std::string const& remark : remarks)
        tell(QStringLiteral("%1: %2").arg(path, QString::fromStdString(remark)));
}

void BatchFiles::savePicture(QString const& path)
{
    PageView page(m_session);
    page.resize(pictureSize);
    page.show();
    QCoreApplication::processEvents();
    page.fitAllFrames();
    QImage const picture = page.takePicture();
    requireWholeFiles();
    QString const problem = writePicture(picture, path);
    if (!problem.isEmpty())
        throw std::runtime_error(
            QStringLiteral("%1: the picture could not be written: %2").arg(path, problem).toStdString());
}

void BatchFiles::requireWholeFiles()
{
    std::vector<std::string> const cutFiles = takeCutFiles();
    if (!cutFiles.empty())
        throw std::runtime_error(cutFileWarning(cutFiles));
}

} // namespace veldraw::app
