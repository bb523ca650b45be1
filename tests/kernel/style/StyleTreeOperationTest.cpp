#include "kernel/operations/LineMapOperation.h"
#include "tests/support/StyleSession.h"

#include <gmock/gmock.h>
#include <optional>

namespace veldraw::tests {

using kernel::StyleNumber;
using testing::ElementsAre;
using testing::IsEmpty;

class StyleOperationTest : public testing::Test
{
protected:
    StyleSession sample;
    kernel::StyleTree& tree = sample.tree();
    std::optional<kernel::StyleTree::Hold> operation{std::in_place, tree};
};

TEST_F(StyleOperationTest, KeepsTheOldValueUntilTheOperationHasEnded)
{
    EXPECT_EQ(tree.set({pointsPath}, StyleNumber::ofWhole(20)), SetValueReturnCode_Pending);
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 8);
    EXPECT_THAT(sample.takeEvents(), IsEmpty());
    operation.reset();
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 20);
    EXPECT_THAT(sample.takeEvents(), ElementsAre("7 Interface, Data, InterpNPoints"));
}

TEST_F(StyleOperationTest, CarriesWritesOutInTheirOrder)
{
    tree.set({pointsPath}, StyleNumber::ofWhole(20));
    tree.set({exponentPath}, StyleNumber::ofReal(3.0));
    tree.set({pointsPath}, StyleNumber::ofWhole(21));
    operation.reset();
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 21);
    EXPECT_THAT(sample.takeEvents(),
                ElementsAre("7 Interface, Data, InterpNPoints", "7 Interface, Data, InvDistExponent",
                            "7 Interface, Data, InterpNPoints"));
}

TEST_F(StyleOperationTest, TakesAWriteBackToTheOldValueSeriously)
{
    tree.set({pointsPath}, StyleNumber::ofWhole(20));
    EXPECT_EQ(tree.set({pointsPath}, StyleNumber::ofWhole(8)), SetValueReturnCode_Pending);
    operation.reset();
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 8);
}

TEST_F(StyleOperationTest, RefusesAtOnceWhatIsNotAllowed)
{
    EXPECT_EQ(tree.set({pointsPath}, StyleNumber::ofWhole(0)), SetValueReturnCode_Refused);
    operation.reset();
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 8);
    EXPECT_THAT(sample.takeEvents(), IsEmpty());
}

TEST_F(StyleOperationTest, EndsWithTheOutermostScope)
{
    {
        kernel::StyleTree::Hold const inner(tree);
        tree.set({pointsPath}, StyleNumber::ofWhole(20));
    }
    EXPECT_TRUE(tree.isOperationRunning());
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 8);
    operation.reset();
    EXPECT_FALSE(tree.isOperationRunning());
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 20);
}

TEST_F(StyleOperationTest, WritesAtOnceAgainAfterwards)
{
    operation.reset();
    EXPECT_EQ(tree.set({pointsPath}, StyleNumber::ofWhole(20)), SetValueReturnCode_Ok);
}

TEST_F(StyleOperationTest, DropsAWriteThatDoesNotFitAnyMore)
{
    kernel::StyleAddress const thirdVariable{{"LineMap", "Assign", "YAxisVar"}, sample.frame().id, 2};
    EXPECT_EQ(tree.set(thirdVariable, StyleNumber::ofWhole(3)), SetValueReturnCode_Pending);
    tree.set({pointsPath}, StyleNumber::ofWhole(20));
    ASSERT_TRUE(sample.session().perform(kernel::DeleteLineMaps(sample.frame().id, {2})));
    operation.reset();
    EXPECT_EQ(sample.frame().lineMaps.size(), 1U);
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 20);
}

TEST_F(StyleOperationTest, WritesToTheFrameThatWasActiveThen)
{
    tree.set({{"LineMap", "Assign", "YAxisVar"}, 0, 2}, StyleNumber::ofWhole(3));
    std::shared_ptr<kernel::Frame> const other = sample.addFrame();
    kernel::UniqueId const first = sample.frame().id;
    operation.reset();
    EXPECT_EQ(tree.get({{"LineMap", "Assign", "YAxisVar"}, first, 2}).value().whole, 3);
}

TEST_F(StyleOperationTest, QueuesWhatAListenerWritesWhenThatStartsAnOperation)
{
    std::optional<kernel::StyleTree::Hold> next;
    int const subscription = sample.session().events().subscribe([&](kernel::StateChangeEvent const&) {
        if (!next)
            next.emplace(tree);
    });
    tree.set({pointsPath}, StyleNumber::ofWhole(20));
    tree.set({exponentPath}, StyleNumber::ofReal(3.0));
    operation.reset();
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 20);
    EXPECT_EQ(tree.get({exponentPath}).value().real, 2.0);
    sample.session().events().unsubscribe(subscription);
    next.reset();
    EXPECT_EQ(tree.get({exponentPath}).value().real, 3.0);
}

} // namespace veldraw::tests
