#include "kernel/frames/FrameDefaults.h"

#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SampleLoader.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

namespace {

Frame laidOut(std::shared_ptr<DataSet> dataSet)
{
    Frame frame("frame", {});
    frame.dataSet = std::move(dataSet);
    layOut(frame);
    return frame;
}

using AxisNumbers = std::array<int, 3>;

AxisNumbers axes(Frame frame)
{
    frame.plotType = PlotType_Cartesian3D;
    return frame.axisVariables();
}

} // namespace

TEST(FrameDefaults, FindTheAxesByName)
{
    EXPECT_EQ(axes(laidOut(sample::ordered({"p", "z", "y", "x"}, 3, 3))), (AxisNumbers{4, 3, 2}));
    EXPECT_EQ(axes(laidOut(sample::ordered({"CoordinateX", "CoordinateY", "CoordinateZ"}, 3, 3))),
              (AxisNumbers{1, 2, 3}));
    EXPECT_EQ(axes(laidOut(sample::ordered({"rho", "x [m]", "y [m]", "z (mm)"}, 3, 3))), (AxisNumbers{2, 3, 4}));
    EXPECT_EQ(axes(laidOut(sample::ordered({"rho", "X", "Y"}, 3, 3))), (AxisNumbers{2, 3, 0}));
}

TEST(FrameDefaults, TakeTheFirstThreeVariablesWithoutAnXAndAY)
{
    EXPECT_EQ(axes(laidOut(sample::ordered({"a", "b", "c", "y"}, 3, 3))), (AxisNumbers{1, 2, 3}));
    EXPECT_EQ(axes(laidOut(sample::ordered({"a"}, 3, 3))), (AxisNumbers{1, 0, 0}));
}

TEST(FrameDefaults, TellWhichVariablesArePlacesAndTimes)
{
    EXPECT_EQ(coordinatesByName(*sample::ordered({"p", "Y [m]", "X [m]"}, 3)), (AxisNumbers{3, 2, 0}));
    EXPECT_EQ(coordinatesByName(*sample::ordered({"Points:0", "Points:1", "Points:2"}, 3)), (AxisNumbers{1, 2, 3}));
    EXPECT_EQ(coordinatesByName(*sample::ordered({"x", "z", "p"}, 3)), (AxisNumbers{0, 0, 0}));
    EXPECT_EQ(timeByName(*sample::ordered({"x", "Time (s)"}, 3)), 2);
    EXPECT_EQ(timeByName(*sample::ordered({"times", "temperature", "t"}, 3)), 0);
    for (char const* const other : {"timea", "timez", "time0", "time9"}) {
        EXPECT_EQ(timeByName(*sample::ordered({other, "Time"}, 3)), 2) << "letters and digits count";
    }
    EXPECT_EQ(timeByLetter(*sample::ordered({"T", "time", "t [s]"}, 3)), 3);
    EXPECT_EQ(timeByLetter(*sample::ordered({"x", "T (K)", "tt"}, 3)), 0);
}

TEST(FrameDefaults, FindTheVectorByName)
{
    auto const vector = [](std::vector<std::string> const& names) {
        Frame const frame = laidOut(sample::ordered(names, 3, 3));
        return AxisNumbers{frame.variableNumber('U'), frame.variableNumber('V'), frame.variableNumber('W')};
    };
    EXPECT_EQ(vector({"x", "y", "u", "v", "w"}), (AxisNumbers{3, 4, 5}));
    EXPECT_EQ(vector({"Velocity_X", "Velocity_Y", "Velocity_Z"}), (AxisNumbers{1, 2, 3}));
    EXPECT_EQ(vector({"velocity_x [m/s]", "velocity_y [m/s]"}), (AxisNumbers{1, 2, 0}));
    EXPECT_EQ(vector({"X", "Y", "p", "Momentum_X", "Momentum_Y", "Momentum_Z"}), (AxisNumbers{4, 5, 6}));
    EXPECT_EQ(vector({"Momentum_X", "Momentum_Y", "Velocity_X", "Velocity_Y"}), (AxisNumbers{3, 4, 0}));
    EXPECT_EQ(vector({"Points_X", "Points_Y", "tau_xx", "tau_xy", "flux_X"}), (AxisNumbers{0, 0, 0}));
    EXPECT_EQ(vector({"X", "_X", "Y"}), (AxisNumbers{0, 0, 0})) << "a component of nothing";
    EXPECT_EQ(vector({"u", "w"}), (AxisNumbers{0, 0, 0}));
}

TEST(FrameDefaults, ChooseThePlotTypeByTheZones)
{
    EXPECT_EQ(laidOut(sample::ordered({"time", "force"}, 10)).plotType, PlotType_XYLine);
    EXPECT_EQ(laidOut(sample::ordered({"time"}, 10)).plotType, PlotType_Cartesian2D);
    EXPECT_EQ(laidOut(sample::ordered({"x", "y", "p"}, 3, 3)).plotType, PlotType_Cartesian2D);
    EXPECT_EQ(laidOut(sample::ordered({"x", "y", "z"}, 3, 3)).plotType, PlotType_Cartesian3D);
    EXPECT_EQ(laidOut(sample::ordered({"x", "y"}, 3, 3, 3)).plotType, PlotType_Cartesian3D);
    EXPECT_EQ(laidOut(sample::twoPlanes()).plotType, PlotType_Cartesian2D);
    EXPECT_EQ(laidOut(std::make_shared<DataSet>()).plotType, PlotType_Sketch);
}

