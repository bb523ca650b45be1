#include "dialogs/zoneops/DuplicateZoneDialog.h"
#include "host/MessagePresenter.h"
#include "kernel/operations/DuplicateZones.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

using dialogs::data::DuplicateZoneDialog;
using testing::ElementsAre;

/// Zones duplicated by somebody who has no mouse.
class DuplicateZoneTest : public WindowTest
{
protected:
    DuplicateZoneTest()
    {
        openFlow();
        showWindow();
    }

    DuplicateZoneDialog* openDialog()
    {
        QTest::keyClick(window.get(), Qt::Key_D, Qt::AltModifier);
        if (QWidget* const menu = QApplication::activePopupWidget())
            QTest::keyClick(menu, Qt::Key_U);
        settle();
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const dialog = qobject_cast<QDialog*>(widget); dialog && dialog->isVisible())
                return dynamic_cast<DuplicateZoneDialog*>(dialog);
        return nullptr;
    }

    /// What the list of zones beside the plots shows: "1 inlet".
    std::vector<std::string> listedZones()
    {
        settle();
        auto const* const view = window->findChild<QAbstractItemView*>(QStringLiteral("zoneView"));
        std::vector<std::string> texts;
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            QString const number = view->model()->index(row, 0).data().toString();
            QString const name = view->model()->index(row, 1).data().toString();
            texts.push_back((number + QLatin1Char(' ') + name).toStdString());
        }
        return texts;
    }

    std::string status() { return window->findChild<QLabel*>(QStringLiteral("dataSetStatus"))->text().toStdString(); }
};

} // namespace

TEST_F(DuplicateZoneTest, TwoZonesAreDuplicatedUndoneAndRedoneByKeysAlone)
{
    DuplicateZoneDialog* const dialog = openDialog();
    ASSERT_TRUE(dialog);
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    QTest::keyClick(dialog->focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(dialog->focusWidget(), Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !messages.empty(); })); // the button shows that it is pressed
    EXPECT_THAT(messages, ElementsAre("Duplicate zone(s) created"));
    EXPECT_THAT(listedZones(), ElementsAre("1 inlet", "2 outlet", "3 inlet", "4 outlet"));
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([this] {
        window->activateWindow(); // as a window manager does
        return QApplication::activeWindow() == window.get();
    }));

    std::string const statusWithCopies = status();
    EXPECT_EQ("&Undo Create Duplicate Zone", action("undoAction").text().toStdString());
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(listedZones(), ElementsAre("1 inlet", "2 outlet"));
    EXPECT_NE(statusWithCopies, status());
    EXPECT_EQ("&Redo Create Duplicate Zone", action("redoAction").text().toStdString());
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(listedZones(), ElementsAre("1 inlet", "2 outlet", "3 inlet", "4 outlet"));
    EXPECT_EQ(statusWithCopies, status());
}

TEST_F(DuplicateZoneTest, WindowAndDialogListTheCopiesWhenTheMessageComes)
{
    DuplicateZoneDialog* const dialog = openDialog();
    ASSERT_TRUE(dialog);
    auto& list = *dialog->findChild<QListView*>(QStringLiteral("duplicateZone_Source_MList"));
    auto const* const table = window->findChild<QAbstractItemView*>(QStringLiteral("zoneView"));
    std::vector<int> rows;
    host::MessagePresenter::install([&](std::string const& text, MessageBoxType_e) {
        messages.push_back(text);
        rows = {list.model()->rowCount(), table->model()->rowCount()};
    });
    list.selectAll();
    for (QPushButton* const button : dialog->findChildren<QPushButton*>())
        if (button->text() == QLatin1String("C&reate"))
            button->click();
    EXPECT_THAT(messages, ElementsAre("Duplicate zone(s) created"));
    EXPECT_THAT(rows, ElementsAre(4, 4));
}

TEST_F(DuplicateZoneTest, TheCommandWaitsForAFrameWithData)
{
    EXPECT_TRUE(action("duplicateZoneAction").isEnabled());
    session.clear();
    settle();
    EXPECT_FALSE(action("duplicateZoneAction").isEnabled());
}

TEST_F(DuplicateZoneTest, TheCopiesCountForTheMemoryOfTheirSourcesOnly)
{
    std::string const before = status();
    ASSERT_EQ(0U, before.find("2 zones"));
    ASSERT_TRUE(session.perform(kernel::DuplicateZones(*session.activeDataSet(), {1, 2})));
    settle();
    EXPECT_EQ(0U, status().find("4 zones"));
    EXPECT_EQ(before.substr(before.rfind("·")), status().substr(status().rfind("·")));
}

} // namespace veldraw::tests
