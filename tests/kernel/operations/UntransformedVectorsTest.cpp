#include "kernel/operations/UntransformedVectors.h"

#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RotateZones.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// X, Y, Z, U, V, W, P in space, and whatever is added to one ordered zone of 3 x 2 x 2 points.
class UntransformedVectors : public SessionFixture
{
protected:
    UntransformedVectors()
        : data(sample::emptySpace())
    {
        sample::addOrdered(*data, 3, 2, 2);
        session.setRemarkListener([this](std::string const& text) { remarks.push_back(text); });
    }

    void addScalar(std::string const& name, FieldDataType_e type = FieldDataType_Float)
    {
        data->addVariable(std::make_shared<Variable>(name));
        data->zone(1)->fields.back() = sample::field(std::vector<double>(12, 1.0), type);
    }

    void addArray(std::string const& name, int components, FieldDataType_e type = FieldDataType_Float)
    {
        auto const array = std::make_shared<SourceArray>();
        array->name = name;
        for (int component = 0; component < components; ++component) {
            array->variables.push_back(name + "_" + std::to_string(component));
        }
        for (int component = 0; component < components; ++component) {
            addScalar(array->variables[static_cast<std::size_t>(component)], type);
            data->variables().back()->sourceArray = array;
            data->variables().back()->component = component;
        }
    }

    std::vector<std::string> untransformed(NumberSet const& rotated = {1, 2, 3, 4, 5, 6},
                                           std::size_t dimensions = 3) const
    {
        return untransformedVectors(*data, {1}, rotated, dimensions);
    }

    std::shared_ptr<DataSet> data;
    std::vector<std::string> remarks;
};

} // namespace

TEST_F(UntransformedVectors, AreArraysOfTwoThreeSixAndNineComponentsThatAreNoColours)
{
    EXPECT_THAT(untransformed(), IsEmpty());
    addArray("velocity", 3);
    addArray("stress", 6);
    addArray("gradient", 9);
    addArray("pair", 2);
    addArray("quaternion", 4);
    addArray("colour", 3, FieldDataType_Byte);
    EXPECT_THAT(untransformed(), ElementsAre("velocity", "stress", "gradient", "pair"));
    EXPECT_THAT(untransformed({1, 2, 3, 8, 9, 10}), ElementsAre("U, V, W", "stress", "gradient", "pair"));
    EXPECT_THAT(untransformed({1, 2, 3, 4, 5, 6, 26, 27}), ElementsAre("velocity", "stress", "gradient"));
}

TEST_F(UntransformedVectors, AreVariablesThatAreCalledAsTheComponentsOfOne)
{
    for (char const* name : {"vel_x [m/s]", "vel_y [m/s]", "vel_z [m/s]", "FX", "FY", "FZ", "xForce", "yForce",
                             "zForce", "max", "may", "box"}) {
        addScalar(name);
    }
    EXPECT_THAT(untransformed(),
                ElementsAre("vel_x [m/s], vel_y [m/s], vel_z [m/s]", "FX, FY, FZ", "xForce, yForce, zForce"));
}

TEST_F(UntransformedVectors, ArePairsOfVariablesWhereTheLetterIsNoPartOfAWord)
{
    for (char const* name : {"vx", "vy", "grad_x [1/m]", "grad_y [1/m]", "forceX", "forceY", "x-flux", "y-flux", "max",
                             "may", "xenon", "yenon", "box (1)", "boy (1)"}) {
        addScalar(name);
    }
    EXPECT_THAT(untransformed(),
                ElementsAre("vx, vy", "grad_x [1/m], grad_y [1/m]", "forceX, forceY", "x-flux, y-flux"));
    data->variable(6)->name = "other";
    EXPECT_THAT(untransformed({1, 2, 3, 8, 9, 10, 11, 12, 13, 14, 15}), ElementsAre("U, V"));
    EXPECT_THAT(untransformed({1, 2, 4, 5, 8, 9, 10, 11, 12, 13, 14, 15}, 2), IsEmpty());
}

TEST_F(UntransformedVectors, AreNoVariablesWhoseLetterIsAPartOfAWordWhateverTheLetterBefore)
{
    for (char const neighbour : {'a', 'z', 'A', 'Z'}) {
        char const component = neighbour >= 'a' ? 'x' : 'X';
        for (char const letter : {component, static_cast<char>(component + 1)}) {
            addScalar((std::string("wo") + neighbour + letter).c_str());
        }
    }
    EXPECT_THAT(untransformed(), IsEmpty());
}

