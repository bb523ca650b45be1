#include "tests/dialogs/smoothing/SmoothFixture.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"

#include <gmock/gmock.h>
#include <limits>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string const outsideCoefficients =
    "error: The value must be greater than or equal to 1.17549e-38 and less than or equal to 0.95.";
std::string const outsidePasses =
    "error: The value must be greater than or equal to 1 and less than or equal to 2147483647.";

class SmoothDialogTest : public SmoothFixture
{
protected:
    static int boundaryValue() { return SmoothPropertiesManager::boundaryCondition()->value(); }
};

TEST_F(SmoothDialogTest, LooksAsItsFormSays)
{
    EXPECT_EQ(dialog().size(), QSize(244, 181)) << "before its buttons make it as wide as they need it";
    EXPECT_THAT(
        formTable(launched()),
        ElementsAre("SmoothDialog | veldraw::dialogs::common::QtDialogAbstract | Smooth |  | ",
                    "smoothDlg_Zone_Label | QLabel | &Zone: |  | smoothDlg_Zone_ComboBox",
                    "smoothDlg_Zone_ComboBox | QComboBox |  |  | ",
                    "smoothDlg_Variable_Label | QLabel | &Variable: |  | smoothDlg_Variable_ComboBox",
                    "smoothDlg_Variable_ComboBox | QComboBox |  |  | ",
                    "smoothDlg_NumOfPasses_Label | QLabel | &Number of passes: |  | smoothDlg_NumOfPasses_LineEdit",
                    "smoothDlg_NumOfPasses_LineEdit | QLineEdit | 1 |  | ",
                    "smoothDlg_Coefficient_Label | QLabel | C&oefficient: |  | smoothDlg_Coefficent_LineEdit",
                    "smoothDlg_Coefficent_LineEdit | QLineEdit | 0.5 |  | ",
                    "smoothDlg_Boundary_Label | QLabel | &Boundary: |  | smoothDlg_Boundary_ComboBox",
                    "smoothDlg_Boundary_ComboBox | QComboBox |  |  | ", "buttonBox | QDialogButtonBox |  |  | ",
                    " | QPushButton | Close |  | ", " | QPushButton | &Smooth |  | ", " | QPushButton | Help |  | "));
    EXPECT_FALSE(dialog().isModal());
    for (char const* const box : {zone, variable, boundary})
        EXPECT_FALSE(child<QComboBox>(box).isEditable()) << box;
    EXPECT_EQ(buttonBox().orientation(), Qt::Horizontal);
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
}

TEST_F(SmoothDialogTest, LaysItsRowsOutAboveTheButtons)
{
    EXPECT_THAT(formLayout(dialog()),
                testing::UnorderedElementsAre(
                    "verticalLayout | 0 | gridLayout", "gridLayout | 0, 0, 1, 1 | gridLayout_2",
                    "gridLayout | 1, 0, 1, 1 | buttonBox", "gridLayout_2 | 0, 0, 1, 1 | smoothDlg_Zone_Label",
                    "gridLayout_2 | 0, 1, 1, 1 | smoothDlg_Zone_ComboBox",
                    "gridLayout_2 | 1, 0, 1, 1 | smoothDlg_Variable_Label",
                    "gridLayout_2 | 1, 1, 1, 1 | smoothDlg_Variable_ComboBox",
                    "gridLayout_2 | 2, 0, 1, 1 | smoothDlg_NumOfPasses_Label",
                    "gridLayout_2 | 2, 1, 1, 1 | smoothDlg_NumOfPasses_LineEdit",
                    "gridLayout_2 | 3, 0, 1, 1 | smoothDlg_Coefficient_Label",
                    "gridLayout_2 | 3, 1, 1, 1 | smoothDlg_Coefficent_LineEdit",
                    "gridLayout_2 | 4, 0, 1, 1 | smoothDlg_Boundary_Label",
                    "gridLayout_2 | 4, 1, 1, 1 | smoothDlg_Boundary_ComboBox"));
}

