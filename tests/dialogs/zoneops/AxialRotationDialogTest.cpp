#include "dialogs/widgets/QScientificSpinBox.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"
#include "tests/dialogs/zoneops/AxialFixture.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QPushButton>

#include <gmock/gmock.h>

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(AxialRotation, DialogLifecycleTest, testing::Values(axialRotation()));
INSTANTIATE_TEST_SUITE_P(AxialRotation, DialogActionLifecycleTest, testing::Values(axialRotation()));

namespace {

using testing::ElementsAre;
using ui::QScientificSpinBox;

std::vector<std::string> const axisControls{"xAxisButton", "yAxisButton", "zAxisButton", "zOrgLabel", "zOrgBox"};

class AxialRotationDialogTest : public AxialRotationFixture
{
protected:
    static PropertyAbstract<double>& angle() { return *AxialRotationPropertiesManager::rotationAngle(); }
    static int axis() { return AxialRotationPropertiesManager::rotationAxis()->value(); }
    static double origin(int dimension)
    {
        return AxialRotationPropertiesManager::rotationOrigin().at(dimension)->value();
    }
};

TEST_F(AxialRotationDialogTest, LooksAsItsFormSays)
{
    EXPECT_THAT(
        formTable(launched()),
        ElementsAre("AxialRotationDialog | veldraw::dialogs::common::QtDialogAbstract | Axial Rotation |  | ",
                    "OriginLabel_2 | QLabel | &Zones to rotate |  | zoneList", "zoneList | QListView |  |  | ",
                    "selectByStrand | QCheckBox | Select &by time strand | Group and list zone(s) by strand ID | ",
                    "xOrgLabel | QLabel | Origin |  | xOrgBox", "xOrgLabel_2 | QLabel | &X: |  | xOrgBox",
                    "xOrgBox | veldraw::ui::QScientificSpinBox | 0 |  | ", "yOrgLabel | QLabel | &Y: |  | yOrgBox",
                    "yOrgBox | veldraw::ui::QScientificSpinBox | 0 |  | ", "zOrgLabel | QLabel | &Z: |  | zOrgBox",
                    "zOrgBox | veldraw::ui::QScientificSpinBox | 0 |  | ",
                    "axisLabel | QLabel | Ax&is |  | xAxisButton", "xAxisButton | QRadioButton | X-Axis |  | ",
                    "yAxisButton | QRadioButton | Y-Axis |  | ", "zAxisButton | QRadioButton | Z-Axis |  | ",
                    "angelBeginLabel | QLabel | Rotation &angle: | The angle to rotate zone(s) by. | angle_spinBox",
                    "angle_spinBox | veldraw::ui::QScientificSpinBox | 360 | The angle to rotate zone(s) by. | ",
                    "angleUnits_comboBox | QComboBox |  |  | ", "buttonBox | QDialogButtonBox |  |  | ",
                    " | QPushButton | Close |  | ", " | QPushButton | &Rotate |  | ", " | QPushButton | Help |  | "));
    EXPECT_EQ(dialog().size(), QSize(423, 543));
    EXPECT_TRUE(dialog().isSizeGripEnabled());
    EXPECT_FALSE(dialog().isModal());
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
    EXPECT_EQ(buttonBox().orientation(), Qt::Horizontal);
}

TEST_F(AxialRotationDialogTest, SetsUpItsControls)
{
    launched();
    for (char const* const name : {"xOrgBox", "yOrgBox", "zOrgBox"})
        EXPECT_EQ(child<QScientificSpinBox>(name).decimals(), 6) << name;
    EXPECT_EQ(child<QScientificSpinBox>("angle_spinBox").decimals(), 8);
    EXPECT_FALSE(child<QScientificSpinBox>("angle_spinBox").keyboardTracking());
    auto const* const group = dialog().findChild<QButtonGroup*>(QStringLiteral("axisGroup"));
    ASSERT_TRUE(group);
    EXPECT_THAT(group->buttons(),
                ElementsAre(&child<QAbstractButton>("xAxisButton"), &child<QAbstractButton>("yAxisButton"),
                            &child<QAbstractButton>("zAxisButton")));
    QComboBox const& units = child<QComboBox>("angleUnits_comboBox");
    ASSERT_EQ(units.count(), 2);
    EXPECT_EQ(units.itemText(0), QStringLiteral("Degrees"));
    EXPECT_EQ(units.itemText(1), QStringLiteral("Radians"));
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::ExtendedSelection);
}

