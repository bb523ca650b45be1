// What the dialogs that interpolate do alike.
#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/InterpolationUnderSpy.h"
#include "tests/dialogs/interpolation/InverseDistanceFixture.h"
#include "tests/dialogs/interpolation/KrigingFixture.h"
#include "tests/dialogs/interpolation/LinearInterpFixture.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;

template <typename Fixture>
class InterpolationsTest : public InterpolationUnderSpy<Fixture>
{
protected:
    void expectSelected(std::vector<std::string> const& zones, std::vector<std::string> const& vars,
                        std::string const& destinationZone)
    {
        EXPECT_EQ(this->rows(), zones);
        EXPECT_EQ(this->rowsOf(Fixture::variables), vars);
        EXPECT_EQ(this->chosen(Fixture::destination), destinationZone);
    }

    void expectNothingSelected() { expectSelected({"1: Wing", "2: Body", "3: Tail"}, {"3: P", "4: T"}, "1: Wing"); }

    void expectWingToBodySelected()
    {
        expectSelected({"*1: Wing", "2: Body", "3: Tail"}, {"*3: P", "4: T"}, "2: Body");
    }

    void enableZone(int zone, bool isEnabled)
    {
        this->sample.session().perform(kernel::EnableZone(this->sample.dataSet(), zone, isEnabled));
        IdleDispatcher::flush();
    }
};

using Dialogs = testing::Types<InverseDistanceFixture, KrigingFixture, LinearInterpFixture>;
TYPED_TEST_SUITE(InterpolationsTest, Dialogs);

TYPED_TEST(InterpolationsTest, StartWithNothingSelectedAndTheFirstZone)
{
    this->expectNothingSelected();
    EXPECT_THAT(this->choicesOf(TestFixture::destination), ElementsAre("1: Wing", "2: Body", "3: Tail"));
}

TYPED_TEST(InterpolationsTest, InterpolateBetweenTheSelectedZonesAndKeepTheSelections)
{
    this->selectWingToBody();
    this->clickAction();
    this->expectTold({TestFixture::done}, "from Wing to Body");
    EXPECT_TRUE(this->bodyIsLikeWing(3)) << "the points are the same, so are the values";
    EXPECT_EQ(this->values(2, 4), this->untouched);
    EXPECT_EQ(this->values(3, 3), this->untouched);
    this->expectWingToBodySelected();
}

TYPED_TEST(InterpolationsTest, AreOneStepThatIsTakenBackAndDoneAgain)
{
    this->selectWingToBody();
    this->clickAction();
    this->sample.session().undo();
    EXPECT_EQ(this->values(2, 3), this->untouched);
    this->sample.session().redo();
    EXPECT_TRUE(this->bodyIsLikeWing(3));
    this->expectWingToBodySelected();
}

TYPED_TEST(InterpolationsTest, TellAFailureOnceAndKeepTheSelectionsForAnotherTry)
{
    this->selectWingToBody();
    this->spy.failNext(TestFixture::kernelFunction);
    this->clickAction();
    this->expectTold({TestFixture::failed}, "refused");
    EXPECT_EQ(this->spy.count(TestFixture::kernelFunction), 1) << "nothing tries again by itself";
    EXPECT_EQ(this->values(2, 3), this->untouched);
    this->expectWingToBodySelected();
    this->clickAction();
    this->expectTold({TestFixture::done}, "another try");
    EXPECT_TRUE(this->bodyIsLikeWing(3));
}

TYPED_TEST(InterpolationsTest, TellThatALockedDataSetRefuses)
{
    this->selectWingToBody();
    this->sample.session().setLock(this->sample.dataSet(), "another operation");
    this->clickAction();
    this->expectTold({TestFixture::failed}, "locked");
    EXPECT_EQ(this->values(2, 3), this->untouched);
}

TYPED_TEST(InterpolationsTest, CanBeUsedByKeyboardAlone)
{
    EXPECT_EQ(this->focusAfterAlt(Qt::Key_S), this->traits.list);
    QTest::keyClick(&this->list(), Qt::Key_Home);
    QTest::keyClick(&this->list(), Qt::Key_Space);
    EXPECT_EQ(this->focusAfterAlt(Qt::Key_V), TestFixture::variables);
    QTest::keyClick(this->dialog().focusWidget(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(this->focusAfterAlt(Qt::Key_D), TestFixture::destination);
    QTest::keyClick(this->dialog().focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(this->canAct());
    QTest::keyClick(this->dialog().focusWidget(), Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return this->bodyIsLikeWing(4); }));
    EXPECT_TRUE(this->bodyIsLikeWing(3));
    EXPECT_THAT(this->messages.take(), ElementsAre(TestFixture::done));
}

TYPED_TEST(InterpolationsTest, CannotBeUsedOutsideFieldPlotsHoweverReady)
{
    this->selectWingToBody();
    this->showAs(PlotType_XYLine);
    EXPECT_FALSE(this->list().isEnabled());
    EXPECT_FALSE(this->canAct());
    this->showAs(PlotType_Cartesian2D);
    EXPECT_TRUE(this->list().isEnabled());
    EXPECT_TRUE(this->canAct());
}

TYPED_TEST(InterpolationsTest, NeedASecondZone)
{
    this->enableZone(2, false);
    EXPECT_TRUE(this->list().isEnabled());
    this->enableZone(3, false);
    EXPECT_FALSE(this->list().isEnabled());
    this->enableZone(3, true);
    EXPECT_TRUE(this->list().isEnabled());
}

TYPED_TEST(InterpolationsTest, FollowTheActiveFrame)
{
    auto const other = this->sample.session().createFrame("Empty", kernel::Rectangle{1.0, 1.0, 8.0, 6.0});
    EXPECT_FALSE(this->isEnabled(this->traits.list));
    this->sample.session().activateFrame(this->sample.frame()->id);
    EXPECT_TRUE(this->isEnabled(this->traits.list));
    this->sample.session().activateFrame(other->id);
    EXPECT_FALSE(this->isEnabled(this->traits.list));
}

TYPED_TEST(InterpolationsTest, BeginAnewWithoutSelections)
{
    this->selectWingToBody();
    delete &this->dialog();
    this->launched();
    this->expectNothingSelected();
}

TYPED_TEST(InterpolationsTest, EndByTheSignalsOfTheirButtonBox)
{
    int ends = 0;
    QObject::connect(&this->dialog(), &QDialog::finished, &this->dialog(), [&ends] { ++ends; });
    Q_EMIT this->buttonBox().rejected();
    EXPECT_FALSE(this->dialog().isVisible());
    EXPECT_EQ(this->dialog().result(), QDialog::Rejected);
    EXPECT_EQ(ends, 1) << "joined once, whoever joins them";
}

TYPED_TEST(InterpolationsTest, StayWholeAndReleaseTheirGuardsWhicheverKernelCallFails)
{
    this->sweep(&KernelSpy::failCall);
}

TYPED_TEST(InterpolationsTest, StayWholeAndReleaseTheirGuardsWhenAllKernelCallsFailFromOneOn)
{
    this->sweep(&KernelSpy::failFrom);
}

} // namespace
} // namespace veldraw::tests
