#include "tests/app/support/DrawnWindowTest.h"

#include "app/import/Importer.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QTableView>
#include <QTest>
#include <vtkLookupTable.h>

namespace veldraw::tests {

app::DocumentController::FileReader DrawnWindowTest::makeReader()
{
    return [this](app::FileGroup const& group, app::OutsidePaths outsidePaths, kernel::Progress& progress) {
        return app::importGroup(group, deferral, progress, outsidePaths);
    };
}

QString DrawnWindowTest::openSample(char const* name, void (*write)(std::string const& path))
{
    QString const path = folder.filePath(QString::fromLatin1(name));
    write(path.toStdString());
    EXPECT_TRUE(window->openFiles({path}, app::DocumentController::Place::FreshPage));
    settle();
    return path;
}

DrawnWindowTest::Limits DrawnWindowTest::legendLimits()
{
    return {view().legend().min(), view().legend().max()};
}

QStringList DrawnWindowTest::column(char const* table, int number)
{
    auto const* const rows = window->findChild<QAbstractItemView*>(QString::fromLatin1(table))->model();
    QStringList texts;
    for (int row = 0; row < rows->rowCount(); ++row)
        texts << rows->index(row, number).data().toString();
    return texts;
}

QString DrawnWindowTest::shownRange(int variable)
{
    QString const pending = QString::fromUtf8("…");
    EXPECT_TRUE(QTest::qWaitFor([&] { return column("variableView", 2).value(variable - 1) != pending; }));
    settle();
    return column("variableView", 2).value(variable - 1);
}

void DrawnWindowTest::expectRange(int variable, QString const& range)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownRange(variable) == range; }))
        << range.toStdString() << " is not " << shownRange(variable).toStdString();
}

void DrawnWindowTest::use(char const* command)
{
    action(command).trigger();
    settle();
}

QDialog& DrawnWindowTest::openDialog(char const* command, char const* objectName)
{
    use(command);
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->objectName() == QLatin1String(objectName))
            return dynamic_cast<QDialog&>(*widget);
    throw std::runtime_error(std::string("no dialog called ") + objectName);
}

QTableView& DrawnWindowTest::openSpreadsheet()
{
    QDialog& dialog = openDialog("dataSpreadsheetAction", "DataSpreadsheetDialog");
    return *dialog.findChild<QTableView*>(QStringLiteral("dataSpreadsheet_Array_TableView"));
}

} // namespace veldraw::tests
