#include "platform/vdtoolbox/ArgList.h"

#include "kernel/api/ArgumentList.h"
#include "platform/vdtoolbox/Set.h"

#include <gtest/gtest.h>
#include <set>

namespace veldraw::tests {

using toolbox::ArgList;
using toolbox::Set;

TEST(ArgList, HandsItsArgumentsToTheKernel)
{
    ArgList list;
    EXPECT_TRUE(list.appendInt("Index", 5000000000LL));
    EXPECT_TRUE(list.appendSet("Zones", Set(std::set<int>{2, 3})));
    EXPECT_TRUE(list.appendArbParam("Address", 17));
    EXPECT_TRUE(list.appendDouble("Factor", 0.5));
    EXPECT_TRUE(list.appendString("Name", "axis"));
    ASSERT_NE(list.getRef(), nullptr);
    kernel::ArgumentList const& arguments = list.getRef()->arguments;
    EXPECT_EQ(arguments.intValue("Index"), 5000000000LL);
    EXPECT_EQ(arguments.numbers("Zones"), kernel::NumberSet({2, 3}));
    EXPECT_EQ(arguments.intValue("Address"), 17);
    EXPECT_EQ(arguments.doubleValue("Factor"), 0.5);
    EXPECT_EQ(arguments.text("Name"), "axis");
    EXPECT_EQ(arguments.size(), 5);
}

TEST(ArgList, CopiesTheSetsItIsGiven)
{
    ArgList list;
    {
        Set zones(2);
        list.appendSet("SourceZones", zones);
        zones.add(9);
    }
    EXPECT_EQ(list.getRef()->arguments.numbers("SourceZones"), kernel::NumberSet({2}));
}

} // namespace veldraw::tests
