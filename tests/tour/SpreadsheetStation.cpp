#include "tests/tour/SpreadsheetStation.h"

#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"

#include <QComboBox>
#include <QTableView>

namespace veldraw::tests {

using sdk::ui::dialogs::DataSpreadsheetDialog;

SpreadsheetStation::SpreadsheetStation(TourContext& context)
    : m_tour(context)
{
}

void SpreadsheetStation::run()
{
    auto* const dialog = m_tour.openDialog<DataSpreadsheetDialog>(Qt::Key_S);
    if (!m_tour.check("Alt+D, S opens the Data Spreadsheet", dialog != nullptr))
        return;
    auto& table = *dialog->findChild<QTableView*>(QStringLiteral("dataSpreadsheet_Array_TableView"));
    m_tour.expectThat("the table has rows", [&] { return table.model()->rowCount() > 0; });
    QString const variable =
        dialog->findChild<QComboBox*>(QStringLiteral("dataSpreadsheet_Variable_ComboBox"))->currentText();
    QString const name = variable.section(QStringLiteral(": "), 1);
    editByKeyboard(table, name);
    takeBack(table, name);
    goToTheEnd(table);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes the spreadsheet", [&] { return !dialog->isVisible(); });
}

void SpreadsheetStation::editByKeyboard(QTableView& table, QString const& variable)
{
    m_tour.user.waitFor([&] { return m_tour.shownRange(variable).contains(QStringLiteral(" \u2026 ")); });
    m_rangeBefore = m_tour.shownRange(variable);
    m_valueBefore = table.model()->index(0, 0).data().toString();
    m_plotBefore = m_tour.restingPlot();
    table.setFocus();
    m_tour.user.key(Qt::Key_Home, Qt::ControlModifier);
    // The first key opens the editor, which gets the others.
    for (QChar const letter : QStringLiteral("12.5"))
        m_tour.user.type(letter);
    m_tour.user.key(Qt::Key_Return);
    m_tour.expect("12.5 typed into the first cell", QStringLiteral("12.5"),
                  [&] { return table.model()->index(0, 0).data().toString(); });
    QString const range = m_rangeBefore.section(QLatin1Char(' '), 0, 1) + QStringLiteral(" 12.5");
    m_tour.expect("the dock's range of the variable ends at 12.5", range, [&] { return m_tour.shownRange(variable); });
    m_tour.expectThat("the plot has followed", [&] { return m_tour.plot() != m_plotBefore; });
    m_tour.user.picture(QStringLiteral("spreadsheet-edited"));
    m_tour.user.key(Qt::Key_Return);
    m_tour.expect("Return goes to the next row", 1, [&] { return table.currentIndex().row(); });
}

void SpreadsheetStation::takeBack(QTableView& table, QString const& variable)
{
    QWidget& dialog = *table.window();
    m_tour.activate(m_tour.window);
    m_tour.user.key(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect("Ctrl+Z brings the old value back", m_valueBefore,
                  [&] { return table.model()->index(0, 0).data().toString(); });
    m_tour.expect("the dock's range is the old one", m_rangeBefore, [&] { return m_tour.shownRange(variable); });
    m_tour.expectThat("the plot is as it was", [&] { return m_tour.plot() == m_plotBefore; });
    m_tour.user.picture(QStringLiteral("spreadsheet-undone"));
    m_tour.activate(dialog);
}

void SpreadsheetStation::goToTheEnd(QTableView& table)
{
    table.setFocus();
    m_tour.user.key(Qt::Key_End, Qt::ControlModifier);
    m_tour.expect("Ctrl+End goes to the last row", table.model()->rowCount() - 1,
                  [&] { return table.currentIndex().row(); });
    m_tour.user.picture(QStringLiteral("spreadsheet-end"));
}

} // namespace veldraw::tests
