#include "app/commandline/CommandLineOptions.h"

#include "app/commandline/Completion.h"
#include "app/export/WritableFormats.h"
#include "app/import/ReadableFormats.h"
#include "kernel/session/Session.h"

#include <QCommandLineParser>

#include <limits>

namespace veldraw::app {

namespace {

QString const exportName = QStringLiteral("export");
QString const deleteName = QStringLiteral("delete-variable");
QString const pictureName = QStringLiteral("picture");
QString const deferName = QStringLiteral("defer");
QString const undoMemoryName = QStringLiteral("undo-memory");
QString const valueMemoryName = QStringLiteral("value-memory");
QString const followName = QStringLiteral("follow-paths");
QString const overwriteName = QStringLiteral("overwrite");
QString const saveName = QStringLiteral("save");
QString const doName = QStringLiteral("do");
QString const runName = QStringLiteral("run");
QString const listName = QStringLiteral("list-operations");
QString const completionName = QStringLiteral("completion");
QString const threadsName = QStringLiteral("threads");
QString const dryRunName = QStringLiteral("dry-run");
QString const keepGoingName = QStringLiteral("keep-going");
QString const quietName = QStringLiteral("quiet");
QString const verboseName = QStringLiteral("verbose");
QString const infoName = QStringLiteral("info");
QString const helpName = QStringLiteral("help");
QString const versionName = QStringLiteral("version");

void declareOptions(QCommandLineParser& parser)
{
    parser.addOption({{exportName, saveName}, QString(), QStringLiteral("OUT")});
    parser.addOption({doName, QString(), QStringLiteral("COMMAND")});
    parser.addOption({runName, QString(), QStringLiteral("SCRIPT")});
    parser.addOption({completionName, QString(), QStringLiteral("SHELL")});
    parser.addOption({threadsName, QString(), QStringLiteral("N")});
    for (QString const& name : {listName, dryRunName, keepGoingName, quietName, verboseName})
        parser.addOption(QCommandLineOption(name));
    parser.addOption({deleteName, QString(), QStringLiteral("NAME")});
    parser.addOption({pictureName, QString(), QStringLiteral("PNG")});
    parser.addOption({deferName, QString(), QStringLiteral("WHEN")});
    parser.addOption({undoMemoryName, QString(), QStringLiteral("MB")});
    parser.addOption({valueMemoryName, QString(), QStringLiteral("MB")});
    parser.addOption(QCommandLineOption(followName));
    parser.addOption(QCommandLineOption(overwriteName));
    parser.addOption(QCommandLineOption(infoName));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), helpName}));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("v"), versionName}));
}

// @return false for a word that is none of the three
bool takeDeferral(QString const& word, Deferral& deferral)
{
    if (word == QLatin1String("always"))
        deferral = Deferral::Always;
    else if (word == QLatin1String("never"))
        deferral = Deferral::Never;
    else
        return word == QLatin1String("auto");
    return true;
}

/// Reads a number of megabytes, if there is one. @return why it is wrong, empty when it is right
QString takeMegabytes(QCommandLineParser const& parser, QString const& name, std::optional<std::int64_t>& bytes)
{
    if (!parser.isSet(name))
        return {};
    constexpr std::int64_t megabyte = std::int64_t{1} << 20;
    bool isNumber = false;
    qlonglong const megabytes = parser.value(name).toLongLong(&isNumber);
    if (!isNumber || megabytes < 0 || megabytes > std::numeric_limits<std::int64_t>::max() / megabyte)
        return QStringLiteral("--%1 takes a number of megabytes").arg(name);
    bytes = megabytes * megabyte;
    return {};
}

/// Commands and scripts in the order in which the command line gives them.
std::vector<CommandSource> sourcesIn(QCommandLineParser const& parser)
{
    QStringList commands = parser.values(doName);
    QStringList scripts = parser.values(runName);
    std::vector<CommandSource> sources;
    for (QString const& name : parser.optionNames()) {
        if (name == doName && !commands.isEmpty())
            sources.push_back({false, commands.takeFirst()});
        else if (name == runName && !scripts.isEmpty())
            sources.push_back({true, scripts.takeFirst()});
    }
    return sources;
}

/// Reads the number of threads, if there is one. @return why it is wrong, empty when it is right
QString takeThreads(QCommandLineParser const& parser, std::optional<int>& threads)
{
    constexpr int mostThreads = 4096;
    if (!parser.isSet(threadsName))
        return {};
    bool isNumber = false;
    int const count = parser.value(threadsName).toInt(&isNumber);
    if (!isNumber || count < 1 || count > mostThreads)
        return QStringLiteral("--threads takes a number from 1 to %1").arg(mostThreads);
    threads = count;
    return {};
}

template <typename Format>
QString linesOf(std::vector<Format> const& formats)
{
    QString text;
    for (FileFormat const& format : formats)
        text += QString::fromStdString("  " + format.text() + "\n");
    return text;
}

