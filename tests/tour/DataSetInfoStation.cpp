#include "tests/tour/DataSetInfoStation.h"

#include "dialogs/variableops/LoadVariablesDialog.h"
#include "kernel/session/Session.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>

#include <utility>

namespace veldraw::tests {

using namespace app;

using dialogs::data::DataSetInfoDialog;
using dialogs::data::LoadVariablesDialog;

namespace {

constexpr int zoneVarPage = 0;
constexpr int dataSetPage = 1;
constexpr int auxDataPage = 2;

constexpr int variableNumber = 4; // the first that is no coordinate

} // namespace

DataSetInfoStation::DataSetInfoStation(TourContext& context, QString file, QString transientFile)
    : m_tour(context)
    , m_file(std::move(file))
    , m_transientFile(std::move(transientFile))
{
}

void DataSetInfoStation::run()
{
    if (!openOnDeferredFile())
        return;
    lookAtZoneAndVariable();
    rename();
    loadFromThere();
    giveATitle();
    goThroughMoments();
    lookAtAuxiliaryData();
    goWhereNoDataAre();
    m_tour.activate(*m_dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes Data Set Information", [&] { return !m_dialog->isVisible(); });
}

bool DataSetInfoStation::openOnDeferredFile()
{
    m_tour.deferral = Deferral::Always;
    m_tour.window.openFiles({m_file}, DocumentController::Place::FreshPage);
    m_tour.deferral = Deferral::Auto;
    m_dialog = m_tour.openDialog<DataSetInfoDialog>(Qt::Key_E);
    if (!m_tour.check("Alt+D, E opens Data Set Information of a file whose values were not read", m_dialog != nullptr))
        return false;
    return m_tour.check("its window title", QStringLiteral("Data Set Information"), m_dialog->windowTitle());
}

void DataSetInfoStation::lookAtZoneAndVariable()
{
    auto& variables = TourContext::list(*m_dialog, "selectedVarsList");
    m_tour.user.clickRow(variables, variableNumber - 1);
    m_tour.expect("a click on a variable shows its name", QStringLiteral("displacement_X"),
                  [&] { return field("varNameLineEdit"); });
    m_tour.expect("it is not loaded", QStringLiteral("Not Loaded"), [&] { return field("varStatusLineEdit"); });
    m_tour.check("the zone is one of elements", QStringLiteral("Elem:"), label("zoneJDimensionLabel"));
    m_tour.user.picture(QStringLiteral("information-deferred"));
    m_tour.check("to look has loaded nothing", !TourContext::dataSet().field(1, variableNumber)->isLoaded());
}

void DataSetInfoStation::rename()
{
    m_tour.activate(*m_dialog);
    m_tour.user.key(Qt::Key_A, Qt::AltModifier);
    m_tour.user.key(Qt::Key_A, Qt::ControlModifier);
    m_tour.user.type(QStringLiteral("shift"));
    m_tour.user.key(Qt::Key_Return);
    m_tour.expect("Alt+A, a name, Return: the variable has it", QStringLiteral("shift"),
                  [] { return QString::fromStdString(TourContext::dataSet().variable(variableNumber)->name); });
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect("Ctrl+Z takes it back, in the window too", QStringLiteral("displacement_X"),
                  [&] { return field("varNameLineEdit"); });
}

void DataSetInfoStation::loadFromThere()
{
    m_tour.activate(*m_dialog);
    m_tour.user.click(TourContext::button(*m_dialog, "&Load Variables..."));
    m_tour.user.waitFor([] { return UserDriver::visibleWindow<LoadVariablesDialog>() != nullptr; });
    auto* const load = UserDriver::visibleWindow<LoadVariablesDialog>();
    if (!m_tour.check("\"Load Variables...\" opens Load Variable", load != nullptr))
        return;
    m_tour.activate(*load);
    m_tour.user.clickRow(TourContext::list(*load, "LoadVariables_Variables_listView"), 0);
    QPushButton& button = TourContext::button(*load, "&Load");
    m_tour.user.waitFor([&] { return button.isEnabled(); });
    m_tour.user.click(button);
    m_tour.expect("what is loaded there is loaded here", QStringLiteral("Loaded"),
                  [&] { return field("varStatusLineEdit"); });
    m_tour.user.key(Qt::Key_Escape);
    m_tour.user.waitFor([] { return UserDriver::visibleWindow<LoadVariablesDialog>() == nullptr; });
    m_tour.check("and has a range", field("varSelectedMinLineEdit") != QStringLiteral("Not Loaded"));
    m_tour.user.picture(QStringLiteral("information-loaded"));
}

void DataSetInfoStation::giveATitle()
{
    goTo(dataSetPage);
    m_tour.check("the page \"Data Set\" names the file", m_file + QLatin1Char('\n'),
                 m_dialog->findChild<QTextEdit*>(QStringLiteral("dataFilesTextEdit"))->toPlainText());
    m_tour.check("and counts the points", QString::number(TourContext::dataSet().zone(1)->pointCount()),
                 label("totalPointsLabel"));
    m_tour.user.key(Qt::Key_D, Qt::AltModifier);
    m_tour.user.key(Qt::Key_A, Qt::ControlModifier);
    m_tour.user.type(QStringLiteral("Bent bar"));
    m_tour.user.key(Qt::Key_Return);
    m_tour.expectThat("Alt+D, a title, Return: the main window shows it",
                      [&] { return m_tour.window.windowTitle().endsWith(QStringLiteral("Bent bar")); });
    m_tour.user.picture(QStringLiteral("information-title"));
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect("Ctrl+Z takes it back", QFileInfo(m_file).fileName(), [&] { return field("dataSetTitleLineEdit"); });
}

void DataSetInfoStation::goThroughMoments()
{
    m_tour.window.openFiles({m_transientFile}, DocumentController::Place::FreshPage);
    m_tour.activate(*m_dialog);
    m_tour.expect("another file opened behind the window: it follows", QStringLiteral("12"),
                  [&] { return label("numZonesLabel"); });
    goTo(zoneVarPage);
    auto& zones = TourContext::list(*m_dialog, "selectedZonesList");
    zones.setFocus();
    m_tour.user.key(Qt::Key_Home);
    m_tour.expect("the first moment", QStringLiteral("Plate t=0.0"), [&] { return field("zoneNameLineEdit"); });
    QString const first = field("zoneSolutionTimeLineEdit");
    m_tour.user.key(Qt::Key_Down);
    m_tour.user.key(Qt::Key_Down);
    m_tour.expectThat("the arrow goes on to the next moment", [&] {
        return field("zoneNameLineEdit") == QStringLiteral("Plate t=0.5") && field("zoneSolutionTimeLineEdit") != first;
    });
    m_tour.check("which is of the same strand", QStringLiteral("1"), field("zoneStrandIDLineEdit"));
    m_tour.user.picture(QStringLiteral("information-transient"));
}

void DataSetInfoStation::lookAtAuxiliaryData()
{
    goTo(auxDataPage);
    auto& kinds = *m_dialog->findChild<QComboBox*>(QStringLiteral("auxDataLocationComboBox"));
    m_tour.user.key(Qt::Key_S, Qt::AltModifier);
    m_tour.user.key(Qt::Key_Home);
    m_tour.expect("the page \"Aux Data\" offers zones", 12, [&] {
        return m_dialog->findChild<QComboBox*>(QStringLiteral("zoneAuxDataSelectedZoneComboBox"))->count();
    });
    m_tour.user.picture(QStringLiteral("information-auxiliary"));
    m_tour.user.key(Qt::Key_Down);
    m_tour.expect("the arrow goes on to the data set", QStringLiteral("Data set"), [&] { return kinds.currentText(); });
    m_tour.expectThat("of which there is one only", [&] {
        return !m_dialog->findChild<QComboBox*>(QStringLiteral("zoneAuxDataSelectedZoneComboBox"))->isEnabled();
    });
}

void DataSetInfoStation::goWhereNoDataAre()
{
    goTo(dataSetPage);
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_R, Qt::AltModifier);
    m_tour.user.key(Qt::Key_W);
    m_tour.user.key(Qt::Key_N);
    auto const& tabs = *m_dialog->findChild<QTabWidget*>();
    m_tour.expectThat("in a new frame without data, by Alt+R, W, N, the window is grey", [&] { return !tabs.isEnabled(); });
    m_tour.check("and counts nothing", QStringLiteral("0"), label("totalPointsLabel"));
    m_tour.activate(*m_dialog);
    m_tour.user.picture(QStringLiteral("information-without-data"));
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expectThat("with the frame gone it can be used again", [&] { return tabs.isEnabled(); });
}

void DataSetInfoStation::goTo(int page)
{
    m_tour.activate(*m_dialog);
    auto& bar = *m_dialog->findChild<QTabWidget*>()->tabBar();
    m_tour.user.click(bar, bar.tabRect(page).center());
    m_tour.user.settle();
}

QString DataSetInfoStation::field(char const* name) const
{
    return m_dialog->findChild<QLineEdit*>(QLatin1String(name))->text();
}

QString DataSetInfoStation::label(char const* name) const
{
    return m_dialog->findChild<QLabel*>(QLatin1String(name))->text();
}

} // namespace veldraw::tests
