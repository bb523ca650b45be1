#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"
#include "tests/dialogs/zoneops/CreateMirrorZoneFixture.h"

#include <QGridLayout>
#include <QLabel>
#include <QStackedLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;

class CreateMirrorZoneFormTest : public CreateMirrorZoneFixture
{
protected:
    /// Row, column, row span, column span of a widget in the grid.
    std::vector<int> placeOf(char const* objectName)
    {
        auto* const grid = qobject_cast<QGridLayout*>(dialog().layout());
        std::vector<int> place(4);
        grid->getItemPosition(grid->indexOf(&child<QWidget>(objectName)), &place[0], &place[1], &place[2], &place[3]);
        return place;
    }

    /// Alt with a letter turns a choice on; the button stays down for a moment before it acts.
    void expectChoiceByKey(Qt::Key key, std::string const& name)
    {
        QTest::keyClick(&list(), key, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return choice(name).isChecked(); }, 2000)) << name;
        EXPECT_THAT(visibleChoices(), testing::Contains("*" + name));
    }

    void expectColumnOfChoices(std::string const& name, char const* layoutName, int choices)
    {
        auto const* const frame = qobject_cast<QFrame*>(&page(name));
        EXPECT_EQ(frame->frameShape(), QFrame::NoFrame);
        auto* const column = qobject_cast<QVBoxLayout*>(frame->layout());
        ASSERT_TRUE(column);
        EXPECT_EQ(column->objectName(), QLatin1String(layoutName));
        EXPECT_EQ(column->spacing(), 8);
        QMargins const margins = column->contentsMargins();
        EXPECT_EQ(margins.left(), frame->style()->pixelMetric(QStyle::PM_LayoutLeftMargin));
        EXPECT_EQ(QMargins(0, margins.top(), margins.right(), margins.bottom()), QMargins());
        ASSERT_EQ(column->count(), choices + 1);
        QSpacerItem* const spacer = column->itemAt(choices)->spacerItem();
        ASSERT_TRUE(spacer);
        EXPECT_EQ(spacer->sizeHint(), QSize(20, 40));
        EXPECT_EQ(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    }
};

TEST_F(CreateMirrorZoneFormTest, LooksAsItsFormSays)
{
    EXPECT_THAT(formTable(launched()),
                ElementsAre("CreateMirrorZone | veldraw::dialogs::common::QtDialogAbstract | Create Mirror Zone |  | ",
                            "label | QLabel | Mirror axis |  | ",
                            "createMirrorZone_SourceZone_Static | QLabel | &Source zone(s) |  | "
                            "createMirrorZone_Source_MList",
                            "createMirrorZone_Axis_Marker | QStackedWidget |  |  | ",
                            // The page of planes lies on top and so comes last of the two.
                            "createMirrorZone_Axis2DObj_Outline | QFrame |  |  | ",
                            "createMirrorZone_Axis2DX_RadioButton | QRadioButton | &X axis |  | ",
                            "createMirrorZone_Axis2DY_RadioButton | QRadioButton | &Y axis |  | ",
                            "createMirrorZone_Axis3DObj_Outline | QFrame |  |  | ",
                            "createMirrorZone_Axis3DXY_RadioButton | QRadioButton | &XY plane |  | ",
                            "createMirrorZone_Axis3DXZ_RadioButton | QRadioButton | X&Z plane |  | ",
                            "createMirrorZone_Axis3DYZ_RadioButton | QRadioButton | &YZ plane |  | ",
                            "createMirrorZone_Source_MList | QListView |  |  | ",
                            "buttonBox | QDialogButtonBox |  |  | ", " | QPushButton | Close |  | ",
                            " | QPushButton | C&reate |  | ", " | QPushButton | Help |  | "));
    EXPECT_EQ(dialog().size(), QSize(353, 258));
    EXPECT_FALSE(dialog().isModal());
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
    EXPECT_EQ(list().accessibleName(), QStringLiteral("Source zone(s)"));
}

TEST_F(CreateMirrorZoneFormTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Create Mirror Zone>"));
    EXPECT_THAT(translator.asked,
                testing::IsSupersetOf({"CreateMirrorZone: Create Mirror Zone", "CreateMirrorZone: Mirror axis",
                                       "CreateMirrorZone: &Source zone(s)", "CreateMirrorZone: &XY plane",
                                       "CreateMirrorZone: X&Z plane", "CreateMirrorZone: &YZ plane",
                                       "CreateMirrorZone: &X axis", "CreateMirrorZone: &Y axis"}));
    EXPECT_EQ(actionButton().text(), QStringLiteral("C&reate"));
}

