#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/KrigingFixture.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string const outsideZeroToOne = "error: The value must be greater than or equal to 0 and less than or equal to 1.";
std::string const outsideOneToTheMost =
    "error: The value must be greater than or equal to 1 and less than or equal to 4611686018427387903.";

// The settings as they are before any test has touched them.
class KrigingAtLoad : public testing::Environment
{
public:
    void SetUp() override
    {
        numbers = {KrigingPropertiesManager::krigRange()->value(), KrigingPropertiesManager::krigZeroValue()->value(),
                   static_cast<double>(KrigingPropertiesManager::krigNumPoints()->value())};
        choices = {KrigingPropertiesManager::krigDrift()->value(),
                   KrigingPropertiesManager::krigPtSelection()->value()};
    }
    static inline std::vector<double> numbers;
    static inline std::vector<int> choices;
};
testing::Environment* const krigingAtLoad = testing::AddGlobalTestEnvironment(new KrigingAtLoad);

class KrigingDialogTest : public KrigingFixture
{
};

TEST_F(KrigingDialogTest, LooksAsItsFormSays)
{
    EXPECT_THAT(
        formTable(launched()),
        ElementsAre(
            "Kriging | veldraw::dialogs::common::QtDialogAbstract | Kriging |  | ",
            "krigingDlg_SourceZone_Label | QLabel | &Source Zone(s): |  | krigingDlg_SourceZone_ListView",
            "krigingDlg_Variable_Label | QLabel | &Variable(s): |  | krigingDlg_Variables_ListView",
            "krigingDlg_SourceZone_ListView | QListView |  |  | ", "krigingDlg_Variables_ListView | QListView |  |  | ",
            "krigingDlg_DestZone_Label | QLabel | &Destination zone: |  | krigingDlg_DestZone_ComboBox",
            "krigingDlg_DestZone_ComboBox | QComboBox |  |  | ",
            "krigingDlg_Range_Label | QLabel | &Range: |  | krigingDlg_Range_LineEdit",
            "krigingDlg_Range_LineEdit | QLineEdit | 0.3 |  | ",
            "krigingDlg_ZeroValue_Label | QLabel | &Zero value: |  | krigingDlg_ZeroValue_LineEdit",
            "krigingDlg_ZeroValue_LineEdit | QLineEdit | 0 |  | ",
            "krigingDlg_Drift_Label | QLabel | Dri&ft: |  | krigingDlg_Drift_ComboBox",
            "krigingDlg_Drift_ComboBox | QComboBox |  |  | ",
            "krigingDlg_PointSelection_Label | QLabel | &Point selection: |  | "
            "krigingDlg_PointSelection_ComboBox",
            "krigingDlg_PointSelection_ComboBox | QComboBox |  |  | ",
            "krigingDlg_NumOfPoints_Label | QLabel | &Number of points: |  | krigingDlg_NumOfPoints_LineEdit",
            "krigingDlg_NumOfPoints_LineEdit | QLineEdit | 8 |  | ", "buttonBox | QDialogButtonBox |  |  | ",
            " | QPushButton | Close |  | ", " | QPushButton | &Interpolate |  | ", " | QPushButton | Help |  | "));
    EXPECT_EQ(dialog().size(), QSize(304, 344));
    EXPECT_FALSE(dialog().isModal());
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::MultiSelection);
    EXPECT_EQ(child<QListView>(variables).selectionMode(), QAbstractItemView::MultiSelection);
    EXPECT_EQ(buttonBox().orientation(), Qt::Horizontal);
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
}

TEST_F(KrigingDialogTest, LaysTheTwoListsOutSideBySideAndTheRowsBelow)
{
    EXPECT_THAT(formLayout(dialog()),
                testing::UnorderedElementsAre("verticalLayout | 0 | gridLayout", "verticalLayout | 1 | gridLayout_2",
                                              "verticalLayout | 2 | buttonBox",
                                              "gridLayout | 0, 0, 1, 1 | krigingDlg_SourceZone_Label",
                                              "gridLayout | 0, 1, 1, 1 | krigingDlg_Variable_Label",
                                              "gridLayout | 1, 0, 1, 1 | krigingDlg_SourceZone_ListView",
                                              "gridLayout | 1, 1, 1, 1 | krigingDlg_Variables_ListView",
                                              "gridLayout_2 | 0, 0, 1, 1 | krigingDlg_DestZone_Label",
                                              "gridLayout_2 | 0, 1, 1, 1 | krigingDlg_DestZone_ComboBox",
                                              "gridLayout_2 | 1, 0, 1, 1 | krigingDlg_Range_Label",
                                              "gridLayout_2 | 1, 1, 1, 1 | krigingDlg_Range_LineEdit",
                                              "gridLayout_2 | 2, 0, 1, 1 | krigingDlg_ZeroValue_Label",
                                              "gridLayout_2 | 2, 1, 1, 1 | krigingDlg_ZeroValue_LineEdit",
                                              "gridLayout_2 | 3, 0, 1, 1 | krigingDlg_Drift_Label",
                                              "gridLayout_2 | 3, 1, 1, 1 | krigingDlg_Drift_ComboBox",
                                              "gridLayout_2 | 4, 0, 1, 1 | krigingDlg_PointSelection_Label",
                                              "gridLayout_2 | 4, 1, 1, 1 | krigingDlg_PointSelection_ComboBox",
                                              "gridLayout_2 | 5, 0, 1, 1 | krigingDlg_NumOfPoints_Label",
                                              "gridLayout_2 | 5, 1, 1, 1 | krigingDlg_NumOfPoints_LineEdit"));
}

