#include "tests/tour/JournalStation.h"

#include "dialogs/smoothing/SmoothDialog.h"
#include "dialogs/variableops/DeleteVariableDialog.h"
#include "dialogs/zoneops/DuplicateZoneDialog.h"
#include "kernel/session/Session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QListView>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>

#include <utility>

namespace veldraw::tests {

namespace {

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What was done since a file was opened last.
QByteArray sinceOpened(QByteArray const& script)
{
    int const opened = script.lastIndexOf("\nopen ") + 1;
    return script.mid(opened);
}

QListWidget& journal(app::MainWindow& window)
{
    return *window.findChild<QListWidget*>(QStringLiteral("journalView"));
}

} // namespace

JournalStation::JournalStation(TourContext& context, QString out)
    : m_tour(context)
    , m_out(std::move(out))
{
}

void JournalStation::run()
{
    duplicate();
    smooth();
    deleteVariable();
    renameAndUndo();
    lookAtJournal();
    save();
    runAgain();
}

void JournalStation::duplicate()
{
    auto* const dialog = m_tour.openDialog<dialogs::data::DuplicateZoneDialog>(Qt::Key_U);
    if (!m_tour.check("Create Duplicate Zone opens once more", dialog != nullptr))
        return;
    m_tour.user.clickRow(TourContext::list(*dialog, "duplicateZone_Source_MList"), 0);
    m_tour.expectMessage("a zone is duplicated", QStringLiteral("Duplicate zone(s) created"), Qt::Key_R,
                         Qt::AltModifier);
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
}

void JournalStation::smooth()
{
    auto* const dialog = m_tour.openDialog<dialogs::data::SmoothDialog>(Qt::Key_O);
    if (!m_tour.check("Smooth opens once more", dialog != nullptr))
        return;
    m_tour.expectMessage("a variable is smoothed", QStringLiteral("Smoothing was successful."), Qt::Key_S,
                         Qt::AltModifier);
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
}

void JournalStation::deleteVariable()
{
    auto* const dialog = m_tour.openDialog<dialogs::data::DeleteVariableDialog>(Qt::Key_D);
    if (!m_tour.check("Delete Variable opens once more", dialog != nullptr))
        return;
    QListView& list = TourContext::list(*dialog, "deleteVariable_Select_MList");
    int const last = list.model()->rowCount() - 1;
    for (int row = 0; row <= last; ++row)
        if (list.selectionModel()->isRowSelected(row, {}) != (row == last))
            m_tour.user.clickRow(list, row);
    m_tour.expectMessage("a variable is deleted", QStringLiteral("Variable deletion successful"), Qt::Key_D,
                         Qt::AltModifier);
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
}

void JournalStation::renameAndUndo()
{
    QString const before = TourContext::zoneNames();
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_2, Qt::ControlModifier);
    m_tour.user.key(Qt::Key_Home);
    m_tour.user.key(Qt::Key_F2);
    m_tour.user.type(QStringLiteral("a mistake"));
    m_tour.user.key(Qt::Key_Return);
    m_tour.expectThat("a zone is renamed by F2", [&] { return TourContext::zoneNames() != before; });
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect("and the name is undone", before, &TourContext::zoneNames);
}

void JournalStation::lookAtJournal()
{
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_9, Qt::ControlModifier);
    QListWidget& list = journal(m_tour.window);
    m_tour.expectThat("Ctrl+9 shows the journal", [&] { return list.isVisible() && list.hasFocus(); });
    m_tour.expect("its last command is the one that is undone, struck out", QStringLiteral("struck out"), [&] {
        QListWidgetItem const* const last = list.item(list.count() - 1);
        bool const isName = last->text().startsWith(QStringLiteral("rename-zone zone=1 name=\"a mistake\""));
        return isName && last->font().strikeOut() ? QStringLiteral("struck out") : last->text();
    });
    m_tour.user.picture(QStringLiteral("journal"));
}

void JournalStation::save()
{
    m_tour.saveAs(path("by-hand.vtm"));
    m_tour.check("the data are saved", QFile::exists(path("by-hand.vtm")));
    auto& button = *m_tour.window.findChild<QPushButton*>(QStringLiteral("saveScriptButton"));
    m_tour.nameFile([&] { m_tour.user.click(button); }, path("journal.vdo"));
    m_tour.expectThat("a click saves the journal as a script",
                      [&] { return contentOf(path("journal.vdo")).contains("duplicate-zones"); });
}

// From the last file that was opened on; what is saved gets a folder of its own.
void JournalStation::runAgain()
{
    QByteArray script = sinceOpened(contentOf(path("journal.vdo")));
    QDir(m_out).mkpath(QStringLiteral("again"));
    script.replace("/by-hand.vtm", "/again/by-hand.vtm");
    QFile file(path("again.vdo"));
    bool const isWritten = file.open(QIODevice::WriteOnly) && file.write(script) == script.size();
    file.close();
    m_tour.check("the end of the journal is a script of more than ten commands",
                 isWritten && script.startsWith("open ") && script.count('\n') > 10);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/veldraw"),
                  {QStringLiteral("--quiet"), QStringLiteral("--run"), path("again.vdo")});
    program.waitForFinished(UserDriver::patience);
    m_tour.check("the program runs it without a window", QString(),
                 QString::fromUtf8(program.readAllStandardError()) +
                     (program.exitCode() == 0 ? QString() : QStringLiteral("status %1").arg(program.exitCode())));
    m_tour.check("and what it saves is what was saved by hand, byte for byte", areFoldersEqual());
}

bool JournalStation::areFoldersEqual() const
{
    QDir const pieces(path("by-hand"));
    QStringList const names = pieces.entryList(QDir::Files);
    bool areEqual = !names.isEmpty() && contentOf(path("by-hand.vtm")) == contentOf(path("again/by-hand.vtm"));
    for (QString const& name : names)
        areEqual =
            areEqual && contentOf(pieces.filePath(name)) == contentOf(m_out + QStringLiteral("/again/by-hand/") + name);
    return areEqual && names == QDir(m_out + QStringLiteral("/again/by-hand")).entryList(QDir::Files);
}

} // namespace veldraw::tests
