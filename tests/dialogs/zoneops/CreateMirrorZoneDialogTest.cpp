#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/zoneops/CreateMirrorZoneFixture.h"

#include <gmock/gmock.h>
#include <utility>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string const created = "information: Mirror zone creation successful.";

// The choices as they are before any test has touched them.
class ChoicesAtLoad : public testing::Environment
{
public:
    void SetUp() override
    {
        choices = {CreateMirrorZonePropertiesManager::mirrorVar2D()->value(),
                   CreateMirrorZonePropertiesManager::mirrorVar3D()->value()};
    }
    static inline std::pair<char, char> choices;
};
testing::Environment* const choicesAtLoad = testing::AddGlobalTestEnvironment(new ChoicesAtLoad);

class CreateMirrorZoneDialogTest : public CreateMirrorZoneFixture
{
};

TEST_F(CreateMirrorZoneDialogTest, BeginsWithTheXAxisAndTheXYPlane)
{
    ASSERT_TRUE(choicesAtLoad);
    EXPECT_EQ(ChoicesAtLoad::choices, std::make_pair('Y', 'Z'));
    launched();
    EXPECT_THAT(visibleChoices(), ElementsAre("*3DXY", "3DXZ", "3DYZ"));
    showAs(PlotType_Cartesian2D);
    EXPECT_THAT(visibleChoices(), ElementsAre("*2DX", "2DY"));
}

TEST_F(CreateMirrorZoneDialogTest, ShowsTheChoicesThatSuitThePlotType)
{
    launched();
    for (PlotType_e const other : {PlotType_XYLine, PlotType_PolarLine, PlotType_Sketch}) {
        showAs(other);
        EXPECT_THAT(visibleChoices(), IsEmpty()) << other;
        showAs(PlotType_Cartesian2D);
        EXPECT_EQ(visibleChoices().size(), 2u) << other;
        showAs(PlotType_Cartesian3D);
        EXPECT_EQ(visibleChoices().size(), 3u) << other;
    }
}

TEST_F(CreateMirrorZoneDialogTest, FollowsThePlotTypeAtIdle)
{
    launched();
    sample.session().perform(kernel::SetPlotType(sample.frame()->id, PlotType_Cartesian2D));
    EXPECT_TRUE(choice("3DXY").isVisible()) << "not in the middle of the change";
    EXPECT_THAT(visibleChoices(), ElementsAre("*2DX", "2DY"));
}

TEST_F(CreateMirrorZoneDialogTest, FollowsTheActiveFrame)
{
    launched();
    auto const flat = sample.session().createFrame("Flat", kernel::Rectangle{1.0, 1.0, 8.0, 6.0});
    sample.session().setFrameDataSet(flat->id, sample.frame()->dataSet);
    sample.session().perform(kernel::SetPlotType(flat->id, PlotType_Cartesian2D));
    EXPECT_THAT(visibleChoices(), ElementsAre("*2DX", "2DY"));
    sample.session().activateFrame(sample.frame()->id);
    EXPECT_THAT(visibleChoices(), ElementsAre("*3DXY", "3DXZ", "3DYZ"));
}

TEST_F(CreateMirrorZoneDialogTest, WritesTheCoordinateThatChangesItsSign)
{
    launched();
    auto const in3D = CreateMirrorZonePropertiesManager::mirrorVar3D();
    clickChoice("3DYZ");
    EXPECT_EQ(in3D->value(), 'X');
    clickChoice("3DXZ");
    EXPECT_EQ(in3D->value(), 'Y');
    EXPECT_THAT(visibleChoices(), ElementsAre("3DXY", "*3DXZ", "3DYZ"));
    clickChoice("3DXY");
    EXPECT_EQ(in3D->value(), 'Z');
    showAs(PlotType_Cartesian2D);
    auto const in2D = CreateMirrorZonePropertiesManager::mirrorVar2D();
    clickChoice("2DY");
    EXPECT_EQ(in2D->value(), 'X');
    clickChoice("2DX");
    EXPECT_EQ(in2D->value(), 'Y');
    EXPECT_EQ(in3D->value(), 'Z');
}

TEST_F(CreateMirrorZoneDialogTest, KeepsTheChoiceOfOnePlotTypeWhileTheOtherIsShown)
{
    showAs(PlotType_Cartesian2D);
    launched();
    clickChoice("2DY");
    showAs(PlotType_Cartesian3D);
    clickChoice("3DXZ");
    showAs(PlotType_Cartesian2D);
    EXPECT_THAT(visibleChoices(), ElementsAre("2DX", "*2DY"));
    showAs(PlotType_Cartesian3D);
    EXPECT_THAT(visibleChoices(), ElementsAre("3DXY", "*3DXZ", "3DYZ"));
}

