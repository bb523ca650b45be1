#include "app/commandline/CommandLineOptions.h"

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
QString const infoName = QStringLiteral("info");
QString const helpName = QStringLiteral("help");
QString const versionName = QStringLiteral("version");

void declareOptions(QCommandLineParser& parser)
{
    parser.addOption({exportName, QString(), QStringLiteral("OUT")});
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
    if (options.help || options.version)
        return {};
    if (parser.isSet(exportName) && options.exportFile.isEmpty())
        return QStringLiteral("--export needs the name of a file");
    if (parser.isSet(pictureName) && options.pictureFile.isEmpty())
        return QStringLiteral("--picture needs the name of a file");
    for (QString const& name : {exportName, pictureName}) {
        if (parser.values(name).size() > 1)
            return QStringLiteral("--%1 is given twice").arg(name);
    }
    if (options.isBatch() && options.files.isEmpty())
        return QStringLiteral("a FILE is missing");
    if (options.files.size() > 1 && !options.exportFile.isEmpty())
        return QStringLiteral("--export works on one FILE at a time");
    if (options.files.size() > 1 && !options.variablesToDelete.isEmpty())
        return QStringLiteral("--delete-variable works on one FILE at a time");
    return {};
}

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
    options.info = parser.isSet(infoName);
    options.help = parser.isSet(helpName);
    options.version = parser.isSet(versionName);
    options.error = understood ? whyInconsistent(options, parser) : parser.errorText();
    if (parser.isSet(deferName) && !takeDeferral(parser.value(deferName), options.deferral) && options.error.isEmpty())
        options.error = QStringLiteral("--defer takes auto, always or never");
    for (QString const& problem : {takeMegabytes(parser, undoMemoryName, options.memory.undo),
                                   takeMegabytes(parser, valueMemoryName, options.memory.values)})
        if (options.error.isEmpty())
            options.error = problem;
    return options;
}

QString CommandLineOptions::helpText()
{
    QString const actions = QStringLiteral(
        "Actions, carried out in this order:\n"
        "  --delete-variable NAME   delete the variable called NAME; may be given several times\n"
        "  --info                   print zones, variables and ranges\n"
        "  --export OUT             save the data set; the extension of OUT chooses the format\n"
        "  --picture PNG            save a picture of the page\n"
        "\n"
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
        "Exit status: 0 fine, 1 something failed (told on standard error), 2 the command line is wrong.\n");
    return QStringLiteral("usage: veldraw [FILE...]                  open each FILE in a frame of its own\n"
                          "       veldraw FILE [ACTION...]           do the actions without a window, then end\n"
                          "\n"
                          "Files that can be opened:\n%1\n"
                          "Files that can be saved:\n%2\n")
               .arg(linesOf(readableFormats()), linesOf(writableFormats())) +
           actions;
}

} // namespace veldraw::app
