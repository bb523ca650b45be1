// Vectors in field plots: where arrows stand, where they point, and how long they are.
#include "app/plot/VectorLayer.h"

#include "app/plot/PlotTheme.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <vtkFloatArray.h>
#include <vtkPointData.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

using app::VectorLayer;
using kernel::Frame;

namespace {

constexpr int pointsAcross = 121;

/// A sheet over -1 to 1 that turns about its middle, with X, Y, Z, U, V, W.
SampleData::DataSetPtr turning(double height, bool atCells)
{
    auto set = std::make_shared<kernel::DataSet>("turning");
    for (char const* name : {"X", "Y", "Z", "U", "V", "W"})
        set->addVariable(std::make_shared<kernel::Variable>(name));
    auto zone = std::make_shared<kernel::Zone>("sheet", ZoneType_Ordered, pointsAcross, pointsAcross, 1);
    set->addZone(zone);
    std::vector<std::vector<double>> values(6);
    for (int point = 0; point < pointsAcross * pointsAcross; ++point) {
        double const x = 2.0 * (point % pointsAcross) / (pointsAcross - 1) - 1.0;
        double const y = height * (2.0 * (point / pointsAcross) / (pointsAcross - 1) - 1.0);
        values[0].push_back(x);
        values[1].push_back(y);
        values[2].push_back(0.0);
        values[3].push_back(-y);
        values[4].push_back(x);
        values[5].push_back(0.5);
    }
    for (std::size_t n = 0; n < 6; ++n)
        SampleData::addField(*zone, values[n], atCells && n > 2 ? ValueLocation_CellCentered : ValueLocation_Nodal);
    return set;
}

class Vectors : public ::testing::Test
{
protected:
    explicit Vectors(PlotType_e type = PlotType_Cartesian2D, double height = 1.0, bool atCells = false)
        : m_data(turning(height, atCells))
        , m_page({SampleData::frame("Turning", m_data, type)})
    {
        for (int n = 0; n < 3; ++n)
            m_page.session().perform(kernel::AssignVariable(m_page.frame().id, "UVW"[n], 4 + n));
    }

    void set(bool Frame::*option, bool value)
    {
        ASSERT_TRUE(m_page.session().perform(kernel::SetPlotOption(m_page.frame().id, option, value)));
        m_page.picture();
    }

    VectorLayer const& vectors() { return m_page.field().vectors(); }
    vtkIdType count() { return vectors().arrows().GetNumberOfPoints(); }

    // Where an arrow begins, in the unit of the data.
    std::array<double, 3> placeOf(vtkIdType arrow)
    {
        std::array<double, 3> place{};
        vectors().arrows().GetPoint(arrow, place.data());
        for (int axis = 0; axis < 2; ++axis)
            place[static_cast<std::size_t>(axis)] =
                m_page.field().space().toValue(axis, place[static_cast<std::size_t>(axis)]);
        return place;
    }

    std::array<double, 3> directionOf(vtkIdType arrow)
    {
        std::array<double, 3> direction{};
        vectors().arrows().GetPointData()->GetArray(VectorLayer::directionName)->GetTuple(arrow, direction.data());
        return direction;
    }

    double lengthOf(vtkIdType arrow)
    {
        return vectors().arrows().GetPointData()->GetArray(VectorLayer::lengthName)->GetTuple1(arrow);
    }

    QString remark() { return m_page.view().remark(m_page.frame().id); }

    SampleData::DataSetPtr m_data;
    PlotTestPage m_page;
};

class VectorsInSpace : public Vectors
{
protected:
    VectorsInSpace()
        : Vectors(PlotType_Cartesian3D)
    {
    }
};

class VectorsOfAThinSheet : public Vectors
{
protected:
    VectorsOfAThinSheet()
        : Vectors(PlotType_Cartesian2D, 0.02)
    {
    }
};

class VectorsAtCells : public Vectors
{
protected:
    VectorsAtCells()
        : Vectors(PlotType_Cartesian2D, 1.0, true)
    {
    }
};

} // namespace

TEST_F(Vectors, AreShownOnRequestByArrowsThatCanBeToldApart)
{
    QImage const plain = m_page.plot();
    EXPECT_EQ(count(), 0);
    set(&Frame::showVectors, true);
    EXPECT_GT(PlotTestPage::pixelsNear(m_page.plot(0, "vectors"), app::PlotTheme::mesh(), 40),
              PlotTestPage::pixelsNear(plain, app::PlotTheme::mesh(), 40) + 2000);
    EXPECT_GT(count(), 400);
    EXPECT_LT(count(), 1200) << "of 14,641 points";
    EXPECT_EQ(m_page.message(), QString());
    set(&Frame::showVectors, false);
    EXPECT_EQ(PlotTestPage::differingPixels(m_page.plot(), plain), 0);
}

