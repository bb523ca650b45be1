#include "tests/dialogs/smoothing/TriangulateFixture.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string const outsideFactors = "error: The value must be greater than or equal to 0 and less than or equal to 0.5.";

// The settings as they are before any test has touched them.
class TriangulateAtLoad : public testing::Environment
{
public:
    void SetUp() override
    {
        useBoundary = TriangulatePropertiesManager::useBoundaryZones()->value();
        includePoints = TriangulatePropertiesManager::includeBoundaryPoints()->value();
        keepFactor = TriangulatePropertiesManager::triangleKeepFactor()->value();
    }
    static inline bool useBoundary = true;
    static inline bool includePoints = true;
    static inline double keepFactor = -1.0;
};
testing::Environment* const triangulateAtLoad = testing::AddGlobalTestEnvironment(new TriangulateAtLoad);

using TriangulateDialogTest = TriangulateFixture;
using TriangulateDialogWithBoundariesTest = BoundedTriangulateFixture;

TEST_F(TriangulateDialogTest, LooksAsItsFormSays)
{
    EXPECT_EQ(dialog().size(), QSize(459, 334));
    EXPECT_THAT(formTable(launched()),
                ElementsAre("TriangulateDialog | veldraw::dialogs::common::QtDialogAbstract | 2D Triangulation |  | ",
                            "boundaryZonesLabel | QLabel | &Boundary zones |  | boundaryZonesListView",
                            "boundaryZonesListView | QListView |  |  | ",
                            "sourceZonesLabel | QLabel | &Source zones |  | sourceZonesListView",
                            "sourceZonesListView | QListView |  |  | ",
                            "includeBoundaryPointsCheckBox | QCheckBox | Include boundary &points |  | ",
                            "useBoundaryZonesCheckBox | QCheckBox | Use boundary &zones |  | ",
                            "triangleKeepFactorLabel | QLabel | Triangle &keep factor: |  | triangleKeepFactorSpinBox",
                            "triangleKeepFactorSpinBox | veldraw::ui::QScientificSpinBox | 0.25 |  | ",
                            "buttonBox | QDialogButtonBox |  |  | ", " | QPushButton | Close |  | ",
                            " | QPushButton | &Triangulate |  | ", " | QPushButton | Help |  | "));
    EXPECT_FALSE(dialog().isModal());
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::ExtendedSelection);
    EXPECT_EQ(child<QListView>(boundaries).selectionMode(), QAbstractItemView::ExtendedSelection);
    EXPECT_EQ(child<QWidget>(keepFactor).minimumWidth(), 60);
    EXPECT_EQ(child<veldraw::ui::QScientificSpinBox>(keepFactor).singleStep(), 0.01);
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
}

TEST_F(TriangulateDialogTest, LaysTheBoundaryOutBesideTheSources)
{
    EXPECT_THAT(
        formLayout(dialog()),
        testing::UnorderedElementsAre(
            "verticalLayout | 0 | gridLayout", "verticalLayout | 1 | horizontalLayout",
            "verticalLayout | 2 | buttonBox", "gridLayout | 0, 0, 1, 1 | sourceZonesLabel",
            "gridLayout | 1, 0, 3, 1 | sourceZonesListView", "gridLayout | 0, 1, 1, 1 | useBoundaryZonesCheckBox",
            "gridLayout | 1, 1, 1, 1 | includeBoundaryPointsCheckBox", "gridLayout | 2, 1, 1, 1 | boundaryZonesLabel",
            "gridLayout | 3, 1, 1, 1 | boundaryZonesListView", "horizontalLayout | 0 | triangleKeepFactorLabel",
            "horizontalLayout | 1 | triangleKeepFactorSpinBox", "horizontalLayout | 2 | spacer"));
}

TEST_F(TriangulateDialogTest, HasItsFocusInTheListOfSourcesBeforeItIsShown)
{
    EXPECT_EQ(dialog().focusWidget(), &list());
}

