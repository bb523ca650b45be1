#include "kernel/operations/SetLineAxis.h"
#include "kernel/operations/SetLineMaps.h"
#include "operations/entries/Entries.h"

#include <stdexcept>

namespace veldraw::operations {

namespace {

using Kind = ParameterKind;

kernel::Frame const& plotFrame()
{
    auto const active = session().activeFrame();
    if (!active)
        throw std::runtime_error("There is no frame.");
    return *active; // the page has it
}

kernel::UniqueId plot()
{
    return plotFrame().id;
}

bool setLinePlot(Arguments const& arguments)
{
    return session().perform(
        kernel::SetLinePlot(plot(), arguments.number("zone"), arguments.number("x"), arguments.number("y")));
}

bool newLineMap(Arguments const&)
{
    return session().perform(kernel::CreateLineMap(plot()));
}

bool duplicateLineMaps(Arguments const& arguments)
{
    return session().perform(kernel::DuplicateLineMaps(plot(), arguments.numbers("maps")));
}

bool deleteLineMaps(Arguments const& arguments)
{
    return session().perform(kernel::DeleteLineMaps(plot(), arguments.numbers("maps")));
}

std::optional<int> numberIn(Arguments const& arguments, char const* name)
{
    return arguments.has(name) ? std::optional<int>(arguments.number(name)) : std::nullopt;
}

void readLook(Arguments const& arguments, kernel::LineMapSettings& settings)
{
    if (arguments.has("colour")) {
        settings.colour = kernel::CurveLook::colourOf(arguments.text("colour"));
        if (!settings.colour)
            throw std::runtime_error("A colour is \"automatic\", or six digits such as 1F6FB5.");
    }
    if (arguments.has("line"))
        settings.style = static_cast<kernel::LineStyle>(arguments.choice("line"));
    if (arguments.has("width"))
        settings.width = arguments.real("width");
    if (arguments.has("symbols")) {
        int const word = arguments.choice("symbols");
        settings.symbols = word == 0 ? std::nullopt : std::optional<bool>(word == 1);
    }
}

bool setLineMaps(Arguments const& arguments)
{
    kernel::LineMapSettings settings;
    if (arguments.has("show"))
        settings.active = arguments.flag("show");
    if (arguments.has("name"))
        settings.name = arguments.text("name");
    settings.zone = numberIn(arguments, "zone");
    settings.x = numberIn(arguments, "x");
    settings.y = numberIn(arguments, "y");
    readLook(arguments, settings);
    if (arguments.has("axis"))
        settings.isOnSecondAxis = arguments.choice("axis") == 1;
    return session().perform(kernel::SetLineMaps(plot(), arguments.numbers("maps"), std::move(settings)));
}

bool setLineAxis(Arguments const& arguments)
{
    if (arguments.has("min") != arguments.has("max"))
        throw std::runtime_error("An axis has both limits or none.");
    auto const kind = static_cast<kernel::LineAxisKind>(arguments.choice("axis"));
    kernel::LineAxis axis = plotFrame().lineAxes.at(kind);
    if (arguments.has("min")) {
        axis.isFixed = true;
        axis.min = arguments.real("min");
        axis.max = arguments.real("max");
    }
    if (arguments.has("range"))
        axis.isFixed = arguments.choice("range") == 1;
    if (arguments.has("title"))
        axis.title = arguments.text("title");
    return session().perform(kernel::SetLineAxis(plot(), kind, std::move(axis)));
}

bool setPlotTitle(Arguments const& arguments)
{
    return session().perform(kernel::SetPlotTitle(plot(), arguments.text("title")));
}

Parameter maps()
{
    return parameter("maps", Kind::Numbers, "The numbers of the curves.");
}

std::vector<Parameter> settingParameters()
{
    std::vector<Parameter> parameters{
        maps(),
        parameter("show", Kind::Flag, "Whether they are shown."),
        parameter("name", Kind::Text, "What the legend calls them; empty for the name of the vertical variable."),
        parameter("zone", Kind::Zone, "The zone."),
        parameter("x", Kind::Variable, "The horizontal variable."),
        parameter("y", Kind::Variable, "The vertical variable."),
        parameter("colour", Kind::Text,
                  "The colour: automatic, or six digits for red, green and blue, such as 1F6FB5."),
        choice("line", kernel::CurveLook::styleWords(), "The line."),
        parameter("width", Kind::Real, "The width of the line.")
            .in("pixels")
            .within(kernel::CurveLook::leastWidth, kernel::CurveLook::mostWidth),
        choice("symbols", {"plot", "yes", "no"}, "Whether each point has a symbol, or as the plot has it."),
        choice("axis", {"y", "y2"}, "The vertical axis, of which y2 is at the right side.")};
    for (std::size_t n = 1; n < parameters.size(); ++n) {
        parameters[n].startingWith("");
        parameters[n].sentence.back() = ';';
        parameters[n].sentence += " otherwise as it was.";
    }
    return parameters;
}

void addLineAxes(Registry& registry)
{
    registry.add(
        {"set-line-axis",
         "Axis",
         "Changes the range and the title of an axis of a line plot.",
         {choice("axis", kernel::LinePlotAxes::axisWords(), "The axis, of which y2 is at the right side."),
          choice("range", {"fit", "fixed"},
                 "Whether it goes over the values of its curves, or from min to max; otherwise from min to max if they "
                 "are given.")
              .startingWith(""),
          parameter("min", Kind::Real, "The lowest value; otherwise as it was.").startingWith(""),
          parameter("max", Kind::Real, "The highest value; otherwise as it was.").startingWith(""),
          parameter("title", Kind::Text, "The title, empty for the names of the variables; otherwise as it was.")
              .startingWith("")},
         &setLineAxis});
    registry.add({"set-plot-title",
                  "Plot Title",
                  "Writes a title above a line plot.",
                  {parameter("title", Kind::Text, "The title, which may be empty.")},
                  &setPlotTitle});
}

} // namespace

void addLinePlots(Registry& registry)
{
    registry.add(
        {"set-line-plot",
         "Line Map",
         "Has the first curve show a variable of a zone over another one.",
         {parameter("zone", Kind::Zone, "The zone."), parameter("x", Kind::Variable, "The horizontal variable."),
          parameter("y", Kind::Variable, "The vertical variable.")},
         &setLinePlot});
    addLineAxes(registry);
    registry.add({"new-line-map", "New Line Map", "Adds a curve to a line plot.", {}, &newLineMap});
    registry.add({"set-line-maps", "Line Map", "Changes curves of a line plot.", settingParameters(), &setLineMaps});
    registry.add({"duplicate-line-maps",
                  "Duplicate Line Map",
                  "Puts a copy behind each of some curves of a line plot.",
                  {maps()},
                  &duplicateLineMaps});
    registry.add(
        {"delete-line-maps", "Delete Line Map", "Takes curves out of a line plot.", {maps()}, &deleteLineMaps});
}

} // namespace veldraw::operations
