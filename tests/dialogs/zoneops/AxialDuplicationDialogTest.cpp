#include "dialogs/widgets/IntegralSpinBox.h"
#include "dialogs/widgets/QScientificSpinBox.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"
#include "tests/dialogs/zoneops/AxialFixture.h"

#include <QApplication>
#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(AxialDuplication, DialogLifecycleTest, testing::Values(axialDuplication()));
INSTANTIATE_TEST_SUITE_P(AxialDuplication, DialogActionLifecycleTest, testing::Values(axialDuplication()));

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using ui::IntegralSpinBox;
using ui::QScientificSpinBox;

class AxialDuplicationDialogTest : public AxialDuplicationFixture
{
protected:
    static PropertyAbstract<double>& angle() { return *AxialRotationPropertiesManager::rotationAngle(); }
};

TEST_F(AxialDuplicationDialogTest, LooksAsItsFormSays)
{
    std::vector<std::string> const zonesAndAxis{
        "AxialDuplicationDialog | veldraw::dialogs::common::QtDialogAbstract | Axial Duplication |  | ",
        "zonesToDuplicateLabel | QLabel | &Zones to duplicate |  | zoneList",
        "zoneList | QListView |  |  | ",
        "selectByStrand | QCheckBox | Select &by time strand | Group and list zone(s) by strand ID | ",
        "addZonesToExistingStrands_checkBox | QCheckBox | Add zones to existing &strands |  | ",
        "xOrgLabel | QLabel | Origi&n |  | xOrgBox",
        "xOrgLabel_2 | QLabel | &X: |  | xOrgBox",
        "xOrgBox | veldraw::ui::QScientificSpinBox | 0 |  | ",
        "yOrgLabel | QLabel | &Y: |  | yOrgBox",
        "yOrgBox | veldraw::ui::QScientificSpinBox | 0 |  | ",
        "zOrgLabel | QLabel | &Z: |  | zOrgBox",
        "zOrgBox | veldraw::ui::QScientificSpinBox | 0 |  | ",
        "axisLabel | QLabel | Ax&is |  | xAxisButton",
        "xAxisButton | QRadioButton | X-Axis |  | ",
        "yAxisButton | QRadioButton | Y-Axis |  | ",
        "zAxisButton | QRadioButton | Z-Axis |  | "};
    std::vector<std::string> const instancesAndAngles{
        "OriginLabel_3 | QLabel | Full or partial duplication around axis |  | ",
        "fullRotation_radioButton | QRadioButton | Full &360° | "
        "Duplicate zone(s) evenly around the full 360 degrees of the specified axis. | ",
        "partialRotation_radioButton | QRadioButton | C&reate a total of | "
        "Duplicate zone(s) around part of the specified axis. | ",
        "numOfInstances | veldraw::ui::IntegralSpinBox | 2 | "
        "Number of segments to duplicate around specified axis. | ",
        "instancesLabel | QLabel | ins&tances |  | numOfInstances",
        "angleDeltaLabel | QLabel | Define angle between instances: |  | ",
        "segmentsLabel | QLabel | &Segments: | Number of segments in the 360 degree area. | numberOfSegments",
        "numberOfSegments | veldraw::ui::IntegralSpinBox | 1 | "
        "Number of segments to duplicate in the 360 degree area. | ",
        "approximationLabel | QLabel | ≈ |  | ",
        "threeSixtyLabel | QLabel | 360° |  | ",
        "line | QFrame |  |  | ",
        "angleLabel | QLabel | &Angle: | The angle to duplicate zone(s) by. | angle_spinBox",
        "angle_spinBox | veldraw::ui::QScientificSpinBox | 360 | The angle to duplicate zone(s) by. | ",
        "angleUnits_comboBox | QComboBox |  |  | ",
        "angelBeginLabel | QLabel | O&ffset angle: | Angle to offset first duplicate zone. | offsetAngle",
        "offsetAngle | veldraw::ui::QScientificSpinBox | 0 | Angle to offset first duplicate zone. | ",
        "offsetAngleUnits | QComboBox |  |  | ",
        "buttonBox | QDialogButtonBox |  |  | ",
        " | QPushButton | Close |  | ",
        " | QPushButton | &Duplicate |  | ",
        " | QPushButton | Help |  | "};
    std::vector<std::string> expected = zonesAndAxis;
    expected.insert(expected.end(), instancesAndAngles.begin(), instancesAndAngles.end());
    EXPECT_THAT(formTable(launched()), ElementsAreArray(expected));
}

