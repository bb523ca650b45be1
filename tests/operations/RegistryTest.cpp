#include "operations/Registry.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace operations;

namespace {

OperationEntry smoothing()
{
    OperationEntry entry;
    entry.name = "smooth";
    entry.sentence = "Smooths.";
    entry.parameters = {
        parameter("zone", ParameterKind::Zone, "The zone."),
        parameter("angle", ParameterKind::Real, "An angle.").startingWith("2").within(0, 9).in("degrees")};
    return entry;
}

} // namespace

TEST(Registry, FindsOperationsByName)
{
    Registry registry;
    registry.add(smoothing());
    ASSERT_NE(nullptr, registry.find("smooth"));
    EXPECT_EQ("Smooths.", registry.find("smooth")->sentence);
    EXPECT_EQ(nullptr, registry.find("Smooth"));
    EXPECT_THROW(registry.add(smoothing()), std::logic_error);
}

TEST(Registry, SuggestsANameForOneThatIsNotThere)
{
    Registry registry;
    registry.add(smoothing());
    Command command;
    command.name = "smoooth";
    command.place = {4, 2};
    try {
        registry.entryOf(command);
        FAIL();
    } catch (CommandError const& error) {
        EXPECT_STREQ("There is no operation \"smoooth\". Did you mean \"smooth\"?", error.what());
        EXPECT_EQ(4, error.place().line);
        EXPECT_EQ(2, error.place().column);
    }
}

TEST(Registry, HasALineForEachOperation)
{
    Registry registry;
    registry.add(smoothing());
    EXPECT_EQ("smooth                            Smooths.\n", registry.listText());
}

TEST(Registry, TellsWhatAnOperationTakes)
{
    std::string const text = helpText(smoothing());
    EXPECT_EQ(0u, text.find("smooth zone=... [angle=...]\n\nSmooths.\n\n  zone  ")) << text;
    EXPECT_NE(std::string::npos, text.find("Takes a zone.\n")) << text;
    EXPECT_NE(std::string::npos, text.find("Takes a number, in degrees, at least 0, at most 9; otherwise 2.\n"))
        << text;
    EXPECT_NE(std::string::npos, text.find("ranges (1:9")) << text;
    EXPECT_EQ("new-frame\n\nAdds.\n", helpText({"new-frame", "", "Adds.", {}, {}, "", ""}));
}

} // namespace veldraw::tests
