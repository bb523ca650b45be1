#include "app/commandline/BatchRun.h"

#include "app/commandline/DataSetReport.h"
#include "app/commandline/OutputCheck.h"
#include "app/export/Exporter.h"
#include "app/files/MappedMemory.h"
#include "app/import/Importer.h"
#include "app/import/child/ReadingChild.h"
#include "app/plot/PageView.h"
#include "app/window/PictureFile.h"
#include "kernel/base/NumberSet.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QScopeGuard>

namespace veldraw::app {

namespace {

QSize const pictureSize(1200, 900);

} // namespace

BatchRun::BatchRun(kernel::Session& session, QTextStream& out, QTextStream& err)
    : m_session(session)
    , m_out(out)
    , m_err(err)
{
}

int BatchRun::run(CommandLineOptions const& options)
{
    QStringList const opened = openFiles(options);
    if (opened.isEmpty() || !deleteVariables(options.variablesToDelete))
        return 1;
    if (options.info && !printInfo(opened))
        return 1;
    if (!options.exportFile.isEmpty() &&
        !exportTo(options.exportFile, options.overwrite ? Replacing::AllNeeded : Replacing::ChosenFile))
        return 1;
    if (!options.pictureFile.isEmpty() && !savePicture(options.pictureFile))
        return 1;
    return filesAreWhole() && m_areAllOpen ? 0 : 1;
}

// Asked when values have been read; saving asks by itself.
bool BatchRun::filesAreWhole()
{
    std::vector<std::string> const cutFiles = takeCutFiles();
    return cutFiles.empty() || fail(QString::fromStdString(cutFileWarning(cutFiles)));
}

bool BatchRun::fail(QString const& reason)
{
    m_err << QStringLiteral("veldraw: %1\n").arg(reason);
    return false;
}

// Returns those that could be opened.
QStringList BatchRun::openFiles(CommandLineOptions const& options)
{
    QStringList opened;
    std::vector<std::shared_ptr<kernel::Frame>> frames;
    std::vector<FileGroup> const groups = groupsOf(options.files);
    for (FileGroup const& group : groups) {
        QString const file = group.paths.first();
        auto const end =
            qScopeGuard([] { ReadingChild::endKept(); }); // what one file has done to its reader is nothing to the next
        try {
            kernel::Progress unwatched;
            ImportResult const result = importGroup(group, options.deferral, unwatched, options.outsidePaths);
            auto const frame = std::make_shared<kernel::Frame>(group.name.toStdString(), kernel::Rectangle{});
            frame->dataSet = result.dataSet;
            frames.push_back(frame);
            opened.push_back(file);
            for (std::string const& remark : result.remarks)
                m_err << QStringLiteral("veldraw: %1: %2\n").arg(file, QString::fromStdString(remark));
        } catch (OutsidePathsError const& error) {
            fail(QString::fromStdString(error.what()) + QStringLiteral(" They are read with --follow-paths."));
        } catch (std::exception const& error) {
            fail(QString::fromStdString(error.what()));
        }
    }
    m_areAllOpen = opened.size() == static_cast<int>(groups.size());
    if (!opened.isEmpty() && !m_session.openPage(std::move(frames))) {
        fail(QStringLiteral("%1: %2").arg(opened.join(QStringLiteral(", ")),
                                          QString::fromStdString(m_session.lastError())));
        opened.clear();
    }
    return opened;
}

bool BatchRun::deleteVariables(QStringList const& names)
{
    if (names.isEmpty())
        return true;
    auto const dataSet = m_session.activeDataSet();
    Set_s numbers;
    for (QString const& name : names) {
        int const number = dataSet->findVariable(name.toStdString());
        if (number == 0)
            return fail(QStringLiteral("there is no variable called \"%1\"").arg(name));
        numbers.members.insert(number);
    }
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!VelUtilDataSetDeleteVar(&numbers))
        return fail(QString::fromStdString(m_session.lastError()));
    return true;
}

bool BatchRun::printInfo(QStringList const& files)
{
    auto const page = m_session.activePage();
    for (std::size_t frame = 0; frame < page->frames.size(); ++frame) {
        if (frame > 0)
            m_out << QLatin1Char('\n');
        m_out << dataSetReport(files.at(static_cast<int>(frame)), *page->frames[frame]->dataSet);
    }
    QString const problem = outputProblem(m_out);
    return problem.isEmpty() || fail(problem);
}

bool BatchRun::exportTo(QString const& file, Replacing replacing)
{
    auto const dataSet = m_session.activeDataSet();
    if (!loadWholeDataSet(m_session, *dataSet))
        return fail(QStringLiteral("Cannot save \"%1\": %2").arg(file, QString::fromStdString(m_session.lastError())));
    try {
        for (std::string const& remark : exportDataSet(*dataSet, file, replacing))
            m_err << QStringLiteral("veldraw: %1: %2\n").arg(file, QString::fromStdString(remark));
    } catch (WouldReplaceMore const& error) {
        return fail(QStringLiteral("%1 Give --overwrite to allow that.").arg(QString::fromStdString(error.what())));
    } catch (std::exception const& error) {
        return fail(QString::fromStdString(error.what()));
    }
    return true;
}

bool BatchRun::savePicture(QString const& file)
{
    PageView page(m_session);
    page.resize(pictureSize);
    page.show();
    QCoreApplication::processEvents();
    page.fitAllFrames();
    QImage const picture = page.takePicture();
    if (!filesAreWhole())
        return false;
    QString const problem = writePicture(picture, file);
    return problem.isEmpty() || fail(QStringLiteral("%1: the picture could not be written: %2").arg(file, problem));
}

} // namespace veldraw::app