TEST_F(AxialDuplicationDialogTest, SetsUpItsControls)
{
    launched();
    EXPECT_EQ(dialog().size(), QSize(423, 543));
    EXPECT_TRUE(dialog().isSizeGripEnabled());
    EXPECT_EQ(buttonBox().orientation(), Qt::Horizontal);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
    for (char const* const name : {"angle_spinBox", "offsetAngle"}) {
        EXPECT_EQ(child<QScientificSpinBox>(name).decimals(), 8) << name;
        EXPECT_FALSE(child<QScientificSpinBox>(name).keyboardTracking()) << name;
    }
    for (char const* const name : {"xOrgBox", "yOrgBox", "zOrgBox"})
        EXPECT_EQ(child<QScientificSpinBox>(name).decimals(), 6) << name;
    auto const* const group = dialog().findChild<QButtonGroup*>(QStringLiteral("axisGroup"));
    ASSERT_TRUE(group);
    EXPECT_THAT(group->buttons(),
                ElementsAre(&child<QAbstractButton>("xAxisButton"), &child<QAbstractButton>("yAxisButton"),
                            &child<QAbstractButton>("zAxisButton")));
    EXPECT_EQ(child<IntegralSpinBox>("numOfInstances").minimum(), 2);
    EXPECT_EQ(child<IntegralSpinBox>("numOfInstances").maximum(), 999999999);
    EXPECT_EQ(child<IntegralSpinBox>("numberOfSegments").minimum(), 1);
    EXPECT_EQ(child<IntegralSpinBox>("numberOfSegments").maximum(), 999999999);
    EXPECT_EQ(child<QFrame>("line").styleSheet(), QStringLiteral("Line {color: black;}"));
    EXPECT_EQ(child<QLabel>("threeSixtyLabel").alignment(), Qt::AlignCenter);
    for (char const* const name : {"angleUnits_comboBox", "offsetAngleUnits"}) {
        EXPECT_EQ(child<QComboBox>(name).itemText(0), QStringLiteral("Degrees")) << name;
        EXPECT_EQ(child<QComboBox>(name).itemText(1), QStringLiteral("Radians")) << name;
    }
}

TEST_F(AxialDuplicationDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Axial Duplication>"));
    EXPECT_THAT(translator.asked,
                testing::IsSupersetOf({"AxialDuplicationDialog: Axial Duplication",
                                       "AxialDuplicationDialog: &Zones to duplicate", "AxialDuplicationDialog: X-Axis",
                                       "AxialDuplicationDialog: Full &360°", "AxialDuplicationDialog: ≈",
                                       "AxialDuplicationDialog: Angle to offset first duplicate zone."}));
    EXPECT_EQ(actionButton().text(), QStringLiteral("&Duplicate"));
}

