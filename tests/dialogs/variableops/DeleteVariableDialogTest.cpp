#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/variableops/DeleteVariableFixture.h"

#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeleteVariableDialogTest : public DeleteVariableFixture
{
};

TEST_F(DeleteVariableDialogTest, LooksAsItsFormSays)
{
    EXPECT_THAT(formTable(launched()),
                ElementsAre("DeleteVariable | veldraw::dialogs::common::QtDialogAbstract | Delete Variable |  | ",
                            "deleteVariable_SelectVariable_Static | QLabel | &Select variable(s) to delete |  | "
                            "deleteVariable_Select_MList",
                            "deleteVariable_Select_MList | QListView |  |  | ", "buttonBox | QDialogButtonBox |  |  | ",
                            " | QPushButton | Close |  | ", " | QPushButton | &Delete |  | ",
                            " | QPushButton | Help |  | "));
    EXPECT_EQ(dialog().size(), QSize(279, 260));
    EXPECT_EQ(dialog().sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    EXPECT_EQ(dialog().sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    EXPECT_FALSE(dialog().isModal());
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::MultiSelection);
    EXPECT_TRUE(qobject_cast<QVBoxLayout*>(dialog().layout()));
    EXPECT_EQ(dialog().layout()->objectName(), QStringLiteral("verticalLayout"));
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
}

TEST_F(DeleteVariableDialogTest, CanBeWalkedByTabInReadingOrder)
{
    EXPECT_THAT(tabOrder(launched()), ElementsAre("deleteVariable_Select_MList", "[&Delete]", "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &list());
    EXPECT_EQ(list().accessibleName(), QStringLiteral("Select variable(s) to delete"));
}

TEST_F(DeleteVariableDialogTest, ListsTheEnabledVariables)
{
    launched();
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
    sample.session().perform(kernel::EnableVariable(sample.dataSet(), 2, false));
    EXPECT_THAT(rows(), ElementsAre("1: X", "3: P", "4: T"));
}

TEST_F(DeleteVariableDialogTest, DeletesTheSelectedVariablesAndStaysOpenWithTheRest)
{
    launched();
    clickRow(1);
    clickRow(3);
    EXPECT_THAT(rows(), ElementsAre("1: X", "*2: Y", "3: P", "*4: T"));
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("information: Variable deletion successful"));
    EXPECT_THAT(variableNames(), ElementsAre("X", "P"));
    EXPECT_TRUE(dialog().isVisible());
    // The selection is one of numbers: the 2 is still in the list and stays selected, the 4 is gone.
    EXPECT_THAT(rows(), ElementsAre("1: X", "*2: P"));
}

TEST_F(DeleteVariableDialogTest, TakesAVariableBackWithASecondClick)
{
    launched();
    clickRow(1);
    clickRow(2);
    clickRow(1);
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "*3: P", "4: T"));
}

TEST_F(DeleteVariableDialogTest, SaysSoWhenNothingIsSelected)
{
    launched();
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: No variables are selected"));
    EXPECT_THAT(variableNames(), ElementsAre("X", "Y", "P", "T"));
}

TEST_F(DeleteVariableDialogTest, RefusesToDeleteAllEnabledVariablesHoweverMany)
{
    launched();
    for (int row = 0; row < 4; ++row)
        clickRow(row);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Cannot delete the last variable in a data set."));
    EXPECT_THAT(variableNames(), ElementsAre("X", "Y", "P", "T"));
    EXPECT_THAT(rows(), ElementsAre("*1: X", "*2: Y", "*3: P", "*4: T"));
}

TEST_F(DeleteVariableDialogTest, NeverTakesTheOnlyEnabledVariable)
{
    for (int const variable : {1, 2, 4})
        sample.session().perform(kernel::EnableVariable(sample.dataSet(), variable, false));
    launched();
    EXPECT_THAT(rows(), ElementsAre("3: P"));
    clickRow(0);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Cannot delete the last variable in a data set."));
    EXPECT_EQ(variableNames().size(), 4u);
}

TEST_F(DeleteVariableDialogTest, CanBeUsedByKeyboardAlone)
{
    launched();
    QTest::keyClick(dialog().focusWidget(), Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(dialog().focusWidget(), &list());
    QTest::keyClick(&list(), Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Space);
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "*3: P", "4: T"));
    QTest::keyClick(&list(), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return variableNames().size() == 3; }));
    EXPECT_THAT(messages.take(), ElementsAre("information: Variable deletion successful"));
    EXPECT_THAT(variableNames(), ElementsAre("X", "Y", "T"));
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_FALSE(dialog().isVisible());
}

TEST_F(DeleteVariableDialogTest, PressesDeleteBySpace)
{
    launched();
    clickRow(2);
    actionButton().setFocus();
    QTest::keyClick(&actionButton(), Qt::Key_Space);
    EXPECT_THAT(variableNames(), ElementsAre("X", "Y", "T"));
}

TEST_F(DeleteVariableDialogTest, FollowsUndoAndRenaming)
{
    launched();
    clickRow(3);
    clickAction();
    EXPECT_EQ(rows().size(), 3u);
    sample.session().undo();
    EXPECT_EQ(rows().size(), 4u);
    sample.session().perform(kernel::RenameVariable(sample.dataSet(), 4, "Temperature"));
    EXPECT_EQ(rows().back(), "4: Temperature");
    EXPECT_EQ(sample.session().history().redoName(), "");
}

TEST_F(DeleteVariableDialogTest, KeepsItsSelectionThroughADeletionThatIsUndoneBeforeItIsSeen)
{
    launched();
    clickRow(3);
    sample.session().perform(kernel::DeleteVariables(sample.dataSet(), kernel::NumberSet{4}));
    sample.session().undo();
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "3: P", "*4: T"));
}

TEST_F(DeleteVariableDialogTest, LocksTheApplicationWhileItTellsTheOutcome)
{
    std::vector<std::string> told;
    host::MessagePresenter::install([&](std::string const& text, MessageBoxType_e) {
        told.push_back(text);
        EXPECT_EQ(sdk::AppLock::depth(), 1) << text;
        EXPECT_TRUE(sdk::AppLock::isRecording()) << text;
    });
    launched();
    clickAction();
    EXPECT_EQ(sdk::AppLock::depth(), 0);
    clickRow(3);
    clickAction();
    EXPECT_EQ(sdk::AppLock::depth(), 0);
    EXPECT_THAT(told, ElementsAre("No variables are selected", "Variable deletion successful"));
}

} // namespace
} // namespace veldraw::tests