TEST(FrameDefaults, ShowScatteredPointsInThePlaneOrInSpace)
{
    auto const scattered = [](std::vector<std::string> const& names) {
        auto const dataSet = sample::ordered(names, 10);
        dataSet->zone(1)->isScattered = true;
        return laidOut(dataSet);
    };
    EXPECT_EQ(scattered({"x", "y", "z", "p"}).plotType, PlotType_Cartesian3D);
    EXPECT_EQ(scattered({"p", "y", "x"}).plotType, PlotType_Cartesian2D);
    EXPECT_EQ(scattered({"p", "y", "x"}).variableNumber('X'), 3);
}

TEST(FrameDefaults, StretchTheAxesOnlyWhereNothingButALineWouldBeSeen)
{
    auto const stretches = [](double x, double y, double z) {
        auto const dataSet = sample::ordered({"x", "y", "z"}, 2, 2);
        dataSet->zone(1)->fields = {sample::field({1e6, 1e6 + x, 1e6, 1e6 + x}, FieldDataType_Double),
                                    sample::field({-y, -y, 0, 0}, FieldDataType_Double),
                                    sample::field({0, z, 0, z}, FieldDataType_Double)};
        return laidOut(dataSet).stretchAxes;
    };
    EXPECT_FALSE(stretches(300, 150, 2)) << "a plate is seen";
    EXPECT_FALSE(stretches(300, 150, 0.001)) << "a film too";
    EXPECT_FALSE(stretches(499, 1, 1)) << "a rod is thin, but seen";
    EXPECT_TRUE(stretches(501, 1, 1));
    EXPECT_TRUE(stretches(1, 0, 501)) << "whichever axis it is";
    EXPECT_TRUE(stretches(2, 5e4, 0)) << "a length over a pressure";
    EXPECT_FALSE(stretches(300, 0, 0)) << "a line is a line";
    EXPECT_FALSE(stretches(300, 1e-13, 0)) << "and so is one that is not quite straight";
}

TEST(FrameDefaults, SeeASurfaceInSpaceByItsZOverAllZones)
{
    auto const dataSet = sample::twoPlanes();
    dataSet->zone(1)->fields[2] = sample::field({1, 1, 1, 1, 1, 1});
    EXPECT_EQ(laidOut(dataSet).plotType, PlotType_Cartesian2D);
    dataSet->zone(2)->fields[2] = sample::field({2, 2, 2, 2, 2, 2});
    EXPECT_EQ(laidOut(dataSet).plotType, PlotType_Cartesian3D);
}

TEST(FrameDefaults, SeeASurfaceInSpaceWhereNobodyKnowsItsZYet)
{
    for (std::vector<std::string> const& names :
         {std::vector<std::string>{"X", "Y", "Z"}, std::vector<std::string>{"Z", "X", "Y"}}) {
        auto const dataSet = sample::ordered(names, 3, 3);
        auto const z = static_cast<std::size_t>(dataSet->findVariable("Z")) - 1;
        dataSet->zone(1)->fields[z] = sample::field(std::vector<double>(9, 5.0));
        EXPECT_EQ(laidOut(dataSet).plotType, PlotType_Cartesian2D)
            << "Z is number " << z + 1 << " and the same everywhere";
        dataSet->zone(1)->fields[z] =
            sample::Loader::field(std::make_shared<sample::Loader>(std::vector<double>(9, 5.0)));
        EXPECT_EQ(laidOut(dataSet).plotType, PlotType_Cartesian3D) << "Z is number " << z + 1 << " and not loaded";
    }
}

TEST(FrameDefaults, FloodByTheFirstEnabledVariableThatIsNoAxis)
{
    auto const dataSet = sample::ordered({"x", "y", "p", "t"}, 3, 3);
    EXPECT_EQ(laidOut(dataSet).variableNumber('C'), 3);
    dataSet->variable(3)->enabled = false;
    EXPECT_EQ(laidOut(dataSet).variableNumber('C'), 4);
    EXPECT_EQ(laidOut(sample::ordered({"x", "y"}, 3, 3)).variableNumber('C'), 1);
}

TEST(FrameDefaults, DrawTheSecondVariableOverTheFirst)
{
    auto const dataSet = sample::ordered({"time", "force", "moment"}, 10);
    Frame const frame = laidOut(dataSet);
    ASSERT_EQ(frame.lineMaps.size(), 1U);
    EXPECT_EQ(frame.lineMaps[0].zone, dataSet->zone(1)->id);
    EXPECT_EQ(frame.lineMaps[0].xVariable, dataSet->variable(1)->id);
    EXPECT_EQ(frame.lineMaps[0].yVariable, dataSet->variable(2)->id);
}

TEST(FrameDefaults, LeaveAFrameWithoutDataAlone)
{
    Frame frame("frame", {});
    layOut(frame);
    EXPECT_EQ(frame.plotType, PlotType_Sketch);
    EXPECT_EQ(frame.variableNumber('X'), 0);
    EXPECT_EQ(frame.axisVariables(), (AxisNumbers{0, 0, 0}));
}

} // namespace veldraw::tests
