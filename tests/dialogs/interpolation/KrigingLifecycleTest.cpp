#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/KrigingFixture.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/support/FakeStateChange.h"

#include <QPointer>

#include <gmock/gmock.h>

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(Kriging, DialogLifecycleTest, testing::Values(kriging()));
INSTANTIATE_TEST_SUITE_P(Kriging, DialogActionLifecycleTest, testing::Values(kriging()));

namespace {

using KrigingLifecycleTest = KrigingFixture;

TEST_F(KrigingLifecycleTest, BindsItsFieldsInOrder)
{
    AdditionsToWidgets const additions;
    dialog();
    EXPECT_THAT(additions.names, testing::ElementsAre(traits.list, variables, destination, pointSelection, drift, range,
                                                      zeroValue, numberOfPoints));
}

TEST_F(KrigingLifecycleTest, BindsItsButtonFirst)
{
    EXPECT_THAT(boundBeforeTheButton(failed), testing::IsEmpty());
}

TEST_F(KrigingLifecycleTest, IsAcceptedByItsButtonBoxToo)
{
    launched();
    int ends = 0;
    QObject::connect(&dialog(), &QDialog::finished, &dialog(), [&ends] { ++ends; });
    Q_EMIT buttonBox().accepted();
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().result(), QDialog::Accepted);
    EXPECT_EQ(ends, 1);
}

TEST_F(KrigingLifecycleTest, HandsOutTheRuleOfItsManager)
{
    EXPECT_EQ(traits.relevance(), KrigingPropertiesManager::relevance());
}

TEST_F(KrigingLifecycleTest, AsksItsRuleAgainWhenTheEngineOrThePlotTypeChange)
{
    int signals = 0;
    boost::signals2::scoped_connection const listening =
        traits.relevance()->connectRelevanceChanged([&signals] { ++signals; });
    for (int const kind : {StateChange_VariablesEnabled, StateChange_ZonesEnabled, StateChange_FrameDataSet,
                           StateChange_NewActiveFrame, StateChange_StateRestored}) {
        signals = 0;
        FakeStateChange(kind).send();
        EXPECT_EQ(signals, 1) << "kind " << kind;
    }
    signals = 0;
    FakeStateChange(StateChange_ValuesAltered).send();
    EXPECT_EQ(signals, 0);
    FakeStateChange(StateChange_Style, {"PlotType"}).send();
    EXPECT_EQ(signals, 1);
}

TEST_F(KrigingLifecycleTest, LetsGoOfItsSettingsWhichLiveOn)
{
    launched();
    choose(pointSelection, 2);
    delete &dialog();
    KrigingPropertiesManager::krigPtSelection()->setValue(PtSelection_NearestN);
    KrigingPropertiesManager::krigRange()->setValue(0.5);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

TEST_F(KrigingLifecycleTest, MayBeDestroyedWhenAChoiceIsMade)
{
    launched();
    QPointer<QDialog> const doomed = &dialog();
    boost::signals2::scoped_connection const listening =
        KrigingPropertiesManager::krigDrift()->connectValueChanged([&doomed](Drift_e) { doomed->deleteLater(); });
    choose(drift, 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(KrigingPropertiesManager::krigDrift()->value(), Drift_Quadratic);
}

} // namespace
} // namespace veldraw::tests