TEST_F(KrigingDialogTest, CanBeWalkedByTab)
{
    EXPECT_THAT(tabOrder(launched()),
                ElementsAre("krigingDlg_SourceZone_ListView", "krigingDlg_Variables_ListView",
                            "krigingDlg_DestZone_ComboBox", "krigingDlg_Range_LineEdit",
                            "krigingDlg_ZeroValue_LineEdit", "krigingDlg_Drift_ComboBox",
                            "krigingDlg_PointSelection_ComboBox", "krigingDlg_NumOfPoints_LineEdit", "[&Interpolate]",
                            "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &list());
}

TEST_F(KrigingDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Kriging>"));
    for (char const* const text : {"Kriging", "&Source Zone(s):", "&Variable(s):", "&Destination zone:", "&Range:",
                                   "&Zero value:", "Dri&ft:", "&Point selection:", "&Number of points:"})
        EXPECT_EQ(translator.asked.count(std::string("Kriging: ") + text), 1u) << text;
    EXPECT_EQ(actionButton().text(), QStringLiteral("&Interpolate"));
}

TEST_F(KrigingDialogTest, StartsWithTheSettingsOfTheLibrary)
{
    ASSERT_TRUE(krigingAtLoad);
    EXPECT_THAT(KrigingAtLoad::numbers, ElementsAre(0.3, 0.0, 8.0));
    EXPECT_THAT(KrigingAtLoad::choices, ElementsAre(1, 2));
    launched();
    EXPECT_EQ(shown(range), "0.3");
    EXPECT_EQ(shown(zeroValue), "0");
    EXPECT_EQ(chosen(drift), "Linear");
    EXPECT_EQ(chosen(pointSelection), "Octant");
    EXPECT_EQ(shown(numberOfPoints), "8");
}

TEST_F(KrigingDialogTest, OffersDriftsAndPointSelectionsInTheirOrder)
{
    launched();
    EXPECT_THAT(choicesOf(drift), ElementsAre("Linear", "None", "Quadratic"));
    EXPECT_THAT(choicesOf(pointSelection), ElementsAre("Nearest N", "Octant", "All"));
    int const drifts[] = {1, 0, 2};
    int const selections[] = {1, 2, 0};
    for (int row = 0; row < 3; ++row) {
        choose(drift, row);
        EXPECT_EQ(KrigingPropertiesManager::krigDrift()->value(), drifts[row]);
        choose(pointSelection, row);
        EXPECT_EQ(KrigingPropertiesManager::krigPtSelection()->value(), selections[row]);
    }
}

TEST_F(KrigingDialogTest, CountsPointsUnlessItTakesAll)
{
    launched();
    choose(pointSelection, 2);
    EXPECT_FALSE(isEnabled(numberOfPoints));
    EXPECT_FALSE(isEnabled("krigingDlg_NumOfPoints_Label"));
    choose(pointSelection, 1);
    EXPECT_TRUE(isEnabled(numberOfPoints));
    EXPECT_TRUE(isEnabled("krigingDlg_NumOfPoints_Label"));
    choose(pointSelection, 0);
    EXPECT_TRUE(isEnabled(numberOfPoints));
}

TEST_F(KrigingDialogTest, TakesNumbersUpToTheirLimits)
{
    launched();
    for (char const* const field : {range, zeroValue})
        for (char const* const number : {"1", "0"}) {
            enter(field, number);
            EXPECT_EQ(shown(field), number);
        }
    enter(range, "1.0");
    EXPECT_EQ(KrigingPropertiesManager::krigRange()->value(), 1.0);
    enter(zeroValue, "0.125");
    EXPECT_EQ(KrigingPropertiesManager::krigZeroValue()->value(), 0.125);
    enter(numberOfPoints, "1");
    EXPECT_EQ(KrigingPropertiesManager::krigNumPoints()->value(), 1);
    enter(numberOfPoints, "2147483647");
    EXPECT_EQ(KrigingPropertiesManager::krigNumPoints()->value(), 2147483647);
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(KrigingDialogTest, TellsTheLimitsOfANumberBeyondThemAndKeepsTheValue)
{
    launched();
    enter(range, "1.01");
    EXPECT_THAT(messages.take(), ElementsAre(outsideZeroToOne));
    EXPECT_EQ(shown(range), "0.3");
    EXPECT_EQ(dialog().focusWidget(), &child<QLineEdit>(range));
    enter(range, "-0.5");
    EXPECT_THAT(messages.take(), ElementsAre(outsideZeroToOne));
    enter(zeroValue, "-0.1");
    EXPECT_THAT(messages.take(), ElementsAre(outsideZeroToOne));
    EXPECT_EQ(shown(zeroValue), "0");
    enter(zeroValue, "1.5");
    EXPECT_THAT(messages.take(), ElementsAre(outsideZeroToOne));
    enter(numberOfPoints, "0");
    EXPECT_THAT(messages.take(), ElementsAre(outsideOneToTheMost));
    EXPECT_EQ(shown(numberOfPoints), "8");
}

TEST_F(KrigingDialogTest, PutsTheValueBackWithoutAWordWhenTheTextIsNoNumber)
{
    launched();
    enter(range, "far");
    EXPECT_EQ(shown(range), "0.3");
    enter(numberOfPoints, "9999999999");
    EXPECT_EQ(shown(numberOfPoints), "8");
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(KrigingDialogTest, ActsOnlyWithSourcesVariablesAndADestinationThatIsNoSource)
{
    launched();
    EXPECT_FALSE(canAct());
    clickRow(1);
    EXPECT_FALSE(canAct()) << "no variables";
    clickRowOf(variables, 0);
    EXPECT_TRUE(canAct()) << "from Body to Wing";
    clickRow(0);
    EXPECT_FALSE(canAct()) << "Wing is a source now";
    choose(destination, 2);
    EXPECT_TRUE(canAct()) << "to Tail instead";
    choose(destination, 1);
    EXPECT_FALSE(canAct()) << "Body is a source";
    clickRow(1);
    EXPECT_TRUE(canAct()) << "Body is none any more";
    clickRowOf(variables, 0);
    EXPECT_FALSE(canAct()) << "the variable was taken back";
    clickRowOf(variables, 1);
    clickRow(0);
    EXPECT_FALSE(canAct()) << "the sources were taken back";
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(KrigingDialogTest, FollowsSelectionsThatFallOutOfTheLists)
{
    launched();
    selectWingToBody();
    EXPECT_TRUE(canAct());
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    EXPECT_THAT(rows(), ElementsAre("2: Body", "3: Tail"));
    EXPECT_FALSE(canAct());
}

TEST_F(KrigingDialogTest, CarriesALinearTrendBeyondTheSources)
{
    launched();
    clickRow(0);
    clickRowOf(variables, 0);
    choose(destination, 2);
    choose(pointSelection, 2);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(done));
    for (std::size_t at = 0; at < 6; ++at)
        EXPECT_NEAR(values(3, 3).at(at), 10.0 * values(3, 1).at(at) + 100.0 * values(3, 2).at(at), 1e-9) << at;
}

TEST_F(KrigingDialogTest, ReachesItsSettingsByTheirLetters)
{
    launched();
    EXPECT_EQ(focusAfterAlt(Qt::Key_R), range);
    EXPECT_EQ(focusAfterAlt(Qt::Key_Z), zeroValue);
    EXPECT_EQ(focusAfterAlt(Qt::Key_F), drift);
    EXPECT_EQ(focusAfterAlt(Qt::Key_P), pointSelection);
    EXPECT_EQ(focusAfterAlt(Qt::Key_N), numberOfPoints);
}

TEST_F(KrigingDialogTest, KeepsItsSettingsWhenItIsMadeAnew)
{
    launched();
    enter(range, "0.75");
    enter(zeroValue, "0.25");
    choose(drift, 2);
    choose(pointSelection, 0);
    enter(numberOfPoints, "12");
    delete &dialog();
    launched();
    EXPECT_EQ(shown(range), "0.75");
    EXPECT_EQ(shown(zeroValue), "0.25");
    EXPECT_EQ(chosen(drift), "Quadratic");
    EXPECT_EQ(chosen(pointSelection), "Nearest N");
    EXPECT_EQ(shown(numberOfPoints), "12");
    EXPECT_FALSE(canAct()) << "nothing is selected";
}

} // namespace
} // namespace veldraw::tests
