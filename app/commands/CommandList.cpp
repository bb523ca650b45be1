#include "app/commands/CommandList.h"

#include "app/commands/ProgramOperations.h"
#include "app/handover/Utf8.h"
#include "operations/Arguments.h"
#include "operations/Script.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace veldraw::app {

namespace {

QString const standardInput = QStringLiteral("-");

/// Adds commands to a list, and those of scripts in the place of "run".
class CommandReader
{
public:
    void addScript(QString const& path)
    {
        QString const known = path == standardInput ? path : QFileInfo(path).canonicalFilePath();
        if (!known.isEmpty() && std::count(m_open.begin(), m_open.end(), known) > 0)
            throw std::runtime_error("\"" + path.toStdString() + "\" runs itself.");
        std::string const text = textOf(path);
        m_open.push_back(known);
        addCommands(path, true, [&] { return operations::readScript(text); });
        m_open.pop_back();
    }

    void addArgument(QString const& source, QString const& text)
    {
        addCommands(source, false, [&] { return operations::readScript(text.toStdString()); });
    }

    std::vector<PlacedCommand> take() { return std::move(m_commands); }

private:
    template <typename Reading>
    void addCommands(QString const& source, bool isScript, Reading const& read)
    {
        PlacedCommand placed{{}, source, isScript};
        try {
            for (operations::Command& command : read()) {
                placed.command = std::move(command);
                add(placed);
            }
        } catch (operations::CommandError const& error) {
            throw CommandListError(placeText(placed, error.place()).toStdString() + ": " + error.what());
        }
    }

    void add(PlacedCommand const& placed)
    {
        if (placed.command.name != runScriptName) {
            m_commands.push_back(placed);
            return;
        }
        operations::Arguments const arguments =
            operations::readArguments(runScriptEntry().parameters, placed.command, nullptr);
        try {
            addScript(QString::fromStdString(arguments.text("file")));
        } catch (CommandListError const&) {
            throw;
        } catch (std::exception const& error) {
            throw operations::CommandError(error.what(), placed.command.place);
        }
    }

    static std::string textOf(QString const& path)
    {
        QFile file(path);
        bool const isOpen =
            path == standardInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
        QByteArray const bytes = isOpen ? file.readAll() : QByteArray();
        if (!isOpen || file.error() != QFileDevice::NoError)
            throw std::runtime_error("Cannot read the script \"" + path.toStdString() +
                                     "\": " + file.errorString().toStdString() + ".");
        std::string text = bytes.toStdString();
        if (!isUtf8(text))
            throw std::runtime_error("The script \"" + path.toStdString() + "\" is no text in UTF-8.");
        return text;
    }

    std::vector<PlacedCommand> m_commands;
    std::vector<QString> m_open; // scripts that are being read
};

} // namespace

QString placeText(PlacedCommand const& command, operations::TextPlace place)
{
    return command.isScript ? QStringLiteral("%1:%2:%3").arg(command.source).arg(place.line).arg(place.column)
                            : QStringLiteral("%1, column %2").arg(command.source).arg(place.column);
}

std::vector<PlacedCommand> readCommands(std::vector<CommandSource> const& sources)
{
    CommandReader reader;
    auto const arguments =
        std::count_if(sources.begin(), sources.end(), [](CommandSource const& source) { return !source.isScript; });
    int number = 0;
    for (CommandSource const& source : sources) {
        try {
            if (source.isScript)
                reader.addScript(source.text);
            else
                reader.addArgument(arguments == 1 ? QStringLiteral("--do") : QStringLiteral("--do %1").arg(++number),
                                   source.text);
        } catch (CommandListError const&) {
            throw;
        } catch (std::exception const& error) {
            throw CommandListError(error.what());
        }
    }
    return reader.take();
}

} // namespace veldraw::app
