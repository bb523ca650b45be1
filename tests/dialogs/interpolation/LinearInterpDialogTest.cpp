#include "dialogs/widgets/NumberValidators.h"
#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/LinearInterpFixture.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"

#include <QDoubleValidator>

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string const noSources = "error: No source zones were specified.";
std::string const noVariables = "error: No variables were specified.";
std::string const sameZone = "error: Source zone is the same as destination zone.";

// The settings as they are before any test has touched them.
class LinearInterpAtLoad : public testing::Environment
{
public:
    void SetUp() override
    {
        value = LinearInterpPropertiesManager::outsidePointValue()->value();
        mode = LinearInterpPropertiesManager::linearInterpMode()->value();
    }
    static inline double value = -1.0;
    static inline int mode = -1;
};
testing::Environment* const linearInterpAtLoad = testing::AddGlobalTestEnvironment(new LinearInterpAtLoad);

class LinearInterpDialogTest : public LinearInterpFixture
{
};

TEST_F(LinearInterpDialogTest, LooksAsItsFormSays)
{
    EXPECT_THAT(
        formTable(launched()),
        ElementsAre("LinearInterpDialogClass | veldraw::dialogs::common::QtDialogAbstract | Linear Interpolation |  | ",
                    "label | QLabel | &Source zone(s) |  | LinearIterp_SourceZones_ListView",
                    "LinearIterp_SourceZones_ListView | QListView |  |  | ",
                    "label_2 | QLabel | &Variable(s) |  | LinearIterp_SourceVariables_ListView",
                    "LinearIterp_SourceVariables_ListView | QListView |  |  | ",
                    "label_3 | QLabel | &Destination zone |  | LinearIterp_DestZone_ComboBox",
                    "LinearIterp_DestZone_ComboBox | QComboBox |  |  | ", "label_4 | QLabel | Outside points |  | ",
                    "LinearIterp_NoChange_RadioButton | QRadioButton | Do &not change |  | ",
                    "LinearIterp_Constant_RadioButton | QRadioButton | &Constant |  | ",
                    "LinearIterp_ConstValue_Label | QLabel | Constant va&lue: |  | LinearIterp_ConstValue_LineEdit",
                    "LinearIterp_ConstValue_LineEdit | QLineEdit | 0 |  | ", "buttonBox | QDialogButtonBox |  |  | ",
                    " | QPushButton | Close |  | ", " | QPushButton | &Interpolate |  | ",
                    " | QPushButton | Help |  | "));
    EXPECT_EQ(dialog().size(), QSize(363, 400));
    EXPECT_FALSE(dialog().isModal());
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::MultiSelection);
    EXPECT_EQ(child<QListView>(variables).selectionMode(), QAbstractItemView::MultiSelection);
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
}

TEST_F(LinearInterpDialogTest, LaysItsWidgetsOutInAGrid)
{
    EXPECT_THAT(
        formLayout(dialog()),
        testing::UnorderedElementsAre(
            "gridLayout | 0, 0, 1, 2 | hboxLayout", "hboxLayout | 0 | vboxLayout", "hboxLayout | 1 | vboxLayout1",
            "vboxLayout | 0 | label", "vboxLayout | 1 | LinearIterp_SourceZones_ListView", "vboxLayout1 | 0 | label_2",
            "vboxLayout1 | 1 | LinearIterp_SourceVariables_ListView", "gridLayout | 1, 0, 1, 1 | label_3",
            "gridLayout | 1, 1, 1, 1 | LinearIterp_DestZone_ComboBox", "gridLayout | 2, 0, 1, 2 | gridLayout_4",
            "gridLayout_4 | 0, 0, 1, 3 | label_4", "gridLayout_4 | 1, 0, 1, 3 | LinearIterp_NoChange_RadioButton",
            "gridLayout_4 | 2, 0, 1, 1 | LinearIterp_Constant_RadioButton",
            "gridLayout_4 | 2, 1, 1, 1 | LinearIterp_ConstValue_Label",
            "gridLayout_4 | 2, 2, 1, 1 | LinearIterp_ConstValue_LineEdit", "gridLayout | 3, 0, 1, 2 | buttonBox"));
}

TEST_F(LinearInterpDialogTest, CanBeWalkedByTab)
{
    EXPECT_THAT(tabOrder(launched()),
                ElementsAre("LinearIterp_SourceZones_ListView", "LinearIterp_SourceVariables_ListView",
                            "LinearIterp_DestZone_ComboBox", "LinearIterp_NoChange_RadioButton",
                            "LinearIterp_Constant_RadioButton", "LinearIterp_ConstValue_LineEdit", "[&Interpolate]",
                            "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &list());
}

TEST_F(LinearInterpDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Linear Interpolation>"));
    for (char const* const text : {"Linear Interpolation", "&Source zone(s)", "&Variable(s)", "&Destination zone",
                                   "Outside points", "Do &not change", "&Constant", "Constant va&lue:"})
        EXPECT_EQ(translator.asked.count(std::string("LinearInterpDialogClass: ") + text), 1u) << text;
    EXPECT_EQ(actionButton().text(), QStringLiteral("&Interpolate"));
    EXPECT_EQ(child<QLabel>(constantLabel).text(), QStringLiteral("<Constant va&lue:>"))
        << "the form's, as it is shown";
}

TEST_F(LinearInterpDialogTest, StartsWithPointsOutsideLeftAlone)
{
    ASSERT_TRUE(linearInterpAtLoad);
    EXPECT_EQ(LinearInterpAtLoad::value, 0.0);
    EXPECT_EQ(LinearInterpAtLoad::mode, 0);
    launched();
    EXPECT_TRUE(isChecked(noChange));
    EXPECT_FALSE(isChecked(constant));
    EXPECT_EQ(shown(constantValue), "0");
    EXPECT_FALSE(isEnabled(constantValue));
    EXPECT_FALSE(isEnabled(constantLabel));
}

TEST_F(LinearInterpDialogTest, OffersZonesOfMoreThanOneDimensionAsSourcesAndAllAsDestinations)
{
    addLine();
    launched();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    EXPECT_THAT(choicesOf(destination), ElementsAre("1: Wing", "2: Body", "3: Tail", "4: Line"));
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, false));
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "3: Tail"));
    EXPECT_THAT(choicesOf(destination), ElementsAre("1: Wing", "3: Tail", "4: Line"));
}

