#pragma once

#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/spreadsheet/EnterKeyTableNavigator.h"
#include "dialogs/spreadsheet/GoToRowAction.h"
#include "dialogs/spreadsheet/LongTableKeyNavigator.h"
#include "dialogs/spreadsheet/LongTableMouseSelector.h"
#include "dialogs/spreadsheet/SelectionText.h"
#include "dialogs/spreadsheet/TableWindow.h"
#include "dialogs/spreadsheet/WindowScrollBar.h"
#include "dialogs/widgets/TableCopyHandler.h"
#include "dialogs/widgets/TableViewWithPreferredDimensions.h"
#include "tests/dialogs/models/FakeTable.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>
#include <string>

namespace veldraw::tests {

using namespace sdk::ui::propertymanager;

constexpr unsigned long long rowsOfLongTable = 3000000000ull;

/// A view on a table of 3e9 rows and three columns, with all that makes it reachable.
class LongTable : public testing::Test
{
protected:
    explicit LongTable(unsigned long long rows = rowsOfLongTable, unsigned long long columns = 3)
        : table(rows, columns)
    {
        view.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
        view.setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
        SelectionText::giveTo(copyHandler, window,
                              [this](TableWindow::Cell const& cell) { return table.getStr(cell); });
        view.resize(500, 400);
        view.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
        view.setFocus();
        settle();
    }

    void settle()
    {
        for (int round = 0; round < 3; ++round)
            QApplication::processEvents();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&view, static_cast<Qt::Key>(key), modifiers);
        settle();
    }
    void at(unsigned long long row, unsigned long long column)
    {
        window.setCurrent(TableWindow::Cell(row, column), false);
        settle();
    }

    /// The current cell as the view has it, in numbers of the table, and whether the user sees it.
    std::string current()
    {
        QModelIndex const index = view.currentIndex();
        if (!index.isValid())
            return "none";
        bool const isSeen = view.viewport()->rect().contains(view.visualRect(index));
        return std::to_string(adapter.tableRow(index.row())) + ", " + std::to_string(index.column()) +
               (isSeen ? "" : " out of sight");
    }
    unsigned long long top() { return adapter.tableRow(view.rowAt(0)); }
    std::string topName() { return adapter.headerData(view.rowAt(0), Qt::Vertical).toString().toStdString(); }
    std::string copied()
    {
        QApplication::clipboard()->setText(QStringLiteral("nothing"));
        QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text().toStdString();
    }

    RecordedMessages messages;
    FakeTable table;
    sdk::ui::dialogs::propertybindings::models::QTableModelAdapter adapter{table};
    struct View : dialogs::common::TableViewWithPreferredDimensions
    {
        explicit View(QAbstractItemModel& model) { setModel(&model); }
    } view{adapter};
    veldraw::ui::TableCopyHandler& copyHandler = *new veldraw::ui::TableCopyHandler(&view);
    TableWindow& window = *new TableWindow(view, adapter);
    LongTableKeyNavigator& keys = *new LongTableKeyNavigator(window, view);
    LongTableMouseSelector& mouse = *new LongTableMouseSelector(window, view);
    WindowScrollBar& bar = *new WindowScrollBar(Qt::Vertical, window, view);
    WindowScrollBar& columnBar = *new WindowScrollBar(Qt::Horizontal, window, view);
    EnterKeyTableNavigator& navigator = *new EnterKeyTableNavigator(view);
    GoToRowAction& goToRow = *new GoToRowAction(window, view);
};

} // namespace veldraw::tests
