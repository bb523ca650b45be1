#include "tests/tour/LoadVariableStation.h"

#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"
#include "dialogs/variableops/LoadVariablesDialog.h"

#include <QListView>
#include <QPushButton>
#include <QTableView>

namespace veldraw::tests {

using namespace app;

using dialogs::data::LoadVariablesDialog;
using sdk::ui::dialogs::DataSpreadsheetDialog;

namespace {

QString const variable = QStringLiteral("displacement_X");
constexpr int loadedVariable = 4;
QString const notLoaded = QStringLiteral("Not Loaded");

QString namesIn(QAbstractItemModel const& list)
{
    QStringList names;
    for (int row = 0; row < list.rowCount(); ++row)
        names.push_back(list.index(row, 0).data().toString());
    return names.join(QStringLiteral(", "));
}

} // namespace

LoadVariableStation::LoadVariableStation(TourContext& context, QString file)
    : m_tour(context)
    , m_file(std::move(file))
{
}

void LoadVariableStation::run()
{
    open();
    auto* const dialog = m_tour.openDialog<DataSpreadsheetDialog>(Qt::Key_S);
    if (!m_tour.check("Alt+D, S opens the Data Spreadsheet of it", dialog != nullptr))
        return;
    auto const& table = *dialog->findChild<QTableView*>(QStringLiteral("dataSpreadsheet_Array_TableView"));
    QModelIndex const cell = table.model()->index(99, loadedVariable - 1);
    m_tour.check("its cells say what is not loaded", notLoaded, cell.data().toString());
    m_tour.user.picture(QStringLiteral("load-before"));
    m_tour.user.click(TourContext::button(*dialog, "&Load Variables..."));
    m_tour.user.waitFor([] { return UserDriver::visibleWindow<LoadVariablesDialog>() != nullptr; });
    if (!m_tour.check("\"Load Variables...\" opens Load Variable",
                      UserDriver::visibleWindow<LoadVariablesDialog>() != nullptr))
        return;
    loadByMouse();
    m_tour.activate(*dialog);
    auto const buffer = TourContext::dataSet().field(1, loadedVariable)->group()->buffer();
    QString const shown = table.model()->index(99, loadedVariable - 1).data().toString();
    m_tour.check("the cells show the values now", buffer && qAbs(shown.toDouble() - buffer->value(99)) < 1e-5);
    m_tour.check("what was not selected is not loaded", notLoaded,
                 table.model()->index(99, loadedVariable + 2).data().toString());
    m_tour.expectThat("and the dock shows a range",
                      [&] { return m_tour.shownRange(variable).contains(QStringLiteral(" \u2026 ")); });
    m_tour.user.picture(QStringLiteral("load-after"));
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes the spreadsheet again", [&] { return !dialog->isVisible(); });
}

void LoadVariableStation::open()
{
    m_tour.deferral = Deferral::Always;
    m_tour.window.openFiles({m_file}, DocumentController::Place::FreshPage);
    m_tour.deferral = Deferral::Auto;
    m_tour.expect("a file opened without reading its values: the dock says so", QStringLiteral("not loaded"),
                  [&] { return m_tour.shownRange(variable); });
}

void LoadVariableStation::loadByMouse()
{
    auto& dialog = *UserDriver::visibleWindow<LoadVariablesDialog>();
    QListView& list = TourContext::list(dialog, "LoadVariables_Variables_listView");
    QPushButton& load = TourContext::button(dialog, "&Load");
    m_tour.activate(dialog);
    m_tour.expect("it lists what is not loaded",
                  QStringLiteral("4: displacement_X, 5: displacement_Y, 6: displacement_Z, 7: temperature, 8: stress"),
                  [&] { return namesIn(*list.model()); });
    m_tour.expectThat("with nothing selected there is nothing to load", [&] { return !load.isEnabled(); });
    m_tour.user.clickRow(list, 0);
    m_tour.user.clickRow(list, 2, Qt::ShiftModifier);
    m_tour.expect("a click and a Shift-click select three", 3, [&] { return TourContext::selectedRowCount(list); });
    m_tour.user.waitFor([&] { return load.isEnabled(); });
    m_tour.user.picture(QStringLiteral("load-selected"));
    m_tour.user.click(load);
    m_tour.expect("\"Load\" takes them from the list", QStringLiteral("7: temperature, 8: stress"),
                  [&] { return namesIn(*list.model()); });
    m_tour.user.picture(QStringLiteral("load-done"));
    m_tour.activate(dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes Load Variable",
                      [] { return UserDriver::visibleWindow<LoadVariablesDialog>() == nullptr; });
}

} // namespace veldraw::tests