TEST_F(LinearInterpDialogTest, AsksForTheConstantOnlyWherePointsGetIt)
{
    launched();
    clickMark(constant);
    EXPECT_EQ(LinearInterpPropertiesManager::linearInterpMode()->value(), LinearInterpMode_SetToConstant);
    EXPECT_TRUE(isEnabled(constantValue));
    EXPECT_TRUE(isEnabled(constantLabel));
    enter(constantValue, "-2.5");
    EXPECT_EQ(LinearInterpPropertiesManager::outsidePointValue()->value(), -2.5);
    clickMark(noChange);
    EXPECT_EQ(LinearInterpPropertiesManager::linearInterpMode()->value(), LinearInterpMode_DontChange);
    EXPECT_FALSE(isEnabled(constantValue));
    EXPECT_FALSE(isEnabled(constantLabel));
    EXPECT_EQ(shown(constantValue), "-2.5") << "for the next time";
}

TEST_F(LinearInterpDialogTest, TakesAnyNumberAsTheConstantAndNothingElse)
{
    auto const* const validator = qobject_cast<QDoubleValidator const*>(child<QLineEdit>(constantValue).validator());
    ASSERT_TRUE(validator);
    EXPECT_EQ(validator->objectName(), QString()) << "the dialog's own, not a binding's";
    EXPECT_EQ(validator->bottom(), -HUGE_VAL);
    EXPECT_EQ(validator->top(), HUGE_VAL);
    launched();
    clickMark(constant);
    enter(constantValue, "1e300");
    EXPECT_EQ(LinearInterpPropertiesManager::outsidePointValue()->value(), 1e300);
    for (char const* const text : {"1,5", "1.5 m", "much", ""}) {
        enter(constantValue, text);
        EXPECT_EQ(LinearInterpPropertiesManager::outsidePointValue()->value(), 1e300) << text;
        EXPECT_EQ(shown(constantValue), "1e+300") << text;
    }
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(LinearInterpDialogTest, LeavesPointsOutsideAloneOrGivesThemTheConstant)
{
    launched();
    clickRow(0);
    clickRowOf(variables, 1);
    choose(destination, 2);
    clickAction();
    // Of Tail's points only (0.5, 0.5) and (1.5, 0.5) lie within Wing, where T is 1 + x y.
    EXPECT_EQ(values(3, 4), (std::vector<double>{1.25, 1.75, -1.0, -1.0, -1.0, -1.0}));
    clickMark(constant);
    enter(constantValue, "7");
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(done, done));
    EXPECT_EQ(values(3, 4), (std::vector<double>{1.25, 1.75, 7.0, 7.0, 7.0, 7.0}));
}

TEST_F(LinearInterpDialogTest, SaysWhichSelectionIsMissingTheZonesFirst)
{
    launched();
    EXPECT_TRUE(canAct());
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(noSources));
    clickRowOf(variables, 0);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(noSources));
    clickRowOf(variables, 0);
    clickRow(1);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(noVariables));
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "3: Tail"));
    EXPECT_TRUE(dialog().isVisible());
}

TEST_F(LinearInterpDialogTest, RefusesASingleSourceThatIsTheDestination)
{
    launched();
    clickRow(0);
    clickRowOf(variables, 0);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(sameZone));
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "2: Body", "3: Tail"));
}

TEST_F(LinearInterpDialogTest, TellsThatNoVariableIsSelectedBeforeItLooksAtTheDestination)
{
    launched();
    clickRow(0);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(noVariables));
}

TEST_F(LinearInterpDialogTest, ReachesItsSettingsByTheirLetters)
{
    launched();
    EXPECT_EQ(focusAfterAlt(Qt::Key_C), constant);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isChecked(constant); }));
    EXPECT_EQ(focusAfterAlt(Qt::Key_L), constantValue);
    EXPECT_EQ(focusAfterAlt(Qt::Key_N), noChange);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isChecked(noChange); }));
}

TEST_F(LinearInterpDialogTest, KeepsTheConstantWhenItIsMadeAnew)
{
    launched();
    clickMark(constant);
    enter(constantValue, "4.5");
    delete &dialog();
    launched();
    EXPECT_TRUE(isChecked(constant));
    EXPECT_EQ(shown(constantValue), "4.5");
    EXPECT_TRUE(isEnabled(constantValue));
}

} // namespace
} // namespace veldraw::tests
