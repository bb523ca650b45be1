#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/LinearInterpFixture.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/support/FakeStateChange.h"

#include <QPointer>
#include <QRadioButton>

#include <gmock/gmock.h>

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(LinearInterp, DialogLifecycleTest, testing::Values(linearInterp()));
INSTANTIATE_TEST_SUITE_P(LinearInterp, DialogActionLifecycleTest, testing::Values(linearInterp()));

namespace {

class LinearInterpLifecycleTest : public LinearInterpFixture
{
protected:
    bool isAvailable() const { return traits.relevance()->isRelevant(); }

    void enableZone(int zone, bool isEnabled)
    {
        sample.session().perform(kernel::EnableZone(sample.dataSet(), zone, isEnabled));
    }
};

TEST_F(LinearInterpLifecycleTest, BindsItsFieldsInOrder)
{
    AdditionsToWidgets const additions;
    dialog();
    EXPECT_THAT(additions.names, testing::ElementsAre(traits.list, variables, destination, constantValue));
}

TEST_F(LinearInterpLifecycleTest, BindsItsButtonLast)
{
    EXPECT_THAT(boundBeforeTheButton(traits.refusal),
                testing::ElementsAre(traits.list, variables, destination, constantValue));
    actionButton().click();
    EXPECT_THAT(messages.take(), testing::ElementsAre(traits.refusal));
}

// A mark that is bound sets the property.
TEST_F(LinearInterpLifecycleTest, BindsItsMarksAfterTheSelectionsAndBeforeTheConstant)
{
    auto const mode = LinearInterpPropertiesManager::linearInterpMode();
    std::vector<std::string> boundAfterMarks;
    AdditionsToWidgets const additions([&](QWidget& widget) {
        auto const mark = [&widget](char const* name) {
            return widget.window()->findChild<QRadioButton*>(QLatin1String(name));
        };
        mark(noChange)->setChecked(true);
        mode->setValue(LinearInterpMode_DontChange);
        mark(constant)->setChecked(true);
        bool const isConstantBound = mode->value() == LinearInterpMode_SetToConstant;
        mode->setValue(LinearInterpMode_SetToConstant);
        mark(noChange)->setChecked(true);
        bool const isNoChangeBound = mode->value() == LinearInterpMode_DontChange;
        EXPECT_EQ(isConstantBound, isNoChangeBound) << widget.objectName().toStdString();
        if (isConstantBound)
            boundAfterMarks.push_back(widget.objectName().toStdString());
    });
    dialog();
    EXPECT_THAT(boundAfterMarks, testing::ElementsAre(constantValue));
}

// The field gets its text from its binding; a label that is bound shows its text as it is.
TEST_F(LinearInterpLifecycleTest, BindsItsLabelAfterTheConstant)
{
    std::vector<Qt::TextFormat> formats;
    AdditionsToWidgets const additions([&](QWidget& widget) {
        auto const* const label = widget.window()->findChild<QLabel*>(QLatin1String(constantLabel));
        if (auto const* const field = qobject_cast<QLineEdit*>(&widget))
            QObject::connect(field, &QLineEdit::textChanged, label,
                             [&formats, label] { formats.push_back(label->textFormat()); });
    });
    dialog();
    EXPECT_THAT(formats, testing::ElementsAre(Qt::AutoText));
    EXPECT_EQ(child<QLabel>(constantLabel).textFormat(), Qt::PlainText);
    QObject::disconnect(&child<QLineEdit>(constantValue), &QLineEdit::textChanged, &child<QLabel>(constantLabel),
                        nullptr);
}

TEST_F(LinearInterpLifecycleTest, BindsTheMarkOfTheConstantBeforeTheOther)
{
    LinearInterpPropertiesManager::linearInterpMode()->setValue(LinearInterpMode_SetToConstant);
    std::vector<std::string> order;
    AdditionsToWidgets const additions([&](QWidget& widget) {
        if (!order.empty())
            return;
        order.emplace_back("list");
        auto* const ofConstant = widget.window()->findChild<QRadioButton*>(QLatin1String(constant));
        auto* const ofNoChange = widget.window()->findChild<QRadioButton*>(QLatin1String(noChange));
        // Its binding sets the mark of the value that holds; the other mark has no binding yet then, and changes nothing.
        QObject::connect(ofConstant, &QRadioButton::toggled, &widget, [&order, ofNoChange](bool isOn) {
            if (!isOn || order.size() > 1)
                return;
            order.emplace_back("constant");
            ofNoChange->setChecked(true);
            order.emplace_back(LinearInterpPropertiesManager::linearInterpMode()->value() ==
                                       LinearInterpMode_SetToConstant
                                   ? "no other yet"
                                   : "the other before");
        });
    });
    dialog();
    EXPECT_THAT(order, testing::ElementsAre("list", "constant", "no other yet"));
}

TEST_F(LinearInterpLifecycleTest, AsksItsRuleAgainWhenThePlotTypeTheActiveFieldMapsOrTheDataChange)
{
    int signals = 0;
    boost::signals2::scoped_connection const listening =
        traits.relevance()->connectRelevanceChanged([&signals] { ++signals; });
    auto const signalsOf = [&signals](FakeStateChange const& event) {
        signals = 0;
        event.send();
        return signals;
    };
    for (int const kind : {StateChange_ValuesAltered, StateChange_VariablesAdded, StateChange_ZonesEnabled,
                           StateChange_FrameDataSet, StateChange_StateRestored, StateChange_NewActiveFrame})
        EXPECT_EQ(signalsOf(FakeStateChange(kind)), 1) << "kind " << kind;
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"PlotType"})), 1);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"ActiveFieldMaps"})), 1);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"TwoDAxis"})), 0);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style)), 0);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_MouseMode, {"PlotType"})), 0);
}

