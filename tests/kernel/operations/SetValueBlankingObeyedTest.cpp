// Operations obey the value blanking of a frame as they obey the marks of a file.
#include "kernel/operations/FourierTransform.h"
#include "kernel/operations/InterpolateByInverseDistance.h"
#include "kernel/operations/InterpolateLinearly.h"
#include "kernel/operations/ProbeLine.h"
#include "kernel/operations/SmoothVariable.h"
#include "kernel/operations/Triangulate.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SampleLoader.h"

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr int pointsAlong = 12;
constexpr int variableP = 3;
constexpr int variableQ = 4;
constexpr double leastQ = 0.2;

double rippleAt(int n)
{
    return std::sin(0.7 * n) + 0.1 * std::cos(3.1 * n);
}

/// What the values of Q leave out: cells all of whose corners are below the limit.
std::vector<double> marksOfCells(std::vector<double> const& q, int columns, int rows)
{
    std::vector<double> marks;
    auto const isOut = [&q](int point) { return q[static_cast<std::size_t>(point)] < leastQ; };
    for (int row = 0; row < std::max(rows - 1, 1); ++row) {
        for (int column = 0; column + 1 < columns; ++column) {
            int const point = column + columns * row;
            bool const areBelow = isOut(point) && isOut(point + 1);
            bool const areNextBelow = rows == 1 || (isOut(point + columns) && isOut(point + columns + 1));
            marks.push_back(areBelow && areNextBelow ? Blanking::hiddenCell : 0);
        }
    }
    return marks;
}

enum class Way
{
    Whole,    // nothing is hidden
    ByMarks,  // by a file
    ByValues, // by the frame
};

/// A plane of Q in stripes, a second zone inside it, and a line, in a 2D plot.
class BlankedStage
{
public:
    explicit BlankedStage(Way way, bool isLoaded = true)
    {
        for (char const* const name : {"X", "Y", "P", "Q"}) {
            data->addVariable(std::make_shared<Variable>(name));
        }
        add("plane", pointsAlong, pointsAlong, 1.0, way, isLoaded);
        add("target", 7, 7, 1.4, Way::Whole, true);
        add("line", 64, 1, 0.25, way, isLoaded);
        frame->dataSet = data;
        frame->plotType = PlotType_Cartesian2D;
        frame->axes2D = {data->variable(1)->id, data->variable(2)->id};
        session.openPage({frame});
        if (way == Way::ByValues) {
            frame->valueBlanking = {true, {{data->variable(variableQ)->id, false, leastQ, true}}};
        }
    }

    /// All values that there are, after an operation.
    std::vector<double> after(std::function<bool(BlankedStage&)> const& operation)
    {
        EXPECT_TRUE(operation(*this)) << session.lastError();
        std::vector<double> all;
        for (auto const& zone : data->zones()) {
            all.push_back(static_cast<double>(zone->cellCount()));
            for (int variable = 1; variable <= data->variableCount(); ++variable) {
                Field const& field = zone->fields[static_cast<std::size_t>(variable) - 1];
                for (std::int64_t n = 0; !field.isPassive() && n < field.group()->size(); ++n) {
                    double const value = field.group()->buffer()->value(n);
                    all.push_back(std::isnan(value) ? 1e99 : value);
                }
            }
        }
        return all;
    }

    Session session;
    std::shared_ptr<DataSet> data = std::make_shared<DataSet>("BlankedStage");
    std::shared_ptr<Frame> frame = std::make_shared<Frame>("Frame", Rectangle{});

private:
    void add(char const* name, int columns, int rows, double step, Way way, bool isLoaded)
    {
        auto zone = std::make_shared<Zone>(name, ZoneType_Ordered, columns, rows, 1);
        std::vector<std::vector<double>> values(4);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                values[0].push_back(step * column + 0.01 * row);
                values[1].push_back(step * row + 0.02 * column);
                values[2].push_back(rippleAt(column + 5 * row));
                values[3].push_back((column / 4 + row / 4) % 2 == 0 ? 0.0 : 1.0);
            }
        }
        for (std::vector<double> const& each : values) {
            zone->fields.push_back(sample::field(each, FieldDataType_Double));
        }
        if (!isLoaded) {
            zone->fields[variableQ - 1] =
                sample::Loader::field(std::make_shared<sample::Loader>(values[variableQ - 1]));
        }
        if (way == Way::ByMarks) {
            auto const marks = sample::buffer(marksOfCells(values[3], columns, rows), FieldDataType_Byte);
            zone->blanking = std::make_shared<Blanking>(*zone, Blanking::Marks{nullptr, marks});
        }
        data->addZone(zone);
    }
};