TEST_F(Vectors, PointWhereTheVectorDoesAndAreAsLongAsItIs)
{
    set(&Frame::showVectors, true);
    double longest = 0.0;
    for (vtkIdType n = 0; n < count(); ++n)
        longest = std::max(longest, std::hypot(placeOf(n)[0], placeOf(n)[1]));
    EXPECT_NEAR(vectors().longest(), longest, 1e-5);
    EXPECT_NEAR(longest, std::sqrt(2.0), 0.1) << "near a corner";
    for (vtkIdType n = 0; n < count(); ++n) {
        auto const [x, y, z] = placeOf(n);
        double const length = std::hypot(x, y);
        EXPECT_NEAR(directionOf(n)[0], -y / length, 1e-4);
        EXPECT_NEAR(directionOf(n)[1], x / length, 1e-4);
        EXPECT_EQ(directionOf(n)[2], 0.0) << "W is not seen in a plane";
        EXPECT_NEAR(lengthOf(n), 0.055 * length / longest, 1e-5);
    }
    EXPECT_EQ(remark(), QStringLiteral("Longest arrow: %1").arg(longest, 0, 'g', 4));
}

TEST_F(Vectors, AreOfOneLengthIfWanted)
{
    set(&Frame::showVectors, true);
    set(&Frame::equalVectors, true);
    m_page.picture("vectors-of-equal-length");
    for (vtkIdType n = 0; n < count(); ++n)
        EXPECT_NEAR(lengthOf(n), 0.055, 1e-7);
    EXPECT_EQ(remark(), QString());
}

TEST_F(Vectors, HaveNoArrowWhereANumberIsMissingOrTheLengthIs0)
{
    kernel::ShareGroup& u = *m_data->field(1, 4)->group();
    kernel::ShareGroup& v = *m_data->field(1, 5)->group();
    for (std::int64_t point = 0; point < u.size(); ++point) {
        bool const isLeft = point % pointsAcross < pointsAcross / 2;
        writeValue(u, point, isLeft ? std::numeric_limits<double>::quiet_NaN() : 0.0);
        if (point / pointsAcross < pointsAcross / 2)
            writeValue(v, point, 0.0);
    }
    set(&Frame::showVectors, true);
    EXPECT_GT(count(), 100);
    for (vtkIdType n = 0; n < count(); ++n) {
        EXPECT_GE(placeOf(n)[0], -1e-6);
        EXPECT_GE(placeOf(n)[1], -1e-6);
    }
}

TEST_F(Vectors, NeedVariablesThatAreAssigned)
{
    for (int n = 0; n < 3; ++n)
        ASSERT_TRUE(m_page.session().perform(kernel::AssignVariable(m_page.frame().id, "UVW"[n], 0)));
    set(&Frame::showVectors, true);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(m_page.message(),
              QStringLiteral("No variable is assigned to the vector. Plot > Assign Vector... chooses them."));
}

TEST_F(VectorsInSpace, PointOutOfTheSheet)
{
    set(&Frame::showVectors, true);
    m_page.picture("vectors-in-space");
    ASSERT_GT(count(), 400);
    for (vtkIdType n = 0; n < count(); ++n) {
        auto const [x, y, z] = placeOf(n);
        EXPECT_NEAR(directionOf(n)[2], 0.5 / std::sqrt(x * x + y * y + 0.25), 1e-4);
    }
}

TEST_F(VectorsOfAThinSheet, FollowTheAxesWhereThoseAreStretched)
{
    set(&Frame::stretchAxes, true);
    set(&Frame::showVectors, true);
    auto const& space = m_page.field().space();
    ASSERT_GT(space.unit(0), 10.0 * space.unit(1));
    for (vtkIdType n = 0; n < count(); ++n) {
        auto const [x, y, z] = placeOf(n);
        double const across = -y / space.unit(0);
        double const up = x / space.unit(1);
        EXPECT_NEAR(directionOf(n)[0], across / std::hypot(across, up), 1e-3);
        EXPECT_NEAR(directionOf(n)[1], up / std::hypot(across, up), 1e-3);
    }
}

TEST_F(VectorsAtCells, StandInTheMiddleOfCells)
{
    set(&Frame::showVectors, true);
    ASSERT_GT(count(), 400);
    double const step = 2.0 / (pointsAcross - 1);
    for (vtkIdType n = 0; n < count(); ++n) {
        double const inCells = (placeOf(n)[0] + 1.0) / step;
        EXPECT_NEAR(inCells - std::floor(inCells), 0.5, 1e-2);
    }
}

} // namespace veldraw::tests