TEST_F(CreateMirrorZoneDialogTest, ShowsTheLastChoiceWhenItIsMadeAnew)
{
    launched();
    clickChoice("3DYZ");
    clickRow(1);
    delete &dialog();
    launched();
    EXPECT_THAT(visibleChoices(), ElementsAre("3DXY", "3DXZ", "*3DYZ"));
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "2: Body", "3: Tail")) << "the selection was the dialog's own";
}

TEST_F(CreateMirrorZoneDialogTest, FollowsAChoiceThatIsMadeElsewhere)
{
    launched();
    CreateMirrorZonePropertiesManager::mirrorVar3D()->setValue('X');
    EXPECT_THAT(visibleChoices(), ElementsAre("3DXY", "3DXZ", "*3DYZ"));
}

TEST_F(CreateMirrorZoneDialogTest, ListsTheEnabledZonesAndLetsSeveralBeSelected)
{
    launched();
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::ExtendedSelection);
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "2: Body", "*3: Tail"));
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, false));
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "*3: Tail"));
}

TEST_F(CreateMirrorZoneDialogTest, MirrorsInSpaceAndKeepsTheSelection)
{
    launched();
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(created));
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "2: Body", "*3: Tail", "4: Wing", "5: Tail"));
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_THAT(negated(1, 4), ElementsAre("Z", "W"));
    EXPECT_THAT(negated(3, 5), ElementsAre("Z", "W"));
    EXPECT_EQ(sample.dataSet().field(4, 7)->group(), sample.dataSet().field(1, 7)->group()) << "P is shared";
    clickChoice("3DXZ");
    clickAction();
    EXPECT_THAT(negated(1, 6), ElementsAre("Y", "V"));
    clickChoice("3DYZ");
    clickAction();
    EXPECT_THAT(negated(1, 8), ElementsAre("X", "U"));
}

TEST_F(CreateMirrorZoneDialogTest, MirrorsInThePlane)
{
    showAs(PlotType_Cartesian2D);
    launched();
    clickRow(1);
    clickAction();
    EXPECT_THAT(negated(2, 4), ElementsAre("Y", "V"));
    clickChoice("2DY");
    clickAction();
    EXPECT_THAT(negated(2, 5), ElementsAre("X", "U"));
}

TEST_F(CreateMirrorZoneDialogTest, SaysSoWhenNothingIsSelected)
{
    std::string const stepBefore = sample.session().history().undoName();
    launched();
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: No source zones were specified"));
    EXPECT_EQ(zoneNames().size(), 3u);
    EXPECT_EQ(sample.session().history().undoName(), stepBefore);
}

TEST_F(CreateMirrorZoneDialogTest, CanBeUsedByKeyboardAlone)
{
    launched();
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Down);
    EXPECT_THAT(visibleChoices(), ElementsAre("3DXY", "*3DXZ", "3DYZ"));
    QTest::keyClick(dialog().focusWidget(), Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(dialog().focusWidget(), &list());
    QTest::keyClick(&list(), Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "*3: Tail"));
    QTest::keyClick(&list(), Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return zoneNames().size() == 5; }));
    EXPECT_THAT(messages.take(), ElementsAre(created));
    EXPECT_THAT(negated(3, 5), ElementsAre("Y", "V"));
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_FALSE(dialog().isVisible());
}

TEST_F(CreateMirrorZoneDialogTest, IsNotDrivenByReturnOnAChoice)
{
    launched();
    clickRow(2);
    choice("3DXY").setFocus();
    QTest::keyClick(&choice("3DXY"), Qt::Key_Return);
    QTest::keyClick(&choice("3DXY"), Qt::Key_Enter);
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(zoneNames().size(), 3u);
}

TEST_F(CreateMirrorZoneDialogTest, FollowsUndoAndRedo)
{
    launched();
    clickRow(1);
    clickAction();
    EXPECT_EQ(sample.session().history().undoName(), "Create Mirror Zone");
    sample.session().undo();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "3: Tail"));
    sample.session().redo();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "3: Tail", "4: Body"));
    EXPECT_THAT(negated(2, 4), ElementsAre("Z", "W"));
}

TEST_F(CreateMirrorZoneDialogTest, CannotBeUsedOutsideFieldPlots)
{
    launched();
    showAs(PlotType_XYLine);
    EXPECT_FALSE(list().isEnabled());
    EXPECT_FALSE(actionButton().isEnabled());
    EXPECT_TRUE(buttonBox().button(QDialogButtonBox::Close)->isEnabled());
    showAs(PlotType_Cartesian2D);
    EXPECT_TRUE(list().isEnabled());
    EXPECT_TRUE(choice("2DX").isEnabled());
    EXPECT_TRUE(actionButton().isEnabled());
}

} // namespace
} // namespace veldraw::tests
