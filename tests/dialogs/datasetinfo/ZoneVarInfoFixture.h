#pragma once

#include "dialogs/datasetinfo/DataSetInfoDialog.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/datasetinfo/ZoneVarStage.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

namespace veldraw::tests {

/// The page of the window on the screen, over the zones of the stage, with the first zone and the first variable selected; and the
/// hands of its user.
class ZoneVarInfoFixture : public testing::Test
{
protected:
    using IdleDispatcher = sdk::ui::common::IdleDispatcher;

    // The process remembers what was selected in the last test.
    ZoneVarInfoFixture()
    {
        openAnew();
        selectZone(1);
        selectVariable(1);
    }

    /// The window, which the page is in from the start.
    QDialog& dialog() const { return dialogs::data::DataSetInfoDialog::getInstance(*mainWindow); }

    /// Another window in place of the one that is there.
    void openAnew()
    {
        close();
        mainWindow = std::make_unique<QWidget>();
        mainWindow->show();
        dialogs::data::DataSetInfoDialog::getInstance(*mainWindow).launch();
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &dialog(); }));
        ui = {&child<QListView>("selectedZonesList"), &child<QListView>("selectedVarsList"),
              &child<QLineEdit>("zoneNameLineEdit"), &child<QLineEdit>("varNameLineEdit"),
              &child<QPushButton>("loadVariablesPushButton")};
        IdleDispatcher::flush();
    }
    /// The window is no more.
    void close() { mainWindow.reset(); }

    template <typename Widget = QWidget>
    Widget& child(std::string const& name) const
    {
        auto* const widget = dialog().findChild<Widget*>(QString::fromStdString(name));
        if (!widget)
            throw std::logic_error("there is no widget " + name);
        return *widget;
    }

    /// The text of a label or field, with nothing left to do.
    std::string shown(std::string const& name) const
    {
        IdleDispatcher::flush();
        return child(name).property("text").toString().toStdString();
    }
    bool isEnabled(std::string const& name) const
    {
        IdleDispatcher::flush();
        return child(name).isEnabled();
    }

    static void clickRow(QListView& list, int row)
    {
        QModelIndex const index = list.model()->index(row, 0);
        list.scrollTo(index);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.visualRect(index).center());
        IdleDispatcher::flush();
    }
    void selectZone(int row) const { clickRow(*ui.selectedZonesList, row - 1); }
    void selectVariable(int row) const { clickRow(*ui.selectedVarsList, row - 1); }

    /// Number of what is selected in a list, 0 if nothing is.
    static int selectedIn(QListView const& list)
    {
        QModelIndexList const rows = list.selectionModel()->selectedIndexes();
        EXPECT_LE(rows.size(), 1);
        return rows.isEmpty() ? 0 : rows.front().data(Qt::UserRole).toInt();
    }
    int selectedZone() const { return selectedIn(*ui.selectedZonesList); }
    int selectedVariable() const { return selectedIn(*ui.selectedVarsList); }

    /// Types over what a field shows.
    static void type(QLineEdit& field, char const* text)
    {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, QString::fromUtf8(text));
    }
    static void enter(QLineEdit& field, char const* text)
    {
        type(field, text);
        QTest::keyClick(&field, Qt::Key_Return);
        IdleDispatcher::flush();
    }

    template <typename Operation>
    void perform(Operation&& operation)
    {
        EXPECT_TRUE(stage.session().perform(operation)) << stage.session().lastError();
        IdleDispatcher::flush();
    }

    struct Widgets
    {
        QListView* selectedZonesList;
        QListView* selectedVarsList;
        QLineEdit* zoneNameLineEdit;
        QLineEdit* varNameLineEdit;
        QPushButton* loadVariablesPushButton;
    };

    RecordedMessages messages;
    ZoneVarStage stage;
    std::unique_ptr<QWidget> mainWindow;
    Widgets ui{};
};

} // namespace veldraw::tests
