#include "platform/vdtoolbox/StringList.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace veldraw::tests {

using toolbox::StringList;

namespace {

char const* const end = nullptr;

} // namespace

TEST(StringList, StartsEmpty)
{
    EXPECT_EQ(StringList().size(), 0);
}

TEST(StringList, TakesTextsUpToTheNullPointer)
{
    StringList const list("Data Name", "Value", end);
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0], "Data Name");
    EXPECT_EQ(list[1], "Value");
}

TEST(StringList, IsEmptyWhenItBeginsWithTheEnd)
{
    EXPECT_EQ(StringList(end).size(), 0);
}

TEST(StringList, AppendsAnotherList)
{
    StringList list("a", end);
    list.append(StringList("b", "c", end));
    list.append(std::string("d"));
    ASSERT_EQ(list.size(), 4);
    EXPECT_EQ(list[2], "c");
    EXPECT_EQ(list[3], "d");
}

TEST(StringList, DoublesWhenItIsAppendedToItself)
{
    StringList list("a", "b", end);
    list.append(list);
    ASSERT_EQ(list.size(), 4);
    EXPECT_EQ(list[3], "b");
}

TEST(StringList, IsCopiedDeep)
{
    StringList original("a", end);
    StringList const copy(original);
    original.append(std::string("b"));
    EXPECT_EQ(copy.size(), 1);
}

TEST(StringList, RefusesPositionsThatDoNotExist)
{
    StringList const list("a", end);
    EXPECT_THROW(list[1], std::out_of_range);
    EXPECT_THROW(list[-1], std::out_of_range);
}

} // namespace veldraw::tests