struct Obeying
{
    char const* name;
    std::function<bool(BlankedStage&)> perform;
};

std::ostream& operator<<(std::ostream& stream, Obeying const& operation)
{
    return stream << operation.name;
}

bool smoothPlane(BlankedStage& stage)
{
    return stage.session.perform(SmoothVariable(stage.frame->id, 1, variableP, 3, 0.5, BoundaryCondition_FirstOrder));
}

bool transformLine(BlankedStage& stage, bool obeys)
{
    FourierTransform::Choice choice;
    choice.obeyBlanking = obeys;
    return stage.session.perform(FourierTransform(*stage.data, 1, {variableP}, {3}, choice));
}

class ObeyedValueBlanking : public testing::TestWithParam<Obeying>
{
};

} // namespace

TEST_P(ObeyedValueBlanking, GivesWhatTheSameCellsHiddenByMarksGive)
{
    auto const whole = BlankedStage(Way::Whole).after(GetParam().perform);
    auto const marked = BlankedStage(Way::ByMarks).after(GetParam().perform);
    EXPECT_NE(whole, marked) << "there is something to be left out";
    EXPECT_EQ(BlankedStage(Way::ByValues).after(GetParam().perform), marked);
}

INSTANTIATE_TEST_SUITE_P(
    EachOperation, ObeyedValueBlanking,
    testing::Values(
        Obeying{"Smooth", smoothPlane},
        Obeying{"InverseDistance",
                [](BlankedStage& stage) {
                    return stage.session.perform(InterpolateByInverseDistance(stage.frame->id, {1}, 2, {variableP},
                                                                              {PtSelection_NearestN, 6}, {3.5, 0.0}));
                }},
        Obeying{"LinearInterpolation",
                [](BlankedStage& stage) {
                    return stage.session.perform(InterpolateLinearly(stage.frame->id, {1}, 2, {variableP}, -3.0,
                                                                     LinearInterpMode_SetToConstant));
                }},
        Obeying{"ProbeLine",
                [](BlankedStage& stage) {
                    return stage.session.perform(ProbeLine(stage.frame->id, {1}, {0.5, 0.5, 0}, {9.5, 8.5, 0}, 100));
                }},
        Obeying{"Triangulate",
                [](BlankedStage& stage) {
                    return stage.session.perform(Triangulate(stage.frame->id, {1}, {}, false, 0.0));
                }},
        Obeying{"FourierTransform", [](BlankedStage& stage) { return transformLine(stage, true); }}),
    [](auto const& test) { return std::string(test.param.name); });

TEST(ValueBlankingInOperations, CountsForATransformOnlyWhereBlankingIsObeyed)
{
    auto const ignoring = [](BlankedStage& stage) { return transformLine(stage, false); };
    EXPECT_EQ(BlankedStage(Way::ByValues).after(ignoring), BlankedStage(Way::Whole).after(ignoring));
}

TEST(ValueBlankingInOperations, CountsNoMoreWhenItIsSwitchedOff)
{
    BlankedStage stage(Way::ByValues);
    stage.frame->valueBlanking.isOn = false;
    EXPECT_EQ(stage.after(smoothPlane), BlankedStage(Way::Whole).after(smoothPlane));
}

TEST(ValueBlankingInOperations, HasTheValuesOfItsVariableLoaded)
{
    auto const smoothAndLoad = [](BlankedStage& stage) {
        EXPECT_EQ(stage.data->field(1, variableQ)->isLoaded(), false);
        return smoothPlane(stage) && stage.data->field(1, variableQ)->isLoaded();
    };
    BlankedStage late(Way::ByValues, false);
    ASSERT_TRUE(smoothAndLoad(late));
    std::vector<double> smoothed;
    BlankedStage(Way::ByMarks).after([&](BlankedStage& marked) {
        bool const isDone = smoothPlane(marked);
        for (std::int64_t n = 0; n < pointsAlong * pointsAlong; ++n) {
            smoothed.push_back(marked.data->field(1, variableP)->group()->buffer()->value(n));
        }
        return isDone;
    });
    for (std::int64_t n = 0; n < pointsAlong * pointsAlong; ++n) {
        EXPECT_EQ(late.data->field(1, variableP)->group()->buffer()->value(n), smoothed[static_cast<std::size_t>(n)])
            << n;
    }
}

} // namespace veldraw::tests