QString whyInconsistent(CommandLineOptions const& options, QCommandLineParser const& parser)
{
    if (options.help || options.version || options.listOperations)
        return {};
    if (parser.isSet(completionName))
        return isCompletedShell(options.completion) ? QString()
                                                    : QStringLiteral("--completion takes bash, zsh or fish");
    if (options.quiet && options.verbose)
        return QStringLiteral("--quiet and --verbose cannot be both");
    for (CommandSource const& source : options.commandSources)
        if (source.text.isEmpty())
            return source.isScript ? QStringLiteral("--run needs the name of a script")
                                   : QStringLiteral("--do needs a command");
    if (parser.isSet(exportName) && options.exportFile.isEmpty())
        return QStringLiteral("--export needs the name of a file");
    if (parser.isSet(pictureName) && options.pictureFile.isEmpty())
        return QStringLiteral("--picture needs the name of a file");
    for (QString const& name : {exportName, pictureName}) {
        if (parser.values(name).size() > 1)
            return QStringLiteral("--%1 is given twice").arg(name);
    }
    bool const needsFile = options.commandSources.empty() || !options.variablesToDelete.isEmpty();
    if (options.isBatch() && options.files.isEmpty() && needsFile)
        return QStringLiteral("a FILE is missing");
    if (options.files.size() > 1 && !options.exportFile.isEmpty())
        return QStringLiteral("--export works on one FILE at a time");
    if (options.files.size() > 1 && !options.variablesToDelete.isEmpty())
        return QStringLiteral("--delete-variable works on one FILE at a time");
    return {};
}

/// What the help says of actions, of operations and of other options.
char const actionsText[] =
    "Actions, carried out in this order:\n"
    "  --delete-variable NAME   delete the variable called NAME; may be given several times\n"
    "  --do COMMAND             run an operation, for instance --do 'mirror-zones zones=1:3 plane=X'; may be given "
    "several\n"
    "                           times\n"
    "  --run SCRIPT             run the operations of a script, one a line; - for standard input. Those of --do "
    "and "
    "--run\n"
    "                           run in the order in which they are given\n"
    "  --info                   print zones, variables and ranges\n"
    "  --save OUT, --export OUT save the data set; the extension of OUT chooses the format\n"
    "  --picture PNG            save a picture of the page\n"
    "\n";
char const operationsText[] =
    "Operations:\n"
    "  --list-operations        print the names of all operations, and what each does\n"
    "  --help OPERATION         print what an operation takes\n"
    "  --dry-run                check the commands as far as that can be done without the work, and do nothing\n"
    "  --keep-going             go on after a command that fails; without it the run ends there, and nothing more "
    "is "
    "saved\n"
    "  --quiet, --verbose       tell nothing but failures; tell what came of each command\n"
    "  --threads N              compute on N threads; the results do not depend on it\n"
    "  --completion SHELL       print a script with which bash, zsh or fish completes operations and options\n"
    "\n";
char const optionsText[] =
    "Other options:\n"
    "  --defer WHEN             load values at once or when they are asked for: auto (as long as they take little "
    "of\n"
    "                           the free memory; the default), always, never\n"
    "  --value-memory MB        megabytes of values to keep that a file has as well; otherwise half of the memory\n"
    "  --undo-memory MB         megabytes to keep for undo; otherwise a quarter of the memory\n"
    "  --follow-paths           read the files that a .vtm or .mhd names outside of its folder too; without it the "
    "window\n"
    "                           asks, and the actions refuse such a file\n"
    "  --overwrite              let --export replace more than OUT: the folder with the tables of several zones\n"
    "  -h, --help               print this text\n"
    "  -v, --version            print the version\n"
    "\n"
    "--info and --picture take several FILEs; those that cannot be opened are told and left out. The actions need "
    "no\n"
    "display; --picture uses xvfb-run where there is none.\n"
    "Exit status: 0 fine, 1 something failed (told on standard error), 2 the command line is wrong.\n";

} // namespace

void MemoryLimits::applyTo(kernel::Session& session) const
{
    if (undo)
        session.history().setMemoryLimit(*undo);
    if (values)
        session.loadedValues().setLimit(*values);
}

CommandLineOptions CommandLineOptions::parse(QStringList const& arguments)
{
    QCommandLineParser parser;
    declareOptions(parser);
    bool const understood = parser.parse(arguments);
    CommandLineOptions options;
    options.files = parser.positionalArguments();
    options.variablesToDelete = parser.values(deleteName);
    options.exportFile = parser.value(exportName);
    options.pictureFile = parser.value(pictureName);
    options.outsidePaths = parser.isSet(followName) ? OutsidePaths::Follow : OutsidePaths::Refuse;
    options.overwrite = parser.isSet(overwriteName);
    options.commandSources = sourcesIn(parser);
    options.keepGoing = parser.isSet(keepGoingName);
    options.dryRun = parser.isSet(dryRunName);
    options.quiet = parser.isSet(quietName);
    options.verbose = parser.isSet(verboseName);
    options.listOperations = parser.isSet(listName);
    options.completion = parser.value(completionName);
    options.info = parser.isSet(infoName);
    options.help = parser.isSet(helpName);
    options.version = parser.isSet(versionName);
    options.error = understood ? whyInconsistent(options, parser) : parser.errorText();
    if (parser.isSet(deferName) && !takeDeferral(parser.value(deferName), options.deferral) && options.error.isEmpty())
        options.error = QStringLiteral("--defer takes auto, always or never");
    for (QString const& problem :
         {takeMegabytes(parser, undoMemoryName, options.memory.undo),
          takeMegabytes(parser, valueMemoryName, options.memory.values), takeThreads(parser, options.threads)})
        if (options.error.isEmpty())
            options.error = problem;
    return options;
}

QString CommandLineOptions::helpText()
{
    return QStringLiteral("usage: veldraw [FILE...]                  open each FILE in a frame of its own\n"
                          "       veldraw FILE [ACTION...]           do the actions without a window, then end\n"
                          "       veldraw --help OPERATION           tell what an operation takes\n"
                          "\n"
                          "Files that can be opened:\n%1\n"
                          "Files that can be saved:\n%2\n")
               .arg(linesOf(readableFormats()), linesOf(writableFormats())) +
           QLatin1String(actionsText) + QLatin1String(operationsText) + QLatin1String(optionsText);
}

} // namespace veldraw::app