TEST_F(AxialRotationDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Axial Rotation>"));
    EXPECT_THAT(translator.asked,
                testing::IsSupersetOf({"AxialRotationDialog: Axial Rotation", "AxialRotationDialog: &Zones to rotate",
                                       "AxialRotationDialog: Z-Axis", "AxialRotationDialog: Rotation &angle:",
                                       "AxialRotationDialog: The angle to rotate zone(s) by."}));
    EXPECT_EQ(actionButton().text(), QStringLiteral("&Rotate"));
}

TEST_F(AxialRotationDialogTest, CanBeWalkedByTab)
{
    EXPECT_THAT(tabOrder(launched()), ElementsAre("zoneList", "angle_spinBox", "angleUnits_comboBox", "xAxisButton",
                                                  "yAxisButton", "zAxisButton", "xOrgBox", "yOrgBox", "zOrgBox",
                                                  "selectByStrand", "[&Rotate]", "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &list());
}

TEST_F(AxialRotationDialogTest, StartsWithTheDefaultsAndNoSelection)
{
    EXPECT_THAT((launched(), rows()), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    EXPECT_EQ(shown("angle_spinBox"), "360");
    EXPECT_TRUE(isChecked("zAxisButton"));
    EXPECT_FALSE(isChecked("xAxisButton") || isChecked("yAxisButton") || isChecked("selectByStrand"));
    EXPECT_EQ(child<QComboBox>("angleUnits_comboBox").currentIndex(), 0);
}

TEST_F(AxialRotationDialogTest, ShowsThePickedZonesSelected)
{
    pick({zonePick(1), zonePick(3)});
    launched();
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "2: Body", "*3: Tail"));
}

TEST_F(AxialRotationDialogTest, TakesTheAxisByTheMouse)
{
    launched();
    clickMark("xAxisButton");
    EXPECT_EQ(axis(), 0);
    clickMark("yAxisButton");
    EXPECT_EQ(axis(), 1);
    EXPECT_TRUE(isChecked("yAxisButton"));
    EXPECT_FALSE(isChecked("xAxisButton") || isChecked("zAxisButton"));
    clickMark("zAxisButton");
    EXPECT_EQ(axis(), 2);
}

TEST_F(AxialRotationDialogTest, TakesTheAxisByTheKeyboard)
{
    launched();
    QTest::keyClick(&list(), Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return axis() == 0; }));
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Down);
    EXPECT_EQ(axis(), 1);
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Down);
    EXPECT_EQ(axis(), 2);
}

TEST_F(AxialRotationDialogTest, TakesTheOriginWithAllItsDigits)
{
    launched();
    enter("xOrgBox", "0.123456789");
    enter("yOrgBox", "-2");
    enter("zOrgBox", "1e-9");
    EXPECT_EQ(origin(0), 0.123456789);
    EXPECT_EQ(origin(1), -2.0);
    EXPECT_EQ(origin(2), 1e-9);
    EXPECT_EQ(shown("xOrgBox"), "0.123457");
}

TEST_F(AxialRotationDialogTest, StepsAngleAndOriginByTheirArrows)
{
    launched();
    box("angle_spinBox").clickUp();
    EXPECT_EQ(angle().value(), 361.0);
    box("angle_spinBox").press(Qt::Key_Down);
    EXPECT_EQ(angle().value(), 360.0);
    box("xOrgBox").clickDown();
    EXPECT_EQ(origin(0), -1.0);
    chooseRadians("angleUnits_comboBox");
    enter("angle_spinBox", "0.5");
    box("angle_spinBox").clickUp();
    IdleDispatcher::flush();
    EXPECT_EQ(shown("angle_spinBox"), "0.51");
}

TEST_F(AxialRotationDialogTest, ShowsTheAngleInTheChosenUnitWithoutChangingIt)
{
    launched();
    enter("angle_spinBox", "90.123456789012");
    EXPECT_EQ(angle().value(), 90.123456789012);
    chooseRadians("angleUnits_comboBox");
    EXPECT_EQ(shown("angle_spinBox"), "1.57295105");
    EXPECT_EQ(angle().value(), 90.123456789012);
    chooseDegrees("angleUnits_comboBox");
    EXPECT_EQ(shown("angle_spinBox"), "90.12345679");
    EXPECT_EQ(angle().value(), 90.123456789012);
}

TEST_F(AxialRotationDialogTest, ListsStrandsInsteadOfZones)
{
    makeStrand();
    launched();
    clickMark("selectByStrand");
    EXPECT_THAT(rows(), ElementsAre("1: Wing (strand 1)", "2: Body"));
    clickRow(0);
    EXPECT_THAT(rows(), ElementsAre("*1: Wing (strand 1)", "2: Body"));
    clickMark("selectByStrand");
    EXPECT_EQ(rows().size(), 3u);
}