TEST_F(LinearInterpLifecycleTest, IsAvailableInFieldPlotsOnly)
{
    EXPECT_TRUE(isAvailable());
    showAs(PlotType_Cartesian3D);
    EXPECT_TRUE(isAvailable());
    for (PlotType_e const other : {PlotType_XYLine, PlotType_PolarLine, PlotType_Sketch}) {
        showAs(other);
        EXPECT_FALSE(isAvailable()) << other;
    }
}

TEST_F(LinearInterpLifecycleTest, NeedsAVariableThatIsNoCoordinate)
{
    for (int const variable : {3, 4})
        sample.session().perform(kernel::EnableVariable(sample.dataSet(), variable, false));
    EXPECT_FALSE(isAvailable());
    sample.session().perform(kernel::EnableVariable(sample.dataSet(), 3, true));
    EXPECT_TRUE(isAvailable());
}

TEST_F(LinearInterpLifecycleTest, NeedsTwoZonesOneOfThemWithCells)
{
    enableZone(2, false);
    EXPECT_TRUE(isAvailable());
    enableZone(3, false);
    EXPECT_FALSE(isAvailable()) << "one zone";
    addLine();
    EXPECT_TRUE(isAvailable()) << "one zone and a line";
    addLine();
    enableZone(1, false);
    EXPECT_FALSE(isAvailable()) << "two lines";
}

TEST_F(LinearInterpLifecycleTest, LetsGoOfItsSettingsWhichLiveOn)
{
    launched();
    clickMark(constant);
    delete &dialog();
    LinearInterpPropertiesManager::linearInterpMode()->setValue(LinearInterpMode_DontChange);
    LinearInterpPropertiesManager::outsidePointValue()->setValue(1.0);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

TEST_F(LinearInterpLifecycleTest, MayBeDestroyedWhenAChoiceIsMade)
{
    launched();
    QPointer<QDialog> const doomed = &dialog();
    boost::signals2::scoped_connection const listening =
        LinearInterpPropertiesManager::linearInterpMode()->connectValueChanged(
            [&doomed](LinearInterpMode_e) { doomed->deleteLater(); });
    clickMark(constant);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(LinearInterpPropertiesManager::linearInterpMode()->value(), LinearInterpMode_SetToConstant);
}

} // namespace
} // namespace veldraw::tests
