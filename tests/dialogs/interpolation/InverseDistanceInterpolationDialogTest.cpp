#include "dialogs/interpolation/InverseDistanceInterpolationPropertiesGenerated.h"
#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/InverseDistanceFixture.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::Pointwise;

class InverseDistanceInterpolationDialogTest : public InverseDistanceFixture
{
};

TEST_F(InverseDistanceInterpolationDialogTest, LooksAsItsFormSays)
{
    EXPECT_THAT(
        formTable(launched()),
        ElementsAre(
            "InverseDistanceInterpolation | veldraw::dialogs::common::QtDialogAbstract | "
            "Inverse-Distance Interpolation |  | ",
            "invDistInterp_SourceZone_Static | QLabel | &Source zone(s) |  | invDistInterp_Source_MList",
            "invDistInterp_Variable_Static | QLabel | &Variable(s) |  | invDistInterp_Variable_MList",
            "invDistInterp_Source_MList | QListView |  |  | ", "invDistInterp_Variable_MList | QListView |  |  | ",
            "invDistInterp_DestZone_Static | QLabel | &Destination zone: |  | invDistInterp_DestZone_CmbBox",
            "invDistInterp_DestZone_CmbBox | QComboBox |  |  | ",
            "invDistInterp_MinDist_Static | QLabel | &Minimum distance: |  | invDistInterp_MinDist_1Text",
            "invDistInterp_MinDist_1Text | QLineEdit | 0 |  | ",
            "invDistInterp_Exponent_Static | QLabel | &Exponent: |  | invDistInterp_Exponent_1Text",
            "invDistInterp_Exponent_1Text | QLineEdit | 2 |  | ",
            "invDistInterp_PtSelect_Static | QLabel | &Point selection: |  | invDistInterp_PtSelect_CmbBox",
            "invDistInterp_PtSelect_CmbBox | QComboBox |  |  | ",
            "invDistInterp_NumPoints_Label | QLabel | &Number of points: |  | invDistInterp_NumPoints_1Text",
            "invDistInterp_NumPoints_1Text | QLineEdit | 8 |  | ", "buttonBox | QDialogButtonBox |  |  | ",
            " | QPushButton | Close |  | ", " | QPushButton | &Interpolate |  | ", " | QPushButton | Help |  | "));
    EXPECT_EQ(dialog().size(), QSize(325, 351));
    EXPECT_FALSE(dialog().isModal());
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::MultiSelection);
    EXPECT_EQ(child<QListView>(variables).selectionMode(), QAbstractItemView::MultiSelection);
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
}

TEST_F(InverseDistanceInterpolationDialogTest, LaysTheTwoListsOutSideBySideAndTheRowsBelow)
{
    EXPECT_THAT(formLayout(dialog()),
                testing::UnorderedElementsAre("gridLayout | 0, 0, 1, 2 | gridLayout_2",
                                              "gridLayout_2 | 0, 0, 1, 1 | invDistInterp_SourceZone_Static",
                                              "gridLayout_2 | 0, 1, 1, 1 | invDistInterp_Variable_Static",
                                              "gridLayout_2 | 1, 0, 1, 1 | invDistInterp_Source_MList",
                                              "gridLayout_2 | 1, 1, 1, 1 | invDistInterp_Variable_MList",
                                              "gridLayout | 1, 0, 1, 1 | invDistInterp_DestZone_Static",
                                              "gridLayout | 1, 1, 1, 1 | invDistInterp_DestZone_CmbBox",
                                              "gridLayout | 2, 0, 1, 1 | invDistInterp_MinDist_Static",
                                              "gridLayout | 2, 1, 1, 1 | invDistInterp_MinDist_1Text",
                                              "gridLayout | 3, 0, 1, 1 | invDistInterp_Exponent_Static",
                                              "gridLayout | 3, 1, 1, 1 | invDistInterp_Exponent_1Text",
                                              "gridLayout | 4, 0, 1, 1 | invDistInterp_PtSelect_Static",
                                              "gridLayout | 4, 1, 1, 1 | invDistInterp_PtSelect_CmbBox",
                                              "gridLayout | 5, 0, 1, 1 | invDistInterp_NumPoints_Label",
                                              "gridLayout | 5, 1, 1, 1 | invDistInterp_NumPoints_1Text",
                                              "gridLayout | 6, 0, 1, 2 | buttonBox"));
}

