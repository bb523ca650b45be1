#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"
#include "tests/dialogs/variableops/LoadVariablesFixture.h"
#include "tests/support/FakeStateChange.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LoadVariablesDialogTest : public LoadVariablesFixture
{
};

TEST_F(LoadVariablesDialogTest, LooksAsItsFormSays)
{
    EXPECT_THAT(formTable(launched()),
                ElementsAre("LoadVariables | veldraw::dialogs::common::QtDialogAbstract | Load Variable |  | ",
                            "label | QLabel | &Zone: |  | LoadVariables_Zones_comboBox",
                            "LoadVariables_Zones_comboBox | QComboBox |  |  | ",
                            "LoadVariables_Title_Label | QLabel | Select &variable(s) to load: |  | "
                            "LoadVariables_Variables_listView",
                            "LoadVariables_Variables_listView | QListView |  |  | ",
                            "LoadVariables_buttonBox | QDialogButtonBox |  |  | ", " | QPushButton | Close |  | ",
                            " | QPushButton | &Load |  | ", " | QPushButton | Help |  | "));
    EXPECT_EQ(dialog().size(), QSize(241, 270));
    EXPECT_TRUE(dialog().isModal());
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::ExtendedSelection);
    EXPECT_THAT(formLayout(dialog()),
                ElementsAre("gridLayout | 0, 0, 1, 1 | label", "gridLayout | 0, 1, 1, 1 | LoadVariables_Zones_comboBox",
                            "gridLayout | 1, 0, 1, 2 | LoadVariables_Title_Label",
                            "gridLayout | 2, 0, 1, 2 | LoadVariables_Variables_listView",
                            "gridLayout | 3, 1, 1, 1 | LoadVariables_buttonBox"));
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
}

TEST_F(LoadVariablesDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Load Variable>"));
    EXPECT_THAT(translator.asked, testing::IsSupersetOf({"LoadVariables: Load Variable", "LoadVariables: &Zone:",
                                                         "LoadVariables: Select &variable(s) to load:"}));
    EXPECT_EQ(actionButton().text(), QStringLiteral("&Load"));
}

TEST_F(LoadVariablesDialogTest, CanBeWalkedByTabFromTheZone)
{
    EXPECT_THAT(tabOrder(launched()), ElementsAre("LoadVariables_Zones_comboBox", "LoadVariables_Variables_listView",
                                                  "[&Load]", "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &zoneBox());
}

TEST_F(LoadVariablesDialogTest, ListsWhatIsNotLoadedInTheZone)
{
    loadBehindTheDialog(1, {2});
    launched();
    EXPECT_THAT(zonesOffered(), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    EXPECT_THAT(rows(), ElementsAre("1: X", "3: P", "4: T"));
    sample.session().perform(kernel::EnableVariable(sample.dataSet(), 3, false));
    EXPECT_THAT(rows(), ElementsAre("1: X", "4: T"));
}

TEST_F(LoadVariablesDialogTest, ListsAnotherZoneWhenItIsChosenByKeyboard)
{
    loadBehindTheDialog(2, {1, 4});
    launched();
    zoneBox().setFocus();
    QTest::keyClick(&zoneBox(), Qt::Key_Down);
    EXPECT_THAT(rows(), ElementsAre("2: Y", "3: P"));
    EXPECT_EQ(zoneBox().currentText(), QStringLiteral("2: Body"));
}

TEST_F(LoadVariablesDialogTest, OffersTheLoadWhileSomethingIsSelected)
{
    launched();
    EXPECT_FALSE(actionButton().isEnabled());
    clickRow(1);
    IdleDispatcher::flush();
    EXPECT_TRUE(actionButton().isEnabled());
    clickRow(1, Qt::ControlModifier);
    IdleDispatcher::flush();
    EXPECT_FALSE(actionButton().isEnabled());
}

TEST_F(LoadVariablesDialogTest, LoadsWhatIsSelectedAndTakesItFromTheListAtOnce)
{
    launched();
    clickRow(1);
    clickRow(2, Qt::ShiftModifier);
    EXPECT_THAT(rows(), ElementsAre("1: X", "*2: Y", "*3: P", "4: T"));
    clickAction();
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_TRUE(isLoaded(1, 2) && isLoaded(1, 3));
    EXPECT_FALSE(isLoaded(1, 1) || isLoaded(1, 4) || isLoaded(2, 2));
    EXPECT_THAT(rows(), ElementsAre("1: X", "4: T"));
    EXPECT_FALSE(actionButton().isEnabled());
    EXPECT_TRUE(dialog().isVisible());
}

TEST_F(LoadVariablesDialogTest, KeepsWhatIsLoadedInTheZone)
{
    loadBehindTheDialog(1, {4});
    launched();
    clickRow(0);
    rows();
    clickAction();
    EXPECT_TRUE(isLoaded(1, 1) && isLoaded(1, 4));
    EXPECT_THAT(rows(), ElementsAre("2: Y", "3: P"));
}

TEST_F(LoadVariablesDialogTest, CanBeUsedByKeyboardAlone)
{
    launched();
    QTest::keyClick(dialog().focusWidget(), Qt::Key_V, Qt::AltModifier);
    EXPECT_EQ(dialog().focusWidget(), &list());
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "3: P", "*4: T"));
    QTest::keyClick(&list(), Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isLoaded(1, 4); }));
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Z, Qt::AltModifier);
    EXPECT_EQ(dialog().focusWidget(), &zoneBox());
    QTest::keyClick(&zoneBox(), Qt::Key_Escape);
    EXPECT_FALSE(dialog().isVisible());
}