TEST_F(CreateMirrorZoneFormTest, LaysItsWidgetsOutInAGrid)
{
    auto const* const grid = qobject_cast<QGridLayout*>(dialog().layout());
    ASSERT_TRUE(grid);
    EXPECT_EQ(grid->objectName(), QStringLiteral("gridLayout"));
    EXPECT_EQ(grid->columnStretch(2), 1);
    EXPECT_THAT(placeOf("label"), ElementsAre(0, 0, 1, 1));
    EXPECT_THAT(placeOf("createMirrorZone_SourceZone_Static"), ElementsAre(0, 1, 1, 1));
    EXPECT_THAT(placeOf("createMirrorZone_Axis_Marker"), ElementsAre(1, 0, 1, 1));
    EXPECT_THAT(placeOf("createMirrorZone_Source_MList"), ElementsAre(1, 1, 1, 2));
    EXPECT_THAT(placeOf("buttonBox"), ElementsAre(2, 0, 1, 3));
    expectColumnOfChoices("3D", "verticalLayout_2", 3);
    expectColumnOfChoices("2D", "verticalLayout", 2);
}

TEST_F(CreateMirrorZoneFormTest, HasThePageOfPlanesFirstAndTurnsNoPages)
{
    auto const& pages = child<QStackedWidget>("createMirrorZone_Axis_Marker");
    EXPECT_EQ(pages.count(), 2);
    EXPECT_EQ(pages.widget(0), &page("3D"));
    EXPECT_EQ(pages.currentIndex(), 0);
    launched();
    showAs(PlotType_Cartesian2D);
    EXPECT_EQ(pages.currentIndex(), 0);
}

TEST_F(CreateMirrorZoneFormTest, ShowsOnePageAlreadyWhenItIsMade)
{
    EXPECT_TRUE(page("2D").isHidden());
    EXPECT_FALSE(page("3D").isHidden());
    delete &dialog();
    showAs(PlotType_Cartesian2D);
    EXPECT_FALSE(page("2D").isHidden());
    EXPECT_TRUE(page("3D").isHidden());
}

TEST_F(CreateMirrorZoneFormTest, GivesBothPagesTheirFullPlace)
{
    launched();
    QRect const place = child<QStackedWidget>("createMirrorZone_Axis_Marker").rect();
    EXPECT_EQ(page("3D").geometry(), place);
    showAs(PlotType_Cartesian2D);
    EXPECT_EQ(page("2D").geometry(), place);
    EXPECT_GE(page("2D").width(), page("2D").sizeHint().width()) << "nothing is cut off";
    EXPECT_TRUE(page("2D").visibleRegion().contains(choice("2DY").geometry().center()));
}

TEST_F(CreateMirrorZoneFormTest, CanBeWalkedByTabInReadingOrder)
{
    EXPECT_THAT(tabOrder(dialog()),
                ElementsAre("createMirrorZone_Axis3DXY_RadioButton", "createMirrorZone_Axis3DXZ_RadioButton",
                            "createMirrorZone_Axis3DYZ_RadioButton", "createMirrorZone_Axis2DX_RadioButton",
                            "createMirrorZone_Axis2DY_RadioButton", "createMirrorZone_Source_MList", "[C&reate]",
                            "[Close]", "[Help]"));
    launched();
    EXPECT_EQ(dialog().focusWidget(), &choice("3DXY"));
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(dialog().focusWidget(), &list()) << "a group is one stop, and what is hidden is passed over";
}

TEST_F(CreateMirrorZoneFormTest, LeadsAMnemonicToThePageThatIsSeen)
{
    launched();
    expectChoiceByKey(Qt::Key_Y, "3DYZ");
    expectChoiceByKey(Qt::Key_X, "3DXY");
    expectChoiceByKey(Qt::Key_Z, "3DXZ");
    showAs(PlotType_Cartesian2D);
    expectChoiceByKey(Qt::Key_Y, "2DY");
    expectChoiceByKey(Qt::Key_X, "2DX");
}

} // namespace
} // namespace veldraw::tests