TEST_F(InverseDistanceInterpolationDialogTest, CanBeWalkedByTab)
{
    EXPECT_THAT(tabOrder(launched()),
                ElementsAre("invDistInterp_Source_MList", "invDistInterp_Variable_MList",
                            "invDistInterp_DestZone_CmbBox", "invDistInterp_MinDist_1Text",
                            "invDistInterp_Exponent_1Text", "invDistInterp_PtSelect_CmbBox",
                            "invDistInterp_NumPoints_1Text", "[&Interpolate]", "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &list());
}

TEST_F(InverseDistanceInterpolationDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Inverse-Distance Interpolation>"));
    for (char const* const text :
         {"Inverse-Distance Interpolation", "&Source zone(s)", "&Variable(s)", "&Destination zone:",
          "&Minimum distance:", "&Exponent:", "&Point selection:", "&Number of points:", "Nearest N", "Octant", "All"})
        EXPECT_EQ(translator.asked.count(std::string("InverseDistanceInterpolation: ") + text), 1u) << text;
    EXPECT_EQ(actionButton().text(), QStringLiteral("&Interpolate"));
    EXPECT_THAT(choicesOf(pointSelection), ElementsAre("Nearest N", "Octant", "All")) << "of the list, not of the form";
}

TEST_F(InverseDistanceInterpolationDialogTest, StartsWithTheSettingsOfTheKernel)
{
    launched();
    EXPECT_EQ(shown(minimumDistance), "0");
    EXPECT_EQ(shown(exponent), "2");
    EXPECT_EQ(chosen(pointSelection), "Octant");
    EXPECT_EQ(shown(numberOfPoints), "8");
}

TEST_F(InverseDistanceInterpolationDialogTest, ListsEnabledZonesAndVariablesThatAreNoCoordinates)
{
    launched();
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, false));
    sample.session().perform(kernel::EnableVariable(sample.dataSet(), 4, false));
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "3: Tail"));
    EXPECT_THAT(rowsOf(variables), ElementsAre("3: P"));
    EXPECT_THAT(choicesOf(destination), ElementsAre("1: Wing", "3: Tail"));
}

TEST_F(InverseDistanceInterpolationDialogTest, CountsPointsUnlessItTakesAll)
{
    launched();
    choose(pointSelection, 2);
    EXPECT_EQ(chosen(pointSelection), "All");
    EXPECT_FALSE(isEnabled(numberOfPoints));
    EXPECT_FALSE(isEnabled("invDistInterp_NumPoints_Label"));
    choose(pointSelection, 1);
    EXPECT_EQ(chosen(pointSelection), "Octant");
    EXPECT_TRUE(isEnabled(numberOfPoints));
    EXPECT_TRUE(isEnabled("invDistInterp_NumPoints_Label"));
    choose(pointSelection, 0);
    EXPECT_EQ(chosen(pointSelection), "Nearest N");
    EXPECT_TRUE(isEnabled(numberOfPoints));
}

TEST_F(InverseDistanceInterpolationDialogTest, WritesEachSettingToTheKernelAtOnce)
{
    launched();
    enter(minimumDistance, "0.25");
    EXPECT_EQ(StyleSession::number(radiusPath), 0.25);
    enter(exponent, "3.5");
    EXPECT_EQ(StyleSession::number(exponentPath), 3.5);
    enter(numberOfPoints, "12");
    EXPECT_EQ(StyleSession::number(pointsPath), 12.0);
    choose(pointSelection, 0);
    EXPECT_EQ(StyleSession::number(selectionPath), 1.0) << "the first row is not the lowest value";
    choose(pointSelection, 2);
    EXPECT_EQ(StyleSession::number(selectionPath), 0.0);
}

TEST_F(InverseDistanceInterpolationDialogTest, FollowsSettingsThatAreMadeElsewhere)
{
    launched();
    StyleSession::setNumber(exponentPath, 4.0);
    StyleSession::setNumber(radiusPath, 0.5);
    StyleSession::setNumber(pointsPath, 3.0);
    StyleSession::setNumber(selectionPath, PtSelection_All);
    EXPECT_EQ(shown(exponent), "4");
    EXPECT_EQ(shown(minimumDistance), "0.5");
    EXPECT_EQ(shown(numberOfPoints), "3");
    EXPECT_EQ(chosen(pointSelection), "All");
    EXPECT_FALSE(isEnabled(numberOfPoints));
}

/// A field, what is typed into it and the limits that the kernel's refusal names.
struct Refused
{
    char const* field;
    char const* text;
    char const* reason;
};

class InverseDistanceRefusalTest : public InverseDistanceFixture, public testing::WithParamInterface<Refused>
{
};

TEST_P(InverseDistanceRefusalTest, TellsInTheKernelsWordsAndKeepsTheValue)
{
    launched();
    std::string const before = shown(GetParam().field);
    enter(GetParam().field, GetParam().text);
    EXPECT_THAT(messages.take(), ElementsAre(std::string("error: ") + GetParam().reason));
    EXPECT_EQ(shown(GetParam().field), before);
    EXPECT_EQ(dialog().focusWidget(), &child<QLineEdit>(GetParam().field));
}