TEST_F(UntransformedVectors, AreArraysThatAComponentOfWasRenamedOrDeleted)
{
    addArray("velocity", 3);
    addArray("force", 3);
    data->variable(9)->name = "upwards";
    EXPECT_THAT(untransformed(), ElementsAre("velocity_0, upwards, velocity_2", "force"));
    auto const shown = sample::show(session, data);
    ASSERT_TRUE(session.perform(DeleteVariables(*data, {11})));
    EXPECT_THAT(untransformed(), ElementsAre("velocity_0, upwards, velocity_2", "force_1, force_2"));
}

TEST_F(UntransformedVectors, AreArraysThatHaveValuesInSomeComponent)
{
    addArray("velocity", 3);
    data->zone(1)->fields.back() = Field();
    EXPECT_THAT(untransformed(), ElementsAre("velocity"));
    data->zone(1)->fields[7] = Field();
    data->zone(1)->fields[8] = Field();
    EXPECT_THAT(untransformed(), IsEmpty());
}

TEST_F(UntransformedVectors, InThePlaneAreNotThoseThatHaveOnlyAThirdComponent)
{
    addArray("velocity", 3);
    auto const shown = sample::show(session, data);
    ASSERT_TRUE(session.perform(DeleteVariables(*data, {8, 9})));
    EXPECT_THAT(untransformed({1, 2, 4, 5}, 2), IsEmpty());
    EXPECT_THAT(untransformed(), ElementsAre("velocity_2"));
}

TEST_F(UntransformedVectors, AreFoundByNameAlsoWhereEachIsAnArrayOfItsOwn)
{
    for (char const* name : {"Fx", "Fy", "Fz"}) {
        addScalar(name);
        auto const array = std::make_shared<SourceArray>();
        array->name = name;
        array->variables = {name};
        data->variables().back()->sourceArray = array;
    }
    EXPECT_THAT(untransformed(), ElementsAre("Fx, Fy, Fz"));
}

TEST_F(UntransformedVectors, InThePlaneNeedNotRotateTheThirdComponent)
{
    addArray("velocity", 3);
    EXPECT_THAT(untransformed({1, 2, 8, 9}, 2), ElementsAre("U, V, W"));
    EXPECT_THAT(untransformed({1, 2, 8, 9}, 3), ElementsAre("X, Y, Z", "U, V, W", "velocity"));
}

TEST_F(UntransformedVectors, AreNamedOnceByEachOperationThatRotatesSomething)
{
    addArray("velocity", 3);
    addArray("stress", 6);
    auto const shown = sample::show(session, data);
    std::string const rest = ": vectors and tensors that were left as they are: \"velocity\", \"stress\". Only the "
                             "frame's vector is transformed.";
    ASSERT_TRUE(session.perform(RotateZones(*data, {1}, sample::inSpace, sample::aboutX, 30)));
    EXPECT_THAT(remarks, ElementsAre("Axial Rotation" + rest));
    remarks.clear();
    AxialCopies copies;
    copies.count = 2;
    copies.angle = 20;
    ASSERT_TRUE(session.perform(DuplicateZonesAxially(*data, {1}, sample::inSpace, sample::aboutX, copies)));
    EXPECT_THAT(remarks, ElementsAre("Axial Duplication" + rest));
    remarks.clear();
    ASSERT_TRUE(session.perform(MirrorZones(shown->id, {1}, 'Y')));
    EXPECT_THAT(remarks, ElementsAre("Create Mirror Zone" + rest));
    remarks.clear();
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.redo());
    EXPECT_THAT(remarks, IsEmpty());
}

TEST_F(UntransformedVectors, AreNotNamedWhenNothingIsRotated)
{
    addArray("velocity", 3);
    sample::show(session, data);
    ASSERT_TRUE(session.perform(RotateZones(*data, {1}, sample::inSpace, sample::aboutX, 360)));
    EXPECT_FALSE(session.perform(RotateZones(*data, {9}, sample::inSpace, sample::aboutX, 30)));
    EXPECT_THAT(remarks, IsEmpty());
}

TEST_F(UntransformedVectors, NamesTheFramesVectorTooWhenItIsNotRotated)
{
    sample::show(session, data);
    ASSERT_TRUE(session.perform(RotateZones(*data, {1}, sample::noVector, sample::aboutX, 30)));
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_NE(remarks.front().find("\"U, V, W\""), std::string::npos);
}

} // namespace veldraw::tests
