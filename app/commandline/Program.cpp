#include "app/commandline/Program.h"

#include "app/Application.h"
#include "app/commandline/BatchRun.h"
#include "app/commandline/CommandLineOptions.h"
#include "app/commandline/Completion.h"
#include "app/commandline/ExitStatus.h"
#include "app/commandline/InteractiveRun.h"
#include "app/commandline/OutputCheck.h"
#include "app/commands/CommandList.h"
#include "app/commands/ProgramOperations.h"
#include "host/KernelBridge.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTextStream>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

namespace veldraw::app {

namespace {

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// A platform that somebody chose because it draws on nothing.
bool needsNoDisplay()
{
    QByteArray const platform = qgetenv("QT_QPA_PLATFORM");
    return platform.startsWith("offscreen") || platform.startsWith("minimal") || platform.startsWith("vnc");
}

QStringList toStringList(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.push_back(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

// Where the process on a virtual display finds the name of the file with the key to it.
constexpr char const* displayKeyVariable = "VELDRAW_DISPLAY_KEY";

// An empty file for the key to a virtual display: with a file of its own to make and delete, xvfb-run now and then ends with a status
// of its own instead of this program's.
std::string makeKeyFile()
{
    std::string name = QDir::tempPath().toStdString() + "/veldraw-display-XXXXXX";
    int const file = ::mkstemp(name.data());
    if (file < 0)
        return {};
    ::close(file);
    return name;
}

// The key is of no more use once the program has a connection to the display.
void dropDisplayKey()
{
    QByteArray const keyFile = qgetenv(displayKeyVariable);
    if (!keyFile.isEmpty())
        std::remove(keyFile.constData());
}

// Replaces this process by the same one on a virtual display. Returns only when there is no such thing.
void restartOnVirtualDisplay(char** argv)
{
    std::string const launcher = QStandardPaths::findExecutable(QStringLiteral("xvfb-run")).toStdString();
    if (launcher.empty() || qEnvironmentVariableIsSet(displayKeyVariable))
        return;
    std::string const keyFile = makeKeyFile();
    if (keyFile.empty())
        return;
    qputenv(displayKeyVariable, keyFile.c_str());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
    std::string const program = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget().toStdString();
    std::vector<std::string> words{launcher, "-a", "-f", keyFile, "-s", "-screen 0 1600x1200x24", program};
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    for (char** argument = argv + 1; *argument; ++argument)
        pointers.push_back(*argument);
    pointers.push_back(nullptr);
    execv(launcher.c_str(), pointers.data());
    std::remove(keyFile.c_str());
}

// @return false when what is asked for cannot be done here
bool choosePlatform(CommandLineOptions const& options, bool makesPicture, char** argv)
{
    if (options.isBatch() && !makesPicture) {
        if (!hasDisplay() || qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        return true;
    }
    if (hasDisplay() || (!makesPicture && needsNoDisplay()))
        return true;
    if (!makesPicture) {
        std::fputs("veldraw: there is no display for the window; veldraw --help tells what works without one\n",
                   stderr);
        return false;
    }
    restartOnVirtualDisplay(argv);
    std::fputs("veldraw: a picture needs a display, or xvfb-run for a virtual one\n", stderr);
    return false;
}

// Qt's remarks on its surroundings are no part of what a batch has to tell.
void keepQtQuiet(QtMsgType type, QMessageLogContext const&, QString const& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "veldraw: %s\n", qPrintable(message));
}

int refuse(QTextStream& err, CommandLineOptions const& options)
{
    err << QStringLiteral("veldraw: %1\nTry 'veldraw --help'.\n").arg(options.error);
    return wrongUsage;
}

int print(QTextStream& out, QTextStream& err, QString const& text)
{
    out << text;
    QString const problem = outputProblem(out);
    if (problem.isEmpty())
        return fine;
    err << QStringLiteral("veldraw: %1\n").arg(problem);
    return failed;
}

/// What --help prints. @return exit status
int printHelp(QTextStream& out, QTextStream& err, CommandLineOptions const& options)
{
    if (options.files.isEmpty() || QFileInfo::exists(options.files.first()))
        return print(out, err, CommandLineOptions::helpText());
    operations::Registry const registry = programOperations();
    operations::Command command;
    command.name = options.files.first().toStdString();
    try {
        return print(out, err, QString::fromStdString(helpText(registry.entryOf(command))));
    } catch (operations::CommandError const& error) {
        err << QStringLiteral("veldraw: %1\n").arg(QString::fromStdString(error.what()));
        return wrongUsage;
    }
}

/// Prints what needs no data. @return exit status; none when there is more to do
std::optional<int> printWanted(QTextStream& out, QTextStream& err, CommandLineOptions const& options)
{
    if (options.help)
        return printHelp(out, err, options);
    if (options.version)
        return print(out, err, QStringLiteral("veldraw " VELDRAW_VERSION "\n"));
    if (options.listOperations)
        return print(out, err, QString::fromStdString(programOperations().listText()));
    if (options.error.isEmpty() && !options.completion.isEmpty())
        return print(out, err, completionScript(options.completion, programOperations()));
    return std::nullopt;
}

bool makesPicture(CommandLineOptions const& options, std::vector<PlacedCommand> const& commands)
{
    return !options.pictureFile.isEmpty() ||
           std::any_of(commands.begin(), commands.end(),
                       [](PlacedCommand const& placed) { return placed.command.name == savePictureName; });
}

} // namespace

int runProgram(int argc, char** argv)
{
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow any more is told like a full disk
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setCodec("UTF-8");
    err.setCodec("UTF-8");
    CommandLineOptions const early = CommandLineOptions::parse(toStringList(argc, argv));
    if (auto const status = printWanted(out, err, early))
        return *status;
    if (!early.error.isEmpty() && !hasDisplay())
        return refuse(err, early);
    std::vector<PlacedCommand> commands;
    try {
        commands = readCommands(early.commandSources);
    } catch (CommandListError const& error) {
        err << QStringLiteral("veldraw: %1\n").arg(QString::fromStdString(error.what()));
        return wrongUsage;
    }
    if (!choosePlatform(early, makesPicture(early, commands), argv))
        return failed;

    if (early.isBatch())
        qInstallMessageHandler(keepQtQuiet);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    Application application(argc, argv);
    dropDisplayKey();
    host::KernelBridge::install();
    // Qt has taken its own options out by now, so what is unknown here is wrong.
    CommandLineOptions const options = CommandLineOptions::parse(application.arguments());
    if (!options.error.isEmpty())
        return refuse(err, options);
    options.memory.applyTo(kernel::Session::instance());
    int const status = options.isBatch() ? BatchRun(kernel::Session::instance(), out, err, options).run(commands)
                                         : runInteractively(application, options);
    host::KernelBridge::shutDown();
    return status;
}

} // namespace veldraw::app
