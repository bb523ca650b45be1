#include "kernel/operations/EnableZone.h"
#include "operations/entries/Entries.h"

namespace veldraw::operations {

namespace {

/// @tparam Enabling of zones or of variables
template <typename Enabling>
void addSwitch(Registry& registry, Parameter const& thing, char const* title, char const* sentence, bool isEnabled)
{
    auto const run = [name = thing.name, isEnabled](Arguments const& arguments) {
        return session().perform(Enabling(*session().activeDataSet(), arguments.number(name), isEnabled));
    };
    registry.add({(isEnabled ? "enable-" : "disable-") + thing.name, title, sentence, {thing}, run});
}

} // namespace

void addEnabling(Registry& registry)
{
    Parameter const zone = parameter("zone", ParameterKind::Zone, "The zone.");
    Parameter const variable = parameter("variable", ParameterKind::Variable, "The variable.");
    addSwitch<kernel::EnableZone>(registry, zone, "Enable Zone", "Lets a zone take part in plots and operations again.",
                                  true);
    addSwitch<kernel::EnableZone>(registry, zone, "Disable Zone", "Keeps a zone out of plots and operations.", false);
    addSwitch<kernel::EnableVariable>(registry, variable, "Enable Variable",
                                      "Lets a variable take part in plots and operations again.", true);
    addSwitch<kernel::EnableVariable>(registry, variable, "Disable Variable",
                                      "Keeps a variable out of plots and operations.", false);
}

} // namespace veldraw::operations
