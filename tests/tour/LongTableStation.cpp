#include "tests/tour/LongTableStation.h"

#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"

#include <QFile>
#include <QStyledItemDelegate>
#include <QTableView>

#include <sys/stat.h>

namespace veldraw::tests {

using namespace app;

using sdk::ui::dialogs::DataSpreadsheetDialog;

namespace {

constexpr std::int64_t pointCount = 3000000000;

// Of a sparse file far less than its length.
std::int64_t bytesOnDisk(QString const& file)
{
    struct stat facts = {};
    return stat(QFile::encodeName(file).constData(), &facts) == 0 ? facts.st_blocks * 512 : -1;
}

} // namespace

LongTableStation::LongTableStation(TourContext& context, QString file)
    : m_tour(context)
    , m_file(std::move(file))
{
}

void LongTableStation::run()
{
    open();
    auto* const dialog = m_tour.openDialog<DataSpreadsheetDialog>(Qt::Key_S);
    if (!m_tour.check("Alt+D, S opens the table of all its points", dialog != nullptr))
        return;
    auto& table = *dialog->findChild<QTableView*>(QStringLiteral("dataSpreadsheet_Array_TableView"));
    table.setFocus();
    goToTheEnd(table);
    goToARow(table);
    goToTheStart(table);
    m_tour.activate(*dialog);
    m_tour.user.key(Qt::Key_Escape);
    m_tour.expectThat("Escape closes it", [&] { return !dialog->isVisible(); });
}

void LongTableStation::open()
{
    QString const values = m_file.left(m_file.lastIndexOf(QLatin1Char('.'))) + QStringLiteral(".raw");
    std::int64_t const room = bytesOnDisk(values);
    m_tour.check("the sample of 12 GB takes less than a megabyte of the disk", room >= 0 && room < 1000000);
    m_tour.window.openFiles({m_file}, DocumentController::Place::FreshPage);
    m_tour.check("three thousand million points are open", TourContext::dataSet().zone(1)->pointCount() == pointCount);
    m_tour.expect("the dock knows the range of coordinates that nobody has computed", QString::fromUtf8("0 … 3e+06"),
                  [&] { return m_tour.shownRange(QStringLiteral("X")); });
    m_tour.user.picture(QStringLiteral("long-opened"));
}

void LongTableStation::goToTheEnd(QTableView& table)
{
    m_tour.user.key(Qt::Key_End, Qt::ControlModifier);
    checkCurrent("Ctrl+End goes to the last row", QStringLiteral("3000000000: -0.74"), table);
    m_tour.user.picture(QStringLiteral("long-last-row"));
}

void LongTableStation::goToARow(QTableView& table)
{
    m_tour.user.key(Qt::Key_G, Qt::ControlModifier);
    m_tour.user.type(QStringLiteral("1500000001"));
    m_tour.user.picture(QStringLiteral("long-go-to-row"));
    m_tour.user.key(Qt::Key_Return);
    checkCurrent("Ctrl+G, 1500000001, Return goes to the middle", QStringLiteral("1500000001: 0.14"), table);
    m_tour.user.picture(QStringLiteral("long-middle"));
}

void LongTableStation::goToTheStart(QTableView& table)
{
    m_tour.activate(*table.window());
    m_tour.user.key(Qt::Key_Home, Qt::ControlModifier);
    // The coordinate is in the first column.
    checkCurrent("Ctrl+Home goes to the first cell", QStringLiteral("1: Not Loaded"), table);
    m_tour.user.key(Qt::Key_End);
    checkCurrent("End goes to its value", QStringLiteral("1: -1"), table);
}

void LongTableStation::checkCurrent(char const* step, QString const& rowNameAndValue, QTableView const& table)
{
    m_tour.expect(step, rowNameAndValue, [&] {
        QModelIndex const cell = table.currentIndex();
        // As the table writes it; the model has all digits.
        auto const* const delegate = qobject_cast<QStyledItemDelegate*>(table.itemDelegate());
        QString const shown = delegate ? delegate->displayText(cell.data(), table.locale()) : QString();
        return QStringLiteral("%1: %2").arg(table.model()->headerData(cell.row(), Qt::Vertical).toString(), shown);
    });
}

} // namespace veldraw::tests