TEST_F(AxialDuplicationDialogTest, CanBeWalkedByTab)
{
    EXPECT_THAT(tabOrder(launched()),
                ElementsAre("zoneList", "numberOfSegments", "angle_spinBox", "angleUnits_comboBox", "offsetAngle",
                            "offsetAngleUnits", "fullRotation_radioButton", "partialRotation_radioButton",
                            "numOfInstances", "xAxisButton", "yAxisButton", "zAxisButton", "xOrgBox", "yOrgBox",
                            "zOrgBox", "selectByStrand", "addZonesToExistingStrands_checkBox", "[&Duplicate]",
                            "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &list());
}

TEST_F(AxialDuplicationDialogTest, StartsWithAPartOfTheCircle)
{
    launched();
    EXPECT_FALSE(isChecked("fullRotation_radioButton"));
    EXPECT_TRUE(isChecked("partialRotation_radioButton"));
    EXPECT_TRUE(isChecked("addZonesToExistingStrands_checkBox"));
    EXPECT_TRUE(isEnabled("numOfInstances"));
    EXPECT_EQ(shown("numOfInstances"), "2");
    EXPECT_EQ(shown("numberOfSegments"), "1");
}

TEST_F(AxialDuplicationDialogTest, WantsANumberOfInstancesForAPartOfTheCircleOnly)
{
    launched();
    clickMark("fullRotation_radioButton");
    EXPECT_TRUE(AxialDuplicationPropertiesManager::fullRotation()->value());
    EXPECT_FALSE(isEnabled("numOfInstances"));
    EXPECT_TRUE(isEnabled("numberOfSegments"));
    clickMark("partialRotation_radioButton");
    EXPECT_FALSE(AxialDuplicationPropertiesManager::fullRotation()->value());
    EXPECT_TRUE(isEnabled("numOfInstances"));
    enter("numOfInstances", "5");
    EXPECT_EQ(AxialDuplicationPropertiesManager::numInstances()->value(), 5);
}

TEST_F(AxialDuplicationDialogTest, IsOfferedInFieldPlotsOnly)
{
    auto const rule = traits.relevance();
    int changes = 0;
    boost::signals2::scoped_connection const connection = rule->connectRelevanceChanged([&changes] { ++changes; });
    for (PlotType_e const plotType : {PlotType_XYLine, PlotType_PolarLine, PlotType_Sketch}) {
        showAs(plotType);
        EXPECT_FALSE(rule->isRelevant()) << plotType;
    }
    for (PlotType_e const plotType : {PlotType_Cartesian2D, PlotType_Cartesian3D}) {
        showAs(plotType);
        EXPECT_TRUE(rule->isRelevant()) << plotType;
    }
    EXPECT_EQ(changes, 5);
}

TEST_F(AxialDuplicationDialogTest, EndsItsBindingsBeforeItsRules)
{
    launched();
    QWidget const& instances = child<QWidget>("numOfInstances");
    bool isBindingGone = false;
    QObject::connect(&boundModel("offsetAngleUnits"), &QObject::destroyed, mainWindow.get(), [&] {
        isBindingGone = true;
        EXPECT_TRUE(instances.isEnabled());
        AxialDuplicationPropertiesManager::fullRotation()->setValue(true);
        IdleDispatcher::flush();
        EXPECT_FALSE(instances.isEnabled()) << "the rule is applied still";
    });
    delete &dialog();
    EXPECT_TRUE(isBindingGone);
}

TEST_F(AxialDuplicationDialogTest, HasAtLeastTwoInstances)
{
    launched();
    box("numOfInstances").press(Qt::Key_Down);
    EXPECT_EQ(AxialDuplicationPropertiesManager::numInstances()->value(), 2);
    enter("numOfInstances", "1");
    EXPECT_EQ(AxialDuplicationPropertiesManager::numInstances()->value(), 2);
    EXPECT_EQ(shown("numOfInstances"), "2");
}

TEST_F(AxialDuplicationDialogTest, ShowsSegmentsAndAngleAsTwoSidesOfOneValue)
{
    launched();
    enter("numberOfSegments", "12");
    EXPECT_EQ(shown("angle_spinBox"), "30");
    enter("angle_spinBox", "45");
    EXPECT_EQ(shown("numberOfSegments"), "8");
    enter("angle_spinBox", "0");
    EXPECT_EQ(shown("numberOfSegments"), "1");
    EXPECT_EQ(angle().value(), 0.0);
    enter("numberOfSegments", "2");
    enter("numberOfSegments", "1");
    EXPECT_EQ(angle().value(), 360.0);
}

TEST_F(AxialDuplicationDialogTest, KeepsAnAngleThatIsNoWholePartOfTheCircleUntilTheSegmentsAreTouched)
{
    launched();
    enter("angle_spinBox", "7");
    EXPECT_EQ(shown("numberOfSegments"), "51");
    box("numberOfSegments").press(Qt::Key_Tab);
    IdleDispatcher::flush();
    EXPECT_EQ(angle().value(), 7.0);
    box("numberOfSegments").clickUp();
    EXPECT_EQ(angle().value(), 360.0 / 52);
}

TEST_F(AxialDuplicationDialogTest, ShowsEveryNumberOfSegmentsThatIsTyped)
{
    launched();
    for (char const* const segments : {"169", "237", "255", "338", "999999999"}) {
        enter("numberOfSegments", segments);
        EXPECT_EQ(shown("numberOfSegments"), segments);
    }
}

TEST_F(AxialDuplicationDialogTest, StepsThroughAllNumbersOfSegments)
{
    launched();
    enter("numberOfSegments", "166");
    for (int segments = 167; segments <= 171; ++segments) {
        box("numberOfSegments").press(Qt::Key_Up);
        EXPECT_EQ(shown("numberOfSegments"), std::to_string(segments));
    }
}

TEST_F(AxialDuplicationDialogTest, KeepsAnAngleBeyondTheWholeCircle)
{
    launched();
    enter("angle_spinBox", "500");
    EXPECT_EQ(shown("numberOfSegments"), "1");
    box("numberOfSegments").press(Qt::Key_Tab);
    IdleDispatcher::flush();
    EXPECT_EQ(angle().value(), 500.0);
    EXPECT_EQ(shown("angle_spinBox"), "500");
    enter("numberOfSegments", "1");
    EXPECT_EQ(angle().value(), 360.0);
}

TEST_F(AxialDuplicationDialogTest, KeepsAnAngleOfMoreSegmentsThanTheBoxCanShow)
{
    launched();
    enter("angle_spinBox", "1e-9");
    EXPECT_EQ(shown("numberOfSegments"), "999999999");
    EXPECT_EQ(angle().value(), 1e-9);
}

TEST_F(AxialDuplicationDialogTest, HasAUnitOfItsOwnForTheOffset)
{
    launched();
    enter("offsetAngle", "180");
    chooseRadians("offsetAngleUnits");
    EXPECT_EQ(shown("offsetAngle"), "3.14159265");
    EXPECT_EQ(shown("angle_spinBox"), "360");
    box("offsetAngle").clickUp();
    EXPECT_EQ(shown("offsetAngle"), "3.15159265");
    chooseDegrees("offsetAngleUnits");
    enter("offsetAngle", "10");
    box("offsetAngle").clickDown();
    EXPECT_EQ(AxialDuplicationPropertiesManager::offsetAngle()->value(), 9.0);
}

TEST_F(AxialDuplicationDialogTest, RemembersItsSettingsInItsNextLife)
{
    launched();
    enter("numberOfSegments", "6");
    enter("numOfInstances", "4");
    enter("offsetAngle", "15");
    chooseRadians("offsetAngleUnits");
    clickMark("fullRotation_radioButton");
    clickMark("addZonesToExistingStrands_checkBox");
    clickClose();
    delete &dialog();
    launched();
    EXPECT_EQ(shown("numberOfSegments"), "6");
    EXPECT_EQ(shown("numOfInstances"), "4");
    EXPECT_EQ(shown("offsetAngle"), "0.26179939");
    EXPECT_TRUE(isChecked("fullRotation_radioButton"));
    EXPECT_FALSE(isChecked("addZonesToExistingStrands_checkBox"));
}

TEST_F(AxialDuplicationDialogTest, SharesAxisOriginAngleAndUnitWithTheRotation)
{
    launched();
    QWidget other;
    auto& rotation = dialogs::data::AxialRotationDialog::getInstance(other);
    rotation.launch();
    auto const in = [&rotation](char const* name) {
        return rotation.findChild<QAbstractSpinBox*>(QLatin1String(name));
    };
    clickMark("xAxisButton");
    enter("yOrgBox", "3");
    enter("numberOfSegments", "4");
    chooseRadians("angleUnits_comboBox");
    EXPECT_TRUE(rotation.findChild<QAbstractButton*>(QStringLiteral("xAxisButton"))->isChecked());
    EXPECT_EQ(in("yOrgBox")->text(), QStringLiteral("3"));
    EXPECT_EQ(in("angle_spinBox")->text(), QStringLiteral("1.57079633"));
    EXPECT_TRUE(QTest::qWaitFor([&rotation] { return QApplication::activeWindow() == &rotation; }));
    SpinBoxDriver angleThere(*in("angle_spinBox"));
    angleThere.type("3.2");
    angleThere.press(Qt::Key_Tab);
    EXPECT_EQ(shown("angle_spinBox"), "3.2");
    EXPECT_EQ(shown("numberOfSegments"), "1");
}

TEST_F(AxialDuplicationDialogTest, HasASelectionAndAGroupingOfItsOwn)
{
    launched();
    clickRow(1);
    QWidget other;
    auto& rotation = dialogs::data::AxialRotationDialog::getInstance(other);
    rotation.launch();
    clickMark("selectByStrand");
    auto const& zones = *rotation.findChild<QListView*>(QStringLiteral("zoneList"));
    EXPECT_FALSE(zones.selectionModel()->hasSelection());
    EXPECT_FALSE(rotation.findChild<QAbstractButton*>(QStringLiteral("selectByStrand"))->isChecked());
}

TEST_F(AxialDuplicationDialogTest, FollowsThePlotType)
{
    launched();
    clickMark("yAxisButton");
    showAs(PlotType_Cartesian2D);
    EXPECT_TRUE(isChecked("zAxisButton"));
    for (char const* const name : {"xAxisButton", "yAxisButton", "zAxisButton", "zOrgLabel", "zOrgBox"})
        EXPECT_FALSE(isEnabled(name)) << name;
    EXPECT_TRUE(isEnabled("numOfInstances"));
}

TEST_F(AxialDuplicationDialogTest, IsToldByTheMnemonicsWhichFieldIsMeant)
{
    launched();
    auto const focusBy = [this](Qt::Key key) {
        list().setFocus();
        QTest::keyClick(&list(), key, Qt::AltModifier);
        return dialog().focusWidget()->objectName().toStdString();
    };
    EXPECT_EQ(focusBy(Qt::Key_A), "angle_spinBox");
    EXPECT_EQ(focusBy(Qt::Key_F), "offsetAngle");
    EXPECT_EQ(focusBy(Qt::Key_N), "xOrgBox");
    EXPECT_EQ(focusBy(Qt::Key_X), "xOrgBox");
    EXPECT_EQ(focusBy(Qt::Key_Y), "yOrgBox");
    EXPECT_EQ(focusBy(Qt::Key_T), "numOfInstances");
}

} // namespace
} // namespace veldraw::tests
