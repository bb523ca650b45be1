#include "tests/tour/CancelledSaveStation.h"

#include "app/window/ProgressWindow.h"
#include "dialogs/variableops/DeleteVariableDialog.h"

#include <QDir>
#include <QListView>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

namespace veldraw::tests {

using namespace app;

using dialogs::data::DeleteVariableDialog;

CancelledSaveStation::CancelledSaveStation(TourContext& context, QString const& out)
    : m_tour(context)
    , m_file(out + QStringLiteral("/never-written.csv"))
{
}

void CancelledSaveStation::run()
{
    if (!deleteCoordinate())
        return;
    saveAndCancel();
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect("Ctrl+Z brings the coordinate back", QStringLiteral("X, Value"), &TourContext::variableNames);
}

// It would have to be loaded for the file, which takes more memory than most machines have.
bool CancelledSaveStation::deleteCoordinate()
{
    auto* const dialog = m_tour.openDialog<DeleteVariableDialog>(Qt::Key_D);
    if (!m_tour.check("Alt+D, D opens Delete Variable once more", dialog != nullptr))
        return false;
    QListView& list = TourContext::list(*dialog, "deleteVariable_Select_MList");
    m_tour.user.clickRow(list, 0);
    m_tour.expectMessage("its coordinate is deleted before it is ever loaded",
                         QStringLiteral("Variable deletion successful"), TourContext::button(*dialog, "&Delete"));
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
    return TourContext::variableNames() == QLatin1String("Value");
}

void CancelledSaveStation::saveAndCancel()
{
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (pressCancel())
            look.stop();
    });
    look.start(50);
    m_tour.saveAs(m_file);
    m_tour.check("saving all rows as text brings up a progress window, Cancel ends it", m_wasCancelled);
    m_tour.check("the status bar says so", QStringLiteral("Saving was cancelled."),
                 m_tour.window.statusBar()->currentMessage());
    QString const traces = QFileInfo(m_file).fileName() + QLatin1Char('*');
    m_tour.check("no part of the file is left", 0, QFileInfo(m_file).dir().entryList({traces}).size());
}

bool CancelledSaveStation::pressCancel()
{
    auto* const progress = UserDriver::visibleWindow<ProgressWindow>();
    if (!progress || m_wasCancelled)
        return m_wasCancelled;
    m_wasCancelled = true;
    m_tour.user.picture(QStringLiteral("save-progress"));
    m_tour.user.click(*progress->findChild<QPushButton*>());
    return true;
}

} // namespace veldraw::tests