TEST_F(SmoothDialogTest, CanBeWalkedByTab)
{
    EXPECT_THAT(tabOrder(launched()),
                ElementsAre(zone, variable, passes, coefficient, boundary, "[&Smooth]", "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &child<QComboBox>(zone));
}

TEST_F(SmoothDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Smooth>"));
    for (char const* const text : {"Smooth", "&Zone:", "&Variable:", "&Number of passes:", "C&oefficient:",
                                   "&Boundary:", "Fixed", "First Order", "Second Order"})
        EXPECT_EQ(translator.asked.count(std::string("SmoothDialog: ") + text), 1u) << text;
    EXPECT_EQ(actionButton().text(), QStringLiteral("&Smooth"));
}

TEST_F(SmoothDialogTest, StartsWithTheFirstZoneAndVariableOfItsLists)
{
    launched();
    EXPECT_THAT(choicesOf(zone), ElementsAre("1: Wing", "2: Body", "3: Tail", "4: Line"));
    EXPECT_THAT(choicesOf(variable), ElementsAre("3: P", "4: T"));
    EXPECT_EQ(chosen(zone), "1: Wing");
    EXPECT_EQ(chosen(variable), "3: P");
    EXPECT_EQ(SmoothPropertiesManager::selectedVariable()->value(), 3) << "1 is on an axis";
    EXPECT_EQ(shown(passes), "1");
    EXPECT_EQ(shown(coefficient), "0.5");
    EXPECT_EQ(chosen(boundary), "Fixed");
    EXPECT_TRUE(isEnabled(boundary));
    EXPECT_TRUE(isEnabled(boundaryLabel));
}

TEST_F(SmoothDialogTest, OffersBoundaryConditionsInTheOrderOfTheirNumbers)
{
    launched();
    EXPECT_THAT(choicesOf(boundary), ElementsAre("Fixed", "First Order", "Second Order"));
    for (int row = 0; row < 3; ++row) {
        choose(boundary, row);
        EXPECT_EQ(boundaryValue(), row);
    }
}

TEST_F(SmoothDialogTest, FixesTheBoundaryOfAZoneThatIsNotOrderedAndGivesTheChoiceBack)
{
    launched();
    choose(boundary, 2);
    choose(zone, 1);
    EXPECT_EQ(chosen(boundary), "Fixed");
    EXPECT_FALSE(isEnabled(boundary));
    EXPECT_FALSE(isEnabled(boundaryLabel));
    choose(zone, 0);
    EXPECT_EQ(chosen(boundary), "Second Order");
    EXPECT_TRUE(isEnabled(boundary));
    EXPECT_TRUE(isEnabled(boundaryLabel));
    choose(boundary, 1);
    QTest::keyClick(&child<QComboBox>(zone), Qt::Key_End);
    EXPECT_EQ(chosen(zone), "4: Line");
    EXPECT_EQ(chosen(boundary), "First Order") << "from one ordered zone to another it stays";
}

TEST_F(SmoothDialogTest, RemembersTheChoiceOverOneZoneAndNoFurther)
{
    launched();
    choose(boundary, 2);
    SmoothPropertiesManager::selectedZone()->setValue(2);
    SmoothPropertiesManager::selectedZone()->setValue(3);
    SmoothPropertiesManager::selectedZone()->setValue(1);
    EXPECT_EQ(chosen(boundary), "Fixed");
    EXPECT_TRUE(isEnabled(boundary));
    choose(boundary, 1);
    choose(zone, 2); // by way of Body, as the arrow goes
    choose(zone, 0);
    EXPECT_EQ(chosen(boundary), "Fixed");
}

TEST_F(SmoothDialogTest, RemembersTheChoiceWhoeverChoosesTheZone)
{
    launched();
    choose(boundary, 2);
    SmoothPropertiesManager::selectedZone()->setValue(3);
    EXPECT_EQ(chosen(zone), "3: Tail");
    EXPECT_EQ(chosen(boundary), "Fixed");
    EXPECT_FALSE(isEnabled(boundary));
    enableZone(3, false);
    EXPECT_EQ(chosen(zone), "1: Wing") << "Tail has fallen out of the list";
    EXPECT_EQ(chosen(boundary), "Second Order");
    EXPECT_TRUE(isEnabled(boundary));
}

TEST_F(SmoothDialogTest, RemembersTheChoiceWithoutADialogToo)
{
    SmoothPropertiesManager::boundaryCondition()->setValue(BoundaryCondition_FirstOrder);
    SmoothPropertiesManager::selectedZone()->setValue(2);
    EXPECT_EQ(boundaryValue(), BoundaryCondition_Fixed);
    SmoothPropertiesManager::selectedZone()->setValue(4);
    EXPECT_EQ(boundaryValue(), BoundaryCondition_FirstOrder);
}

TEST_F(SmoothDialogTest, FixesTheBoundaryForGoodWhenOtherDataHaveAnUnorderedZoneUnderTheNumber)
{
    launched();
    choose(boundary, 2);
    auto const other = SampleSession::makeDataSet({"Mesh", "Grid"}, {"X", "Y", "P", "T"});
    other->zone(1)->type = ZoneType_FETriangle;
    sample.session().setFrameDataSet(sample.frame()->id, other);
    showAs(PlotType_Cartesian2D);
    EXPECT_EQ(chosen(zone), "1: Mesh");
    EXPECT_EQ(chosen(boundary), "Fixed");
    EXPECT_FALSE(isEnabled(boundary));
    choose(zone, 1);
    EXPECT_EQ(chosen(boundary), "Fixed") << "Mesh was not chosen, so nothing was saved";
    EXPECT_TRUE(isEnabled(boundary));
}

TEST_F(SmoothDialogTest, FixesTheBoundaryAlsoWhenItIsMadeForAnUnorderedZone)
{
    SmoothPropertiesManager::selectedZone()->setValue(2);
    SmoothPropertiesManager::boundaryCondition()->setValue(BoundaryCondition_SecondOrder);
    launched();
    EXPECT_EQ(chosen(zone), "2: Body");
    EXPECT_EQ(chosen(boundary), "Fixed");
    EXPECT_FALSE(isEnabled(boundary));
}

TEST_F(SmoothDialogTest, HasNoBoundaryToChooseWhileItsZoneIsDisabled)
{
    SmoothPropertiesManager const manager;
    EXPECT_TRUE(manager.boundaryRelevance()->isRelevant());
    enableZone(1, false);
    EXPECT_FALSE(manager.boundaryRelevance()->isRelevant());
    enableZone(1, true);
    EXPECT_TRUE(manager.boundaryRelevance()->isRelevant());
    sample.session().clear();
    EXPECT_FALSE(manager.boundaryRelevance()->isRelevant());
}

TEST_F(SmoothDialogTest, TakesCoefficientsUpToTheirLimits)
{
    launched();
    for (auto const& [typed, value] :
         {std::pair{"0.95", 0.95}, std::pair{"0.001", 0.001}, std::pair{"1.2e-38", 1.2e-38},
          std::pair{"1.1754943508222875e-38", double{std::numeric_limits<float>::min()}}}) {
        enter(coefficient, typed);
        EXPECT_EQ(SmoothPropertiesManager::smoothWeight()->value(), value);
    }
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(SmoothDialogTest, RefusesACoefficientOfZeroAndOneTooLarge)
{
    launched();
    for (char const* const typed : {"0", "0.951", "1", "-0.5", "1.17549e-38"}) {
        enter(coefficient, typed);
        EXPECT_THAT(messages.take(), ElementsAre(outsideCoefficients)) << typed;
        EXPECT_EQ(shown(coefficient), "0.5");
        EXPECT_EQ(dialog().focusWidget(), &child<QLineEdit>(coefficient));
    }
    EXPECT_EQ(SmoothPropertiesManager::smoothWeight()->value(), 0.5);
}

TEST_F(SmoothDialogTest, RefusesNoPassesAtAll)
{
    launched();
    enter(passes, "0");
    EXPECT_THAT(messages.take(), ElementsAre(outsidePasses));
    EXPECT_EQ(shown(passes), "1");
    for (int const number : {1, 50, 2147483647}) {
        enter(passes, std::to_string(number));
        EXPECT_EQ(SmoothPropertiesManager::numberOfPasses()->value(), number);
    }
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(SmoothDialogTest, PutsTheValueBackWithoutAWordWhenTheTextIsNoNumber)
{
    launched();
    for (char const* const text : {"", "often", "1.5", "2147483648"}) {
        enter(passes, text);
        EXPECT_EQ(shown(passes), "1") << text;
    }
    for (char const* const text : {"", "much", "0,5"}) {
        enter(coefficient, text);
        EXPECT_EQ(shown(coefficient), "0.5") << text;
    }
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(SmoothDialogTest, FollowsTheDataSet)
{
    launched();
    selectBump();
    sample.session().perform(kernel::EnableVariable(sample.dataSet(), 3, false));
    EXPECT_THAT(choicesOf(variable), ElementsAre("4: T"));
    EXPECT_EQ(SmoothPropertiesManager::selectedVariable()->value(), 4);
    enableZone(4, false);
    EXPECT_THAT(choicesOf(zone), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    EXPECT_EQ(SmoothPropertiesManager::selectedZone()->value(), 1);
}

TEST_F(SmoothDialogTest, IsGreyInASketchWhichHasNothingToSmooth)
{
    launched();
    showAs(PlotType_Sketch);
    EXPECT_THAT(choicesOf(variable), IsEmpty());
    EXPECT_FALSE(isEnabled(zone));
    EXPECT_FALSE(canAct());
    showAs(PlotType_Cartesian3D);
    EXPECT_TRUE(isEnabled(zone));
    EXPECT_TRUE(canAct());
}

TEST_F(SmoothDialogTest, KeepsAllItsSettingsWhenItIsMadeAnew)
{
    launched();
    choose(zone, 3);
    choose(variable, 1);
    enter(passes, "12");
    enter(coefficient, "0.25");
    choose(boundary, 2);
    delete &dialog();
    launched();
    EXPECT_EQ(chosen(zone), "4: Line");
    EXPECT_EQ(chosen(variable), "4: T");
    EXPECT_EQ(shown(passes), "12");
    EXPECT_EQ(shown(coefficient), "0.25");
    EXPECT_EQ(chosen(boundary), "Second Order");
}

TEST_F(SmoothDialogTest, CanBeUsedByKeyboardAlone)
{
    launched();
    auto const alt = [this](Qt::Key key) {
        QTest::keyClick(dialog().focusWidget(), key, Qt::AltModifier);
        return dialog().focusWidget()->objectName().toStdString();
    };
    EXPECT_EQ(alt(Qt::Key_B), boundary);
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Down);
    EXPECT_EQ(alt(Qt::Key_V), variable);
    EXPECT_EQ(alt(Qt::Key_Z), zone);
    QTest::keyClick(dialog().focusWidget(), Qt::Key_End);
    EXPECT_EQ(alt(Qt::Key_N), passes);
    EXPECT_EQ(alt(Qt::Key_O), coefficient);
    QTest::keyClicks(dialog().focusWidget(), QStringLiteral("0.25"));
    QTest::keyClick(dialog().focusWidget(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return values(line, 3) != bump; }));
    // The coefficient was being typed, and counts. The boundary has the values beside it.
    EXPECT_EQ(values(line, 3), (std::vector<double>{0.125, 0.125, 0.75, 0.125, 0.125}));
    EXPECT_THAT(messages.take(), ElementsAre("information: Smoothing was successful."));
}

TEST_F(SmoothDialogTest, SmoothsInPlaceAsOneStepAndKeepsItsSettings)
{
    launched();
    selectBump();
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("information: Smoothing was successful."));
    EXPECT_EQ(values(line, 3), smoothBump);
    EXPECT_EQ(values(line, 4), std::vector<double>(5, 2.0));
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(chosen(zone), "4: Line");
    EXPECT_EQ(chosen(variable), "3: P");
    sample.session().undo();
    EXPECT_EQ(values(line, 3), bump);
}

} // namespace
} // namespace veldraw::tests
