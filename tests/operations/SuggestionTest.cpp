#include "operations/Suggestion.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using operations::suggestion;

TEST(Suggestion, IsTheNearestName)
{
    std::vector<std::string> const names{"mirror-zones", "rotate-zones", "rename-zone", "run"};
    EXPECT_EQ(" Did you mean \"mirror-zones\"?", suggestion("mirorr-zones", names));
    EXPECT_EQ(" Did you mean \"mirror-zones\"?", suggestion("mirror-zone", names));
    EXPECT_EQ(" Did you mean \"rename-zone\"?", suggestion("Rename-Zone", names)) << "whatever the case";
    EXPECT_EQ(" Did you mean \"run\"?", suggestion("rn", names));
}

TEST(Suggestion, IsNoneWhereNothingIsNear)
{
    EXPECT_EQ("", suggestion("triangulate", {"smooth", "krige"}));
    EXPECT_EQ("", suggestion("Q", {"X", "Y"})) << "no letter is the same";
    EXPECT_EQ("", suggestion("", {"a"}));
    EXPECT_EQ("", suggestion("a", {}));
    EXPECT_EQ("", suggestion(std::string(101, 'a'), {std::string(100, 'a')})) << "no name is so long";
}

} // namespace veldraw::tests