TEST_F(LoadVariablesDialogTest, KeepsTheZoneItWasMadeFor)
{
    launched();
    EXPECT_EQ(&dialogs::data::LoadVariablesDialog::getInstance(*mainWindow, 3), &dialog());
    IdleDispatcher::flush();
    EXPECT_EQ(zoneBox().currentText(), QStringLiteral("1: Wing"));
}

TEST_F(LoadVariablesDialogTest, BeginsWithTheZoneItIsMadeFor)
{
    dialogs::data::LoadVariablesDialog::getInstance(*mainWindow, 3);
    launched();
    EXPECT_EQ(zoneBox().currentText(), QStringLiteral("3: Tail"));
}

TEST_F(LoadVariablesDialogTest, FollowsLoadsAndNamesOfOthers)
{
    launched();
    loadBehindTheDialog(1, {1, 2});
    EXPECT_THAT(rows(), ElementsAre("3: P", "4: T"));
    sample.session().perform(kernel::RenameVariable(sample.dataSet(), 4, "Temperature"));
    EXPECT_THAT(rows(), ElementsAre("3: P", "4: Temperature"));
}

TEST_F(LoadVariablesDialogTest, ReadsItsListAgainWhenWhatIsDrawnChanges)
{
    launched();
    for (char const* const name : {"ActiveFieldMaps", "ActiveFieldZones", "ActiveXYMaps", "ActiveLineMaps", "TwoDAxis",
                                   "ThreeDAxis", "Frame", "LineMap", "PlotType"}) {
        SCOPED_TRACE(name);
        // A load that nobody tells of.
        kernel::Field& field = sample.dataSet().zone(1)->fields[0];
        kernel::Field const deferred = field;
        field = kernel::Field(std::make_shared<kernel::ShareGroup>(kernel::Buffer::allocate(FieldDataType_Float, 6)),
                              ValueLocation_Nodal);
        EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
        FakeStateChange(StateChange_Style, {"Interface", name}).send();
        EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
        FakeStateChange(StateChange_Style, {name, "Show"}).send();
        EXPECT_THAT(rows(), ElementsAre("2: Y", "3: P", "4: T"));
        field = deferred;
        FakeStateChange(StateChange_Style, {name}).send();
        EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
    }
}

TEST_F(LoadVariablesDialogTest, MovesToTheFirstZoneWhenItsOwnIsDisabled)
{
    dialogs::data::LoadVariablesDialog::getInstance(*mainWindow, 2);
    launched();
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, false));
    EXPECT_THAT(zonesOffered(), ElementsAre("1: Wing", "3: Tail"));
    EXPECT_EQ(zoneBox().currentText(), QStringLiteral("1: Wing"));
}

} // namespace
} // namespace veldraw::tests
