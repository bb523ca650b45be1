#include "dialogs/interpolation/InverseDistanceInterpolationPropertiesGenerated.h"

#include "dialogs/property/KernelPropertyDeferred.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "tests/support/StyleSession.h"

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using sdk::styleproperties::KernelProperty;
using sdk::styleproperties::KernelPropertyDeferred;
using sdk::ui::propertymanager::InverseDistanceInterpolationPropertiesGenerated;
using testing::ElementsAre;
using testing::IsEmpty;
using toolbox::CheckedStyleValue;
using toolbox::StringList;
using toolbox::StyleValue;

class InverseDistanceInterpolationPropertiesGeneratedTest : public testing::Test
{
protected:
    StyleSession sample;
};

TEST_F(InverseDistanceInterpolationPropertiesGeneratedTest, StartsWithTheValuesOfTheKernel)
{
    StyleSession::setNumber(radiusPath, 0.125);
    for (bool const deferred : {false, true}) {
        InverseDistanceInterpolationPropertiesGenerated const settings(deferred, StringList());
        EXPECT_EQ(settings.isModal(), deferred);
        EXPECT_EQ(settings.parent(), nullptr);
        EXPECT_EQ(settings.invDistExponent()->value(), 2.0);
        EXPECT_EQ(settings.invDistMinRadius()->value(), 0.125);
        EXPECT_EQ(settings.interpNPoints()->value(), 8);
        EXPECT_EQ(settings.interpPtSelection()->value(), PtSelection_Octant);
    }
}

TEST_F(InverseDistanceInterpolationPropertiesGeneratedTest, WritesAtOnceUnlessItIsDeferred)
{
    InverseDistanceInterpolationPropertiesGenerated const settings(false, StringList());
    sample.takeEvents();
    settings.invDistExponent()->setValue(3.0);
    settings.invDistMinRadius()->setValue(0.5);
    settings.interpNPoints()->setValue(20);
    settings.interpPtSelection()->setValue(PtSelection_All);
    EXPECT_THAT(sample.takeEvents(),
                ElementsAre("7 Interface, Data, InvDistExponent", "7 Interface, Data, InvDistMinRadius",
                            "7 Interface, Data, InterpNPoints", "7 Interface, Data, InterpPTSelection"));
    EXPECT_EQ(StyleSession::number(exponentPath), 3.0);
    EXPECT_EQ(StyleSession::number(radiusPath), 0.5);
    EXPECT_EQ(StyleSession::number(pointsPath), 20.0);
    EXPECT_EQ(StyleSession::number(selectionPath), PtSelection_All);
}

TEST_F(InverseDistanceInterpolationPropertiesGeneratedTest, WritesOnSubmissionWhenItIsDeferred)
{
    InverseDistanceInterpolationPropertiesGenerated settings(true, StringList());
    settings.invDistExponent()->setValue(3.0);
    settings.invDistMinRadius()->setValue(0.5);
    settings.interpNPoints()->setValue(20);
    settings.interpPtSelection()->setValue(PtSelection_NearestN);
    sample.takeEvents();
    EXPECT_EQ(StyleSession::number(exponentPath), 2.0);
    settings.submit();
    EXPECT_THAT(sample.takeEvents(),
                ElementsAre("7 Interface, Data, InvDistExponent", "7 Interface, Data, InvDistMinRadius",
                            "7 Interface, Data, InterpNPoints", "7 Interface, Data, InterpPTSelection"));
    EXPECT_EQ(StyleSession::number(pointsPath), 20.0);
    EXPECT_EQ(StyleSession::number(selectionPath), PtSelection_NearestN);
}

TEST_F(InverseDistanceInterpolationPropertiesGeneratedTest, HasNothingToSubmitWhenItWritesAtOnce)
{
    InverseDistanceInterpolationPropertiesGenerated settings(false, StringList());
    settings.invDistExponent()->setValue(3.0);
    sample.takeEvents();
    settings.submit();
    EXPECT_THAT(sample.takeEvents(), IsEmpty());
}

TEST_F(InverseDistanceInterpolationPropertiesGeneratedTest, PassesARefusalOn)
{
    InverseDistanceInterpolationPropertiesGenerated atOnce(false, StringList());
    EXPECT_THROW(atOnce.invDistExponent()->setValue(-1.0), InvalidPropertyValueException);
    EXPECT_EQ(atOnce.invDistExponent()->value(), 2.0);

    InverseDistanceInterpolationPropertiesGenerated deferred(true, StringList());
    deferred.interpNPoints()->setValue(0);
    EXPECT_THROW(deferred.submit(), InvalidPropertyValueException);
    EXPECT_EQ(StyleSession::number(pointsPath), 8.0);
}

TEST_F(InverseDistanceInterpolationPropertiesGeneratedTest, SubmitsThePropertiesThatReplaceItsOwn)
{
    InverseDistanceInterpolationPropertiesGenerated settings(true, StringList());
    StyleValue const exponent("Interface", "Data", "InvDistExponent");
    StyleValue const radius("Interface", "Data", "InvDistMinRadius");
    StyleValue const points("Interface", "Data", "InterpNPoints");
    StyleValue const selection("Interface", "Data", "InterpPTSelection");
    auto const otherExponent = boost::make_shared<KernelPropertyDeferred<double>>(exponent);
    auto const otherRadius = boost::make_shared<KernelPropertyDeferred<double>>(radius);
    auto const otherPoints = boost::make_shared<KernelPropertyDeferred<long long>>(points);
    auto const otherSelection = boost::make_shared<KernelProperty<PtSelection_e>>(selection);
    settings.setInvDistExponent(otherExponent);
    settings.setInvDistMinRadius(otherRadius);
    settings.setInterpNPoints(otherPoints);
    settings.setInterpPtSelection(otherSelection);
    EXPECT_EQ(settings.invDistExponent(), otherExponent);
    EXPECT_EQ(settings.invDistMinRadius(), otherRadius);
    EXPECT_EQ(settings.interpNPoints(), otherPoints);
    EXPECT_EQ(settings.interpPtSelection(), otherSelection);
    otherExponent->setValue(7.0);
    otherRadius->setValue(0.75);
    otherPoints->setValue(5);
    settings.submit();
    EXPECT_EQ(StyleSession::number(exponentPath), 7.0);
    EXPECT_EQ(StyleSession::number(radiusPath), 0.75);
    EXPECT_EQ(StyleSession::number(pointsPath), 5.0);
}

TEST_F(InverseDistanceInterpolationPropertiesGeneratedTest, PutsItsPrefixInFrontOfThePaths)
{
    StringList const unknown("Nowhere", static_cast<char const*>(nullptr));
    EXPECT_THROW(InverseDistanceInterpolationPropertiesGenerated(false, unknown), InvalidArgumentException);
}

} // namespace
} // namespace veldraw::tests
