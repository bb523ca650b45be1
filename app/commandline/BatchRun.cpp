#include "app/commandline/BatchRun.h"

#include "app/commandline/DataSetReport.h"
#include "app/commandline/ExitStatus.h"
#include "app/commandline/OutputCheck.h"
#include "app/commandline/TerminalWaiter.h"
#include "kernel/base/NumberSet.h"
#include "kernel/base/Parallel.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <cstdio>
#include <unistd.h>

namespace veldraw::app {

namespace {

std::FILE* terminalFor(CommandLineOptions const& options)
{
    return !options.quiet && ::isatty(STDERR_FILENO) == 1 ? stderr : nullptr;
}

} // namespace

BatchRun::BatchRun(kernel::Session& session, QTextStream& out, QTextStream& err, CommandLineOptions const& options)
    : m_session(session)
    , m_out(out)
    , m_err(err)
    , m_options(options)
    , m_files(session, err, options)
    , m_operations(programOperations(&m_files))
    , m_runner(session, m_operations)
{
}

int BatchRun::run(std::vector<PlacedCommand> const& commands)
{
    if (!areWellFormed(commands))
        return wrongUsage;
    if (m_options.threads)
        kernel::setThreadCount(*m_options.threads);
    if (!m_options.quiet)
        m_session.setRemarkListener([this](std::string const& remark) { fail(QString::fromStdString(remark)); });
    bool isDone = false;
    {
        TerminalWaiter const waiter(m_session, terminalFor(m_options));
        isDone = doAll(commands);
    }
    m_session.setRemarkListener({});
    return isDone ? fine : failed;
}

bool BatchRun::doAll(std::vector<PlacedCommand> const& commands)
{
    if (!m_options.files.isEmpty() && !openFiles())
        return false;
    if (m_options.dryRun)
        return dryRun(commands) && (m_options.files.isEmpty() || m_files.areAllOpen());
    if (!deleteVariables())
        return false;
    bool const areCommandsDone = runCommands(commands);
    if (!areCommandsDone && !m_options.keepGoing)
        return false;
    if (m_options.info && !printInfo())
        return false;
    if (!m_options.exportFile.isEmpty() &&
        !succeeds([this] { m_files.save(m_options.exportFile, m_options.overwrite); }))
        return false;
    if (!m_options.pictureFile.isEmpty() && !succeeds([this] { m_files.savePicture(m_options.pictureFile, {}); }))
        return false;
    bool const areWhole = succeeds(&BatchFiles::requireWholeFiles);
    return areWhole && areCommandsDone && (m_options.files.isEmpty() || m_files.areAllOpen());
}

template <typename Work>
bool BatchRun::succeeds(Work const& work)
{
    try {
        work();
        return true;
    } catch (std::exception const& error) {
        return fail(QString::fromStdString(error.what()));
    }
}

bool BatchRun::fail(QString const& reason)
{
    m_err << QStringLiteral("veldraw: %1\n").arg(reason);
    m_err.flush();
    return false;
}

bool BatchRun::openFiles()
{
    return succeeds([this] { m_opened = m_files.openAll(m_options.files); }) && !m_opened.isEmpty();
}

bool BatchRun::areWellFormed(std::vector<PlacedCommand> const& commands)
{
    for (PlacedCommand const& placed : commands) {
        try {
            m_runner.checkForm(placed.command);
        } catch (operations::CommandError const& error) {
            return fail(
                QStringLiteral("%1: %2").arg(placeText(placed, error.place()), QString::fromStdString(error.what())));
        }
    }
    return true;
}

bool BatchRun::dryRun(std::vector<PlacedCommand> const& commands)
{
    operations::CommandRunner::Foresight foresight = m_runner.foresight();
    for (PlacedCommand const& placed : commands) {
        try {
            foresight.check(placed.command);
        } catch (operations::CommandError const& error) {
            return fail(
                QStringLiteral("%1: %2").arg(placeText(placed, error.place()), QString::fromStdString(error.what())));
        }
    }
    return true;
}

bool BatchRun::runCommands(std::vector<PlacedCommand> const& commands)
{
    bool areAllDone = true;
    for (PlacedCommand const& placed : commands) {
        if (TerminalWaiter::isCancelled())
            return fail(QStringLiteral("cancelled"));
        areAllDone = runCommand(placed) && areAllDone;
        if (!areAllDone && !m_options.keepGoing)
            return false;
    }
    return areAllDone;
}

bool BatchRun::runCommand(PlacedCommand const& placed)
{
    try {
        operations::Outcome const outcome = m_runner.run(placed.command);
        QString const text = QString::fromStdString(outcome.text);
        if (!outcome.isDone)
            return fail(QStringLiteral("%1: %2").arg(placeText(placed, placed.command.place), text));
        if (m_options.verbose) {
            m_err << QStringLiteral("veldraw: %1: %2: %3\n")
                         .arg(placeText(placed, placed.command.place), QString::fromStdString(placed.command.name),
                              text.isEmpty() ? QStringLiteral("done") : text);
            m_err.flush();
        }
        return true;
    } catch (operations::CommandError const& error) {
        return fail(
            QStringLiteral("%1: %2").arg(placeText(placed, error.place()), QString::fromStdString(error.what())));
    }
}

bool BatchRun::deleteVariables()
{
    if (m_options.variablesToDelete.isEmpty())
        return true;
    auto const dataSet = m_session.activeDataSet();
    Set_s numbers;
    for (QString const& name : m_options.variablesToDelete) {
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

// Of the files of the command line, or of what commands have opened.
bool BatchRun::printInfo()
{
    auto const page = m_session.activePage();
    bool isFirst = true;
    for (std::size_t frame = 0; frame < page->frames.size(); ++frame) {
        auto const& shown = *page->frames[frame];
        if (!shown.dataSet)
            continue;
        if (!isFirst)
            m_out << QLatin1Char('\n');
        isFirst = false;
        QString const file = m_opened.value(static_cast<int>(frame), QString::fromStdString(shown.name));
        m_out << dataSetReport(file, *shown.dataSet);
    }
    QString const problem = outputProblem(m_out);
    return problem.isEmpty() || fail(problem);
}

} // namespace veldraw::app