INSTANTIATE_TEST_SUITE_P(
    Settings, InverseDistanceRefusalTest,
    testing::Values(
        Refused{"invDistInterp_Exponent_1Text", "0",
                "The value 0 is not allowed for Interface, Data, InvDistExponent: it must be a number "
                "greater than 0 and less than or equal to 10."},
        Refused{"invDistInterp_Exponent_1Text", "10.5",
                "The value 10.5 is not allowed for Interface, Data, InvDistExponent: it must be a number "
                "greater than 0 and less than or equal to 10."},
        Refused{"invDistInterp_MinDist_1Text", "-1",
                "The value -1 is not allowed for Interface, Data, InvDistMinRadius: it must be a number "
                "greater than or equal to 0."},
        Refused{"invDistInterp_NumPoints_1Text", "0",
                "The value 0 is not allowed for Interface, Data, InterpNPoints: it must be a whole number from 1 "
                "to 2147483647."}));

TEST_F(InverseDistanceInterpolationDialogTest, AcceptsTheLimitsThemselves)
{
    launched();
    enter(exponent, "10");
    enter(minimumDistance, "0");
    enter(numberOfPoints, "2147483647");
    EXPECT_EQ(StyleSession::number(exponentPath), 10.0);
    EXPECT_EQ(StyleSession::number(pointsPath), 2147483647.0);
    enter(numberOfPoints, "1");
    EXPECT_EQ(StyleSession::number(pointsPath), 1.0);
    EXPECT_THAT(messages.take(), testing::IsEmpty());
}

TEST_F(InverseDistanceInterpolationDialogTest, WeighsAllPointsByTheExponentThatWasTyped)
{
    launched();
    clickRow(0);
    clickRowOf(variables, 0);
    clickRowOf(variables, 1);
    choose(destination, 2);
    choose(pointSelection, 2);
    enter(exponent, "3");
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(done));
    for (int const variable : {3, 4}) {
        std::vector<double> expected;
        for (int at = 0; at < 6; ++at) {
            double weighted = 0.0;
            double weights = 0.0;
            for (int source = 0; source < 6; ++source) {
                double const distance = std::hypot(values(3, 1).at(static_cast<std::size_t>(at)) - source % 3,
                                                   values(3, 2).at(static_cast<std::size_t>(at)) - source / 3);
                double const weight = std::pow(distance, -3.0);
                weighted += weight * values(1, variable).at(static_cast<std::size_t>(source));
                weights += weight;
            }
            expected.push_back(weighted / weights);
        }
        EXPECT_THAT(values(3, variable), Pointwise(testing::DoubleNear(1e-12), expected)) << "variable " << variable;
    }
}

TEST_F(InverseDistanceInterpolationDialogTest, LetsTheKernelRefuseAnEmptySelection)
{
    launched();
    EXPECT_TRUE(canAct());
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(failed));
    clickRow(0);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(failed));
    EXPECT_EQ(values(2, 3), untouched);
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "2: Body", "3: Tail"));
}

TEST_F(InverseDistanceInterpolationDialogTest, ReachesItsSettingsByTheirLetters)
{
    launched();
    EXPECT_EQ(focusAfterAlt(Qt::Key_M), minimumDistance);
    EXPECT_EQ(focusAfterAlt(Qt::Key_E), exponent);
    EXPECT_EQ(focusAfterAlt(Qt::Key_P), pointSelection);
    EXPECT_EQ(focusAfterAlt(Qt::Key_N), numberOfPoints);
}

TEST_F(InverseDistanceInterpolationDialogTest, BeginsAnewWithTheSettingsOfTheKernel)
{
    launched();
    enter(exponent, "3.5");
    choose(pointSelection, 2);
    delete &dialog();
    launched();
    EXPECT_EQ(shown(exponent), "3.5");
    EXPECT_EQ(chosen(pointSelection), "All");
}

/// Makes the next dialog modal as soon as it exists, before it sets up anything.
class ModalFromTheStart : public QObject
{
public:
    ModalFromTheStart() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const widget = qobject_cast<QWidget*>(watched);
        if (widget && widget->parentWidget() && widget->isWindow() && event->type() == QEvent::Create)
            widget->setWindowModality(Qt::ApplicationModal);
        return false;
    }
};

TEST_F(InverseDistanceInterpolationDialogTest, KeepsItsSettingsToItselfWhenItIsModal)
{
    {
        ModalFromTheStart const modal;
        dialog();
    }
    ASSERT_TRUE(dialog().isModal());
    launched();
    enter(exponent, "3.5");
    choose(pointSelection, 2);
    EXPECT_EQ(shown(exponent), "3.5");
    EXPECT_FALSE(isEnabled(numberOfPoints)) << "the rule goes by the dialog's own value";
    EXPECT_EQ(StyleSession::number(exponentPath), 2.0);
    EXPECT_EQ(StyleSession::number(selectionPath), PtSelection_Octant);
}

} // namespace
} // namespace veldraw::tests
