#include "kernel/data/ArrayComponents.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

namespace {

std::shared_ptr<SourceArray> arrayNamed(std::string const& name, int components)
{
    auto array = std::make_shared<SourceArray>();
    array->name = name;
    for (int component = 0; component < components; ++component) {
        array->variables.push_back(name + std::to_string(component));
    }
    return array;
}

void addComponent(DataSet& dataSet, std::shared_ptr<SourceArray> const& array, int component)
{
    auto const variable = std::make_shared<Variable>("any");
    variable->sourceArray = array;
    variable->component = component;
    dataSet.addVariable(variable);
}

} // namespace

TEST(ArrayComponents, StandTogetherWhateverIsBetweenThem)
{
    DataSet dataSet("arrays");
    auto const first = arrayNamed("U", 3);
    auto const second = arrayNamed("B", 2);
    addComponent(dataSet, first, 1);
    dataSet.addVariable(std::make_shared<Variable>("of no array"));
    addComponent(dataSet, second, 0);
    addComponent(dataSet, first, 0);
    addComponent(dataSet, second, 1);
    addComponent(dataSet, first, 2);
    std::vector<ArrayComponents> const found = componentsByArray(dataSet);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].array, first.get());
    EXPECT_EQ(found[0].variables, (std::vector<int>{4, 1, 6}));
    EXPECT_EQ(found[1].array, second.get());
    EXPECT_EQ(found[1].variables, (std::vector<int>{3, 5}));
}

TEST(ArrayComponents, ThatAreGoneHaveNoNumber)
{
    DataSet dataSet("arrays");
    addComponent(dataSet, arrayNamed("U", 3), 1);
    std::vector<ArrayComponents> const found = componentsByArray(dataSet);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].variables, (std::vector<int>{0, 1, 0}));
}

TEST(ArrayComponents, ThatTheArrayDoesNotHaveAreLeftOut)
{
    DataSet dataSet("arrays");
    auto const array = arrayNamed("U", 2);
    addComponent(dataSet, array, 2);
    EXPECT_TRUE(componentsByArray(dataSet).empty());
    addComponent(dataSet, array, -1);
    EXPECT_TRUE(componentsByArray(dataSet).empty());
}

} // namespace veldraw::tests
