#pragma once

#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"
#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/spreadsheet/SheetStage.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <QApplication>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;
using Choices = sdk::ui::propertymanager::DataSpreadsheetPropertiesManager;
using sdk::ui::dialogs::DataSpreadsheetDialog;

/// The spreadsheet over a stage that the test sets, and the hands of its user. The choices begin with their defaults.
class SpreadsheetDriver : public testing::Test
{
protected:
    SpreadsheetDriver()
    {
        Choices::spreadsheetZone()->setValue(1);
        Choices::spreadsheetVariable()->setValue(1);
        Choices::spreadsheetPlane()->setValue(static_cast<IJKPlanes_e>(2));
        for (auto const& index :
             {Choices::spreadsheetIIndex(), Choices::spreadsheetJIndex(), Choices::spreadsheetKIndex()})
            index->setValue(1);
        Choices::spreadsheetAlterShared()->setValue(false);
        Choices::spreadsheetFormat()->setValue(static_cast<NumberFormat_e>(3));
        Choices::spreadsheetPrecision()->setValue(3);
        Choices::spreadsheetValueLocation()->setValue(ValueLocation_Nodal);
    }

    DataSpreadsheetDialog& launched()
    {
        mainWindow.show();
        dialog().launch();
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &dialog(); }));
        settle();
        return dialog();
    }

    void settle()
    {
        IdleDispatcher::flush();
        QApplication::processEvents();
        IdleDispatcher::flush();
    }

    DataSpreadsheetDialog& dialog() { return DataSpreadsheetDialog::getInstance(mainWindow); }

    template <typename Widget>
    Widget& widget(char const* name)
    {
        return *dialog().findChild<Widget*>(QString(QLatin1String("dataSpreadsheet_")) + QLatin1String(name));
    }
    QTableView& table() { return widget<QTableView>("Array_TableView"); }

    sdk::ui::dialogs::propertybindings::models::QTableModelAdapter& adapter()
    {
        return *qobject_cast<sdk::ui::dialogs::propertybindings::models::QTableModelAdapter*>(table().model());
    }

    /// How many cells the user sees, whole or in part.
    int visibleCells()
    {
        QRect const area = table().viewport()->rect();
        int const rowBelow = table().rowAt(area.bottom());
        int const columnBehind = table().columnAt(area.right());
        int const lastRow = rowBelow < 0 ? adapter().rowCount() - 1 : rowBelow;
        int const lastColumn = columnBehind < 0 ? adapter().columnCount() - 1 : columnBehind;
        return (lastRow - table().rowAt(0) + 1) * (lastColumn - table().columnAt(0) + 1);
    }

    /// What the cell shows, by zero-based row and column of the view.
    std::string shown(int row, int column)
    {
        QModelIndex const index = table().model()->index(row, column);
        auto const& delegate = *static_cast<QStyledItemDelegate*>(table().itemDelegate());
        return delegate.displayText(index.data(), QLocale()).toStdString();
    }

    void goTo(int row, int column) { table().setCurrentIndex(table().model()->index(row, column)); }

    /// Types into the current cell; the first key opens the editor.
    void type(std::string const& text)
    {
        for (char const letter : text) {
            auto* const editor = table().viewport()->findChild<QLineEdit*>();
            QTest::keyClick(editor ? static_cast<QWidget*>(editor) : &table(), letter);
        }
    }
    void pressInEditor(Qt::Key key)
    {
        auto* const editor = table().viewport()->findChild<QLineEdit*>();
        ASSERT_TRUE(editor);
        QTest::keyClick(editor, key);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void edit(int row, int column, std::string const& text)
    {
        goTo(row, column);
        type(text);
        pressInEditor(Qt::Key_Return);
    }

    /// "row, column" of the current cell in the view.
    std::string current()
    {
        QModelIndex const index = table().currentIndex();
        return std::to_string(index.row()) + ", " + std::to_string(index.column());
    }

    RecordedMessages messages;
    SheetStage stage{{"P", "T", "V"}};
    QWidget mainWindow;
};

} // namespace veldraw::tests