TEST_F(AxialRotationDialogTest, OffersTheAxisInThreeDimensionsOnly)
{
    launched();
    for (std::string const& name : axisControls)
        EXPECT_TRUE(isEnabled(name.c_str())) << name;
    clickMark("xAxisButton");
    showAs(PlotType_Cartesian2D);
    for (std::string const& name : axisControls)
        EXPECT_FALSE(isEnabled(name.c_str())) << name;
    EXPECT_TRUE(isEnabled("xOrgBox") && isEnabled("yOrgBox") && isEnabled("angle_spinBox"));
    EXPECT_TRUE(isChecked("zAxisButton"));
    showAs(PlotType_Cartesian3D);
    for (std::string const& name : axisControls)
        EXPECT_TRUE(isEnabled(name.c_str())) << name;
    EXPECT_TRUE(isChecked("zAxisButton"));
}

TEST_F(AxialRotationDialogTest, OpensInTheRightStateInThePlane)
{
    AxialRotationPropertiesManager::rotationAxis()->setValue(AxialRotationPropertiesManager::xRotationAxis);
    showAs(PlotType_Cartesian2D);
    dialog().launch();
    EXPECT_TRUE(child<QAbstractButton>("zAxisButton").isChecked());
    for (std::string const& name : axisControls)
        EXPECT_FALSE(child<QWidget>(name.c_str()).isEnabled()) << name;
}

TEST_F(AxialRotationDialogTest, CanBeUsedInFieldPlotsOnly)
{
    auto const rule = traits.relevance();
    launched();
    for (PlotType_e const plotType : {PlotType_XYLine, PlotType_PolarLine, PlotType_Sketch}) {
        showAs(plotType);
        EXPECT_FALSE(rule->isRelevant());
        EXPECT_FALSE(actionButton().isEnabled());
        EXPECT_FALSE(list().isEnabled());
    }
    showAs(PlotType_Cartesian2D);
    EXPECT_TRUE(rule->isRelevant());
    EXPECT_TRUE(actionButton().isEnabled());
}

TEST_F(AxialRotationDialogTest, RemembersItsSettingsButNotItsSelectionInItsNextLife)
{
    launched();
    clickRow(1);
    clickMark("yAxisButton");
    enter("xOrgBox", "2.5");
    chooseRadians("angleUnits_comboBox");
    enter("angle_spinBox", "1");
    delete &dialog();
    launched();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    EXPECT_TRUE(isChecked("yAxisButton"));
    EXPECT_EQ(shown("xOrgBox"), "2.5");
    EXPECT_EQ(shown("angle_spinBox"), "1");
    EXPECT_EQ(child<QComboBox>("angleUnits_comboBox").currentText(), QStringLiteral("Radians"));
}

TEST_F(AxialRotationDialogTest, IgnoresTheWheelOverAControlWithoutFocus)
{
    launched();
    list().setFocus();
    for (char const* const name : {"angle_spinBox", "xOrgBox"})
        box(name).turnWheel(3);
    EXPECT_EQ(angle().value(), 360.0);
    EXPECT_EQ(origin(0), 0.0);
}

TEST_F(AxialRotationDialogTest, TellsRefusalsInAMessageWithItsTitleFirst)
{
    launched();
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Axial Rotation requires selection of one or more zones."));
    clickMark("selectByStrand");
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Axial Rotation requires selection of one or more strands."));
    clickRow(0);
    assign("XYZUVW", {1, 1, 3, 4, 4, 0});
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Axial Rotation requires that the spatial variables are unique."));
    assign("XYZ", {1, 2, 3});
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Axial Rotation requires that the vector variables are unique."));
    assign("UV", {3, 5});
    clickAction();
    EXPECT_THAT(messages.take(),
                ElementsAre("error: Axial Rotation requires that the vector and spatial variables are unique."));
    assign("U", {4});
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Axial Rotation requires that if Z is given then W must be also."));
    assign("ZW", {0, 6});
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Axial Rotation requires that if W is given then Z must be also."));
    EXPECT_TRUE(dialog().isVisible());
}

TEST_F(AxialRotationDialogTest, TellsAScreenReaderWhatListAndUnitAreFor)
{
    launched();
    EXPECT_EQ(list().accessibleName(), QStringLiteral("Zones to rotate"));
    EXPECT_EQ(child<QComboBox>("angleUnits_comboBox").accessibleName(), QStringLiteral("Unit of the angle"));
}

} // namespace
} // namespace veldraw::tests