TEST_F(TriangulateDialogTest, CanBeWalkedByTab)
{
    EXPECT_THAT(tabOrder(launched()), ElementsAre(traits.list, useBoundary, includePoints, boundaries, keepFactor,
                                                  "[&Triangulate]", "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &list());
}

TEST_F(TriangulateDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<2D Triangulation>"));
    for (char const* const text : {"2D Triangulation", "&Boundary zones", "&Source zones", "Include boundary &points",
                                   "Use boundary &zones", "Triangle &keep factor:"})
        EXPECT_EQ(translator.asked.count(std::string("TriangulateDialog: ") + text), 1u) << text;
    EXPECT_EQ(actionButton().text(), QStringLiteral("&Triangulate"));
}

TEST_F(TriangulateDialogTest, StartsWithTheSettingsOfTheLibrary)
{
    ASSERT_TRUE(triangulateAtLoad);
    EXPECT_FALSE(TriangulateAtLoad::useBoundary);
    EXPECT_FALSE(TriangulateAtLoad::includePoints);
    EXPECT_EQ(TriangulateAtLoad::keepFactor, 0.25);
    launched();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    EXPECT_FALSE(isChecked(useBoundary));
    EXPECT_FALSE(isChecked(includePoints));
    EXPECT_EQ(keepFactorBox().text(), "0.25");
    EXPECT_FALSE(canAct());
}

TEST_F(TriangulateDialogTest, OffersLinesAsBoundaries)
{
    addBoundary();
    sample.dataSet().addZone(std::make_shared<kernel::Zone>("Plane", ZoneType_Ordered, 2, 2, 1));
    sample.dataSet().addZone(std::make_shared<kernel::Zone>("Segments", ZoneType_FELineSeg, 4, 3, 0));
    sample.dataSet().addZone(std::make_shared<kernel::Zone>("Column", ZoneType_Ordered, 1, 1, 4));
    launched();
    EXPECT_THAT(rowsOf(boundaries), ElementsAre("4: Rim", "7: Column"));
    EXPECT_EQ(rows().size(), 7u);
    enableZone(4, false);
    EXPECT_THAT(rowsOf(boundaries), ElementsAre("7: Column"));
    EXPECT_EQ(rows().size(), 6u);
}

TEST_F(TriangulateDialogTest, HasNoUseForBoundariesWithoutLinesForTheWholeOfItsLife)
{
    launched();
    for (char const* const name : {useBoundary, includePoints, boundaries, boundariesLabel})
        EXPECT_FALSE(isEnabled(name)) << name;
    TriangulatePropertiesManager::useBoundaryZones()->setValue(true);
    addBoundary();
    EXPECT_THAT(rowsOf(boundaries), ElementsAre("4: Rim"));
    for (char const* const name : {useBoundary, includePoints, boundaries, boundariesLabel})
        EXPECT_FALSE(isEnabled(name)) << name;
    delete &dialog();
    launched();
    for (char const* const name : {useBoundary, includePoints, boundaries, boundariesLabel})
        EXPECT_TRUE(isEnabled(name)) << name;
}

TEST_F(TriangulateDialogWithBoundariesTest, OffersBoundariesWhileTheyAreToBeUsed)
{
    launched();
    EXPECT_TRUE(isEnabled(useBoundary));
    for (char const* const name : {includePoints, boundaries, boundariesLabel})
        EXPECT_FALSE(isEnabled(name)) << name;
    clickMark(useBoundary);
    EXPECT_TRUE(TriangulatePropertiesManager::useBoundaryZones()->value());
    for (char const* const name : {includePoints, boundaries, boundariesLabel})
        EXPECT_TRUE(isEnabled(name)) << name;
    clickMark(includePoints);
    EXPECT_TRUE(TriangulatePropertiesManager::includeBoundaryPoints()->value());
    clickMark(useBoundary);
    for (char const* const name : {includePoints, boundaries, boundariesLabel})
        EXPECT_FALSE(isEnabled(name)) << name;
    EXPECT_TRUE(isChecked(includePoints)) << "for the next time";
}

TEST_F(TriangulateDialogWithBoundariesTest, ActsOnlyWithSourcesAndWithBoundariesWhereTheyAreToBeUsed)
{
    launched();
    EXPECT_FALSE(canAct());
    clickMark(useBoundary);
    clickRowOf(boundaries, 0);
    EXPECT_FALSE(canAct()) << "no sources";
    clickRow(0);
    EXPECT_TRUE(canAct());
    clickRowOf(child<QListView>(boundaries), 0, Qt::ControlModifier);
    EXPECT_FALSE(canAct()) << "no boundary";
    clickMark(useBoundary);
    EXPECT_TRUE(canAct()) << "none is needed";
    clickRowOf(list(), 0, Qt::ControlModifier);
    EXPECT_FALSE(canAct()) << "the sources were taken back";
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(TriangulateDialogTest, ActsWithoutABoundaryThatCannotBeChosen)
{
    TriangulatePropertiesManager::useBoundaryZones()->setValue(true);
    launched();
    EXPECT_FALSE(canAct());
    clickRow(0);
    EXPECT_TRUE(canAct());
}

TEST_F(TriangulateDialogTest, TakesKeepFactorsUpToTheirLimits)
{
    launched();
    for (auto const& [typed, value] :
         {std::pair{"0.5", 0.5}, std::pair{"0", 0.0}, std::pair{"0.123456789", 0.123456789}}) {
        enterKeepFactor(typed);
        EXPECT_EQ(TriangulatePropertiesManager::triangleKeepFactor()->value(), value);
    }
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(TriangulateDialogTest, TellsTheLimitsOfAKeepFactorBeyondThem)
{
    launched();
    for (char const* const typed : {"0.51", "-0.01", "1"}) {
        enterKeepFactor(typed);
        EXPECT_THAT(messages.take(), ElementsAre(outsideFactors)) << typed;
        EXPECT_EQ(keepFactorBox().text(), "0.25");
    }
    EXPECT_EQ(TriangulatePropertiesManager::triangleKeepFactor()->value(), 0.25);
}

TEST_F(TriangulateDialogTest, StepsTheKeepFactorByHundredths)
{
    launched();
    keepFactorBox().press(Qt::Key_Up);
    IdleDispatcher::flush();
    EXPECT_DOUBLE_EQ(TriangulatePropertiesManager::triangleKeepFactor()->value(), 0.26);
    keepFactorBox().press(Qt::Key_Down);
    keepFactorBox().press(Qt::Key_Down);
    IdleDispatcher::flush();
    EXPECT_DOUBLE_EQ(TriangulatePropertiesManager::triangleKeepFactor()->value(), 0.24);
    EXPECT_EQ(keepFactorBox().text(), "0.24");
}

TEST_F(TriangulateDialogWithBoundariesTest, DropsZonesThatFallOutOfTheLists)
{
    launched();
    clickMark(useBoundary);
    clickRow(0);
    clickRowOf(boundaries, 0);
    EXPECT_TRUE(canAct());
    enableZone(4, false);
    EXPECT_THAT(rowsOf(boundaries), IsEmpty());
    EXPECT_FALSE(canAct());
    enableZone(4, true);
    EXPECT_THAT(rowsOf(boundaries), ElementsAre("4: Rim"));
    enableZone(1, false);
    EXPECT_THAT(rows(), ElementsAre("2: Body", "3: Tail", "4: Rim"));
}

TEST_F(TriangulateDialogWithBoundariesTest, KeepsItsSettingsWhenItIsMadeAnewButNotItsSelections)
{
    launched();
    clickMark(useBoundary);
    clickMark(includePoints);
    enterKeepFactor("0.125");
    clickRow(0);
    clickRowOf(boundaries, 0);
    delete &dialog();
    launched();
    EXPECT_TRUE(isChecked(useBoundary));
    EXPECT_TRUE(isChecked(includePoints));
    EXPECT_EQ(keepFactorBox().text(), "0.125");
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "2: Body", "3: Tail", "4: Rim"));
    EXPECT_THAT(rowsOf(boundaries), ElementsAre("4: Rim"));
    EXPECT_FALSE(canAct());
}

TEST_F(TriangulateDialogTest, StaysUsableInEveryPlot)
{
    launched();
    clickRow(0);
    for (PlotType_e const plotType : {PlotType_XYLine, PlotType_Cartesian3D, PlotType_Cartesian2D}) {
        showAs(plotType);
        EXPECT_TRUE(isEnabled(traits.list)) << plotType;
        EXPECT_TRUE(canAct()) << plotType;
        EXPECT_EQ(traits.relevance()->isRelevant(), plotType == PlotType_Cartesian2D);
    }
}

TEST_F(TriangulateDialogTest, TriangulatesAsOneStepWithoutAWord)
{
    launched();
    clickRow(0);
    enterKeepFactor("0");
    clickAction();
    EXPECT_THAT(messages.take(), IsEmpty());
    ASSERT_EQ(sample.dataSet().zoneCount(), 4);
    kernel::Zone const& made = *sample.dataSet().zone(4);
    EXPECT_EQ(made.type, ZoneType_FETriangle);
    EXPECT_EQ(made.pointCount(), 6);
    EXPECT_EQ(made.cellCount(), 6) << "twice the points, less those of the hull, less 2";
    EXPECT_EQ(rows().size(), 4u);
    EXPECT_EQ(rows().front(), "*1: Wing");
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(sample.session().history().undoName(), dialog().windowTitle().toStdString());
    sample.session().undo();
    EXPECT_EQ(sample.dataSet().zoneCount(), 3);
}

TEST_F(TriangulateDialogTest, KeepsNoFlatTrianglesAtTheRim)
{
    launched();
    clickRow(0);
    enterKeepFactor("0.25");
    clickAction();
    ASSERT_EQ(sample.dataSet().zoneCount(), 4);
    // The lowest and the highest one have an inradius of 0.118 and a circumradius of 0.625.
    EXPECT_EQ(sample.dataSet().zone(4)->cellCount(), 4);
}

TEST_F(TriangulateDialogWithBoundariesTest, TriangulatesWithinABoundary)
{
    launched();
    clickRow(0);
    clickMark(useBoundary);
    clickMark(includePoints);
    clickRowOf(boundaries, 0);
    enterKeepFactor("0");
    clickAction();
    EXPECT_THAT(messages.take(), IsEmpty());
    ASSERT_EQ(sample.dataSet().zoneCount(), 5);
    std::vector<double> const x = values(5, 1);
    std::vector<double> const y = values(5, 2);
    EXPECT_EQ(*std::max_element(y.begin(), y.end()), 0.75) << "the upper corners are outside";
    kernel::Connectivity const& cells = *sample.dataSet().zone(5)->connectivity;
    double area = 0.0;
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        auto const corner = [&](int at) { return static_cast<std::size_t>(cells.indices[cells.offsets[cell] + at]); };
        std::size_t const a = corner(0), b = corner(1), c = corner(2);
        area += std::abs((x[b] - x[a]) * (y[c] - y[a]) - (x[c] - x[a]) * (y[b] - y[a])) / 2.0;
    }
    EXPECT_DOUBLE_EQ(area, 0.75);
}

TEST_F(TriangulateDialogWithBoundariesTest, CanBeUsedByKeyboardAlone)
{
    launched();
    auto const alt = [this](Qt::Key key) {
        QTest::keyClick(dialog().focusWidget(), key, Qt::AltModifier);
        IdleDispatcher::flush();
        return dialog().focusWidget()->objectName().toStdString();
    };
    alt(Qt::Key_Z);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isChecked(useBoundary); }));
    alt(Qt::Key_P);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isChecked(includePoints); }));
    EXPECT_EQ(alt(Qt::Key_B), boundaries);
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Home);
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Space);
    EXPECT_THAT(rowsOf(boundaries), ElementsAre("*4: Rim"));
    EXPECT_EQ(alt(Qt::Key_K), keepFactor);
    QTest::keyClicks(dialog().focusWidget(), QStringLiteral("0.1"));
    EXPECT_EQ(alt(Qt::Key_S), traits.list);
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Home);
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(canAct());
    EXPECT_EQ(TriangulatePropertiesManager::triangleKeepFactor()->value(), 0.1);
    QTest::keyClick(dialog().focusWidget(), Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return sample.dataSet().zoneCount() == 5; }));
    EXPECT_THAT(messages.take(), IsEmpty());
}

} // namespace
} // namespace veldraw::tests
