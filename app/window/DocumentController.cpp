#include "app/window/DocumentController.h"

#include "app/commands/ProgramOperations.h"
#include "app/export/Exporter.h"
#include "app/window/FileNameQuestion.h"
#include "app/window/OutsidePathsQuestion.h"
#include "host/MessageLog.h"
#include "host/MessagePresenter.h"
#include "kernel/base/Progress.h"
#include "kernel/operations/AddFrame.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QSettings>

#include <new>

namespace veldraw::app {

namespace {

QString const folderKey = QStringLiteral("lastFolder");

void takeDown(QString const& path, std::vector<std::string> const& remarks)
{
    for (std::string const& remark : remarks)
        host::MessageLog::instance().add(MessageBoxType_Information,
                                         QFileInfo(path).fileName().toStdString() + ": " + remark);
}

} // namespace

DocumentController::DocumentController(kernel::Session& session, QWidget& window, FileReader reader)
    : m_session(session)
    , m_window(window)
    , m_reader(std::move(reader))
{
}

DocumentController::~DocumentController() = default;

void DocumentController::tellError(QString const& text)
{
    host::MessagePresenter::present(text.toStdString(), MessageBoxType_Error);
}

bool DocumentController::isLocked()
{
    if (sdk::AppLock::depth() == 0)
        return false;
    Q_EMIT told(QStringLiteral("Another operation is still running."));
    return true;
}

bool DocumentController::open(QStringList const& paths, Place place)
{
    if (paths.isEmpty() || isLocked() || (place == Place::FreshPage && !mayCloseData()))
        return false;
    return put(readAll(paths), place);
}

// Runs as a long operation of the session, with a progress window; nothing else can change meanwhile.
ImportResult DocumentController::read(FileGroup const& group, OutsidePaths outsidePaths)
{
    sdk::AppLock const lock(sdk::AppLock::DoNotRecord);
    sdk::WaitState const busy;
    QString const name = QFileInfo(group.paths.first()).fileName();
    Q_EMIT opening(name);
    auto const end = qScopeGuard([this] { Q_EMIT opening({}); });
    ImportResult result;
    m_session.runOperation("Open " + name.toStdString(),
                           [&](kernel::Progress& progress) { result = m_reader(group, outsidePaths, progress); });
    return result;
}

// None when the user does not want the files that this one names elsewhere.
std::optional<ImportResult> DocumentController::readAsking(FileGroup const& group)
{
    QString const path = group.paths.first();
    try {
        return read(group, OutsidePaths::Refuse);
    } catch (OutsidePathsError const& error) {
        if (!mayFollow(m_window, path, error.paths())) {
            Q_EMIT told(QStringLiteral("%1 was not opened.").arg(QFileInfo(path).fileName()));
            return std::nullopt;
        }
    }
    return read(group, OutsidePaths::Follow);
}

std::vector<DocumentController::Opened> DocumentController::readAll(QStringList const& paths)
{
    std::vector<Opened> opened;
    QStringList errors;
    for (FileGroup const& group : groupsOf(paths)) {
        QString const path = group.paths.first();
        try {
            std::optional<ImportResult> const result = readAsking(group);
            if (!result)
                continue;
            auto const frame = std::make_shared<kernel::Frame>(group.name.toStdString(), kernel::Rectangle{});
            frame->dataSet = result->dataSet;
            opened.push_back({path, frame, group.paths});
            takeDown(path, result->remarks);
        } catch (kernel::Interrupted const&) {
            Q_EMIT told(QStringLiteral("Opening was cancelled."));
            opened.clear();
            break;
        } catch (std::bad_alloc const&) {
            errors.push_back(QStringLiteral("%1: Out of memory.").arg(path));
        } catch (std::exception const& error) {
            errors.push_back(QString::fromStdString(error.what()));
        }
    }
    if (!errors.isEmpty())
        tellError(errors.join(QStringLiteral("\n\n")));
    return opened;
}

bool DocumentController::put(std::vector<Opened> const& opened, Place place)
{
    if (opened.empty())
        return false;
    if (!putIntoSession(opened, place)) {
        QStringList paths;
        for (Opened const& file : opened)
            paths.push_back(file.path);
        tellError(QStringLiteral("%1: %2").arg(paths.join(QStringLiteral(", ")),
                                               QString::fromStdString(m_session.lastError())));
        return false;
    }
    QStringList names;
    for (Opened const& file : opened) {
        m_files[file.frame->dataSet->id()] = file.path;
        if (!file.isSeries()) // one file of it would be another data set
            m_recentFiles.add(file.path);
        names.push_back(QFileInfo(file.path).fileName());
        keepFolder(file.path);
    }
    Q_EMIT recentFilesChanged();
    Q_EMIT fileChanged();
    Q_EMIT told(QStringLiteral("Opened %1").arg(names.join(QStringLiteral(", "))));
    return true;
}

bool DocumentController::putIntoSession(std::vector<Opened> const& opened, Place place)
{
    try {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        sdk::WaitState const busy;
        std::vector<std::shared_ptr<kernel::Frame>> frames;
        QStringList paths;
        for (Opened const& file : opened) {
            frames.push_back(file.frame);
            for (QString const& path : file.paths)
                paths << QFileInfo(path).absoluteFilePath();
        }
        kernel::CommandText const command = openCommand(paths, place == Place::NewFrames);
        if (place == Place::NewFrames) {
            kernel::AddFrame adding(std::move(frames));
            adding.setCommand(command);
            return m_session.perform(adding);
        }
        if (!m_session.openPage(std::move(frames)))
            return false;
        m_session.journal().add(command.text(), m_session.pages());
    } catch (std::bad_alloc const&) {
        return m_session.refuse("Out of memory.");
    }
    m_files.clear();
    m_session.history().setClean(); // what stands in files is nothing to lose
    return true;
}

bool DocumentController::openByDialog(Place place)
{
    if (isLocked())
        return false;
    QFileDialog dialog(&m_window,
                       place == Place::FreshPage ? QStringLiteral("Open") : QStringLiteral("Open in New Frame"),
                       lastFolder());
    dialog.setObjectName(QStringLiteral("openDialog"));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilters(importNameFilters());
    return dialog.exec() == QDialog::Accepted && open(dialog.selectedFiles(), place);
}

bool DocumentController::openRecent(QString const& path)
{
    if (QFileInfo::exists(path))
        return open({path}, Place::FreshPage);
    m_recentFiles.remove(path);
    Q_EMIT recentFilesChanged();
    tellError(QStringLiteral("%1: the file is no longer there. It was taken off the list of recent files.").arg(path));
    return false;
}

bool DocumentController::saveAs()
{
    auto const dataSet = m_session.activeDataSet();
    if (!dataSet || isLocked())
        return false;
    QString const frameName = QString::fromStdString(m_session.activeFrame()->name);
    bool isSaved = false;
    auto const replaces = [&](QString const& path) { return replacesFile(*dataSet, path); };
    auto const write = [&](QString const& path) {
        Outcome const outcome = writeTo(path);
        isSaved = outcome == Outcome::Saved;
        return outcome != Outcome::Refused;
    };
    askForName(m_window, {QStringLiteral("Save As"), lastFolder() + QLatin1Char('/') + frameName, exportNameFilters(),
                          replaces, write});
    return isSaved;
}

bool DocumentController::save(QString const& path)
{
    return m_session.activeDataSet() && !isLocked() && writeTo(path) == Outcome::Saved;
}

DocumentController::Outcome DocumentController::writeTo(QString const& path)
{
    auto const dataSet = m_session.activeDataSet();
    QString const others = alsoReplaced(*dataSet, path);
    if (!others.isEmpty() &&
        !mayReplace(m_window,
                    QStringLiteral("To save \"%1\" also replaces %2.").arg(QFileInfo(path).fileName(), others)))
        return Outcome::Refused;
    Outcome const outcome = attempt([&] {
        takeDown(path, write(*dataSet, path, others.isEmpty() ? Replacing::ChosenFile : Replacing::AllNeeded));
    });
    if (outcome != Outcome::Saved)
        return outcome;
    m_session.history().setClean(dataSet->id());
    record(saveCommand(QFileInfo(path).absoluteFilePath(), !others.isEmpty()));
    keepFolder(path);
    QString const saved = savedPath(*dataSet, path);
    m_files[dataSet->id()] = saved;
    if (QFileInfo(saved).isFile()) // several tables stand in a folder
        m_recentFiles.add(saved);
    Q_EMIT recentFilesChanged();
    Q_EMIT fileChanged();
    Q_EMIT told(QStringLiteral("Saved %1%2").arg(QFileInfo(saved).fileName(), whatIsUnsaved()));
    return Outcome::Saved;
}

// Saves, and tells what is in the way.
DocumentController::Outcome DocumentController::attempt(std::function<void()> const& save)
{
    try {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        sdk::WaitState const busy;
        save();
    } catch (kernel::Interrupted const&) {
        Q_EMIT told(QStringLiteral("Saving was cancelled."));
        return Outcome::Cancelled;
    } catch (std::exception const& error) {
        tellError(QString::fromStdString(error.what()));
        return Outcome::Refused;
    }
    return Outcome::Saved;
}

// Runs as a long operation of the session, with a progress window; the data cannot change meanwhile.
std::vector<std::string> DocumentController::write(kernel::DataSet& dataSet, QString const& path, Replacing replacing)
{
    if (!loadWholeDataSet(m_session, dataSet)) {
        std::string const reason = "Cannot save \"" + path.toStdString() + "\": " + m_session.lastError();
        if (m_session.isInterrupted())
            throw kernel::Interrupted();
        throw ExportError(reason);
    }
    std::vector<std::string> remarks;
    m_session.runOperation("Save " + QFileInfo(path).fileName().toStdString(), [&](kernel::Progress& progress) {
        remarks = exportDataSet(dataSet, path, progress, replacing);
    });
    return remarks;
}

// What is told after the name of a file that has been saved.
QString DocumentController::whatIsUnsaved() const
{
    kernel::History const& history = m_session.history();
    for (auto const& page : m_session.pages().all())
        for (auto const& frame : page->frames)
            if (frame->dataSet && !history.isClean(frame->dataSet->id()))
                return QStringLiteral(". Other frames still have unsaved data.");
    return history.isClean() ? QString() : QStringLiteral(". A frame that was deleted has unsaved data.");
}

QString DocumentController::fileOf(kernel::DataSet const& dataSet) const
{
    auto const found = m_files.find(dataSet.id());
    return found == m_files.end() ? QString() : found->second;
}

// What is on the disk is there, whether or not there is memory to note it.
void DocumentController::record(kernel::CommandText const& command) noexcept
{
    try {
        m_session.journal().add(command.text(), m_session.pages());
    } catch (std::bad_alloc const&) {
    }
}

bool DocumentController::mayCloseData()
{
    if (m_session.history().isClean())
        return true;
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Unsaved Changes"),
                    QStringLiteral("There are changes that have not been saved."),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &m_window);
    box.setObjectName(QStringLiteral("unsavedQuestion"));
    box.setInformativeText(QStringLiteral("Save them before they are lost?"));
    box.button(QMessageBox::Save)->setText(QStringLiteral("&Save..."));
    box.button(QMessageBox::Discard)->setText(QStringLiteral("&Discard"));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return saveAs() && m_session.history().isClean();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

QString DocumentController::lastFolder() const
{
    QString const folder = QSettings().value(folderKey).toString();
    return QFileInfo(folder).isDir() ? folder : QDir::currentPath();
}

void DocumentController::keepFolder(QString const& path)
{
    QSettings().setValue(folderKey, QFileInfo(path).absolutePath());
}

} // namespace veldraw::app
