#include "app/window/ScriptActions.h"

#include "app/export/writing/ExportError.h"
#include "app/window/DocumentController.h"
#include "app/window/FileNameQuestion.h"
#include "app/window/PictureFile.h"
#include "operations/CommandRunner.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include <stdexcept>

namespace veldraw::app {

namespace {

QString const filter = QStringLiteral("Scripts (*.vdo)");

/// Says where a command stands that is wrong or has failed.
[[noreturn]] void fail(PlacedCommand const& placed, operations::TextPlace place, std::string const& reason)
{
    throw std::runtime_error(placeText(placed, place).toStdString() + ": " + reason);
}

} // namespace

ScriptActions::ScriptActions(kernel::Session& session, DocumentController& documents, CentralView const& view,
                             QWidget& window)
    : QObject(&window)
    , m_session(session)
    , m_documents(documents)
    , m_view(view)
    , m_window(window)
    , m_operations(programOperations(this))
    , m_folder(QDir::homePath())
{
}

void ScriptActions::saveByDialog()
{
    askForName(m_window, {QStringLiteral("Save Script"),
                          m_folder + QStringLiteral("/script"),
                          {filter},
                          [](QString const& path) { return QFileInfo::exists(path); },
                          [this](QString const& path) { return write(path); }});
}

bool ScriptActions::write(QString const& path)
{
    try {
        writeFile(QByteArray::fromStdString(m_session.journal().script()), path);
    } catch (ExportError const& error) {
        std::string const text = path.toStdString() + ": the script could not be written: " + error.what();
        VelUtilDialogErrMsg(text.c_str());
        return false;
    }
    m_folder = QFileInfo(path).absolutePath();
    Q_EMIT told(QStringLiteral("Saved %1").arg(QFileInfo(path).fileName()));
    return true;
}

void ScriptActions::runByDialog()
{
    if (sdk::AppLock::depth() > 0)
        return;
    QFileDialog dialog(&m_window, QStringLiteral("Run Script"), m_folder);
    dialog.setObjectName(QStringLiteral("runScriptDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({filter, QStringLiteral("All files (*)")});
    if (dialog.exec() == QDialog::Accepted)
        run(dialog.selectedFiles().first());
}

bool ScriptActions::run(QString const& path)
{
    m_folder = QFileInfo(path).absolutePath();
    try {
        std::vector<PlacedCommand> const commands = readCommands({{true, path}});
        runAll(commands);
        Q_EMIT told(QStringLiteral("Ran %1 with %2 commands").arg(QFileInfo(path).fileName()).arg(commands.size()));
        return true;
    } catch (std::exception const& error) {
        VelUtilDialogErrMsg(error.what());
        return false;
    }
}

void ScriptActions::runAll(std::vector<PlacedCommand> const& commands)
{
    operations::CommandRunner const runner(m_session, m_operations);
    PlacedCommand const* current = nullptr;
    try {
        for (PlacedCommand const& placed : commands) {
            current = &placed;
            runner.checkForm(placed.command);
        }
        for (PlacedCommand const& placed : commands) {
            current = &placed;
            operations::Outcome const outcome = runner.run(placed.command);
            if (!outcome.isDone)
                fail(placed, placed.command.place, outcome.text);
        }
    } catch (operations::CommandError const& error) {
        fail(*current, error.place(), error.what());
    }
}

void ScriptActions::open(QStringList const& paths, bool inNewFrames)
{
    using Place = DocumentController::Place;
    if (!m_documents.open(paths, inNewFrames ? Place::NewFrames : Place::FreshPage))
        throw std::runtime_error("Nothing was opened.");
}

// More than the file is asked about by the window, whatever the command says.
void ScriptActions::save(QString const& path, bool)
{
    if (!m_documents.save(path))
        throw std::runtime_error("Nothing was saved.");
}

void ScriptActions::savePicture(QString const& path, PictureOptions const& options)
{
    if (!m_documents.savePicture(m_view.picture(options), options, path))
        throw std::runtime_error("No picture was saved.");
}

} // namespace veldraw::app
