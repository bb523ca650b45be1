#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetSolutionTime.h"
#include "operations/entries/Entries.h"
#include "platform/vdsdkbase/VelUtilFrame.h"

#include <optional>
#include <stdexcept>

namespace veldraw::operations {

namespace {

using Kind = ParameterKind;

kernel::Frame const& frame()
{
    auto const active = session().activeFrame();
    if (!active)
        throw std::runtime_error("There is no frame.");
    return *active; // the page has it
}

bool setPlotType(Arguments const& arguments)
{
    static constexpr PlotType_e types[] = {PlotType_Cartesian2D, PlotType_Cartesian3D, PlotType_XYLine};
    return session().perform(kernel::SetPlotType(frame().id, types[arguments.choice("type")]));
}

bool assignVariable(Arguments const& arguments)
{
    char const letter = "XYZUVWC"[arguments.choice("to")];
    int const variable = arguments.has("variable") ? arguments.number("variable") : 0;
    return session().perform(kernel::AssignVariable(frame().id, letter, variable));
}

bool setContourVariable(Arguments const& arguments)
{
    return session().perform(kernel::AssignVariable(frame().id, 'C', arguments.number("variable")));
}

std::vector<std::string> optionWords()
{
    std::vector<std::string> words;
    for (kernel::PlotOption const& option : kernel::plotOptions())
        words.push_back(std::string(option.group) + '/' + option.value);
    return words;
}

bool setPlotOption(Arguments const& arguments)
{
    kernel::PlotOption const& option = kernel::plotOptions()[static_cast<std::size_t>(arguments.choice("option"))];
    return session().perform(kernel::SetPlotOption(frame().id, option.member, arguments.flag("on")));
}

bool setLinePlot(Arguments const& arguments)
{
    return session().perform(
        kernel::SetLinePlot(frame().id, arguments.number("zone"), arguments.number("x"), arguments.number("y")));
}

bool setSolutionTime(Arguments const& arguments)
{
    return session().perform(kernel::SetSolutionTime(frame().id, arguments.real("time")));
}

bool newFrame(Arguments const&)
{
    auto const active = session().activeFrame();
    auto const dataSet = active ? active->dataSet : nullptr;
    if (!VelUtilFrameCreateNew(false, 0.0, 0.0, 0.0, 0.0))
        return false;
    return !dataSet || VelUtilFrameSetDataSet(dataSet->id(), VelUtilFrameGetUniqueID());
}

bool activateFrame(Arguments const& arguments)
{
    if (VelUtilFrameActivateByNumber(arguments.number("frame")))
        return true;
    throw std::runtime_error("There is no such frame.");
}

void addPlots(Registry& registry)
{
    registry.add({"set-plot-type",
                  "Plot Type",
                  "Chooses what the active frame shows.",
                  {choice("type", {"2d", "3d", "line"}, "The plot type.")},
                  &setPlotType});
    registry.add({"assign-variable",
                  "Assign Variable",
                  "Chooses the variable of an axis, of a component of the vector, or of the contour.",
                  {choice("to", {"X", "Y", "Z", "U", "V", "W", "C"}, "The axis, component, or C for the contour."),
                   parameter("variable", Kind::Variable, "The variable; otherwise none.").startingWith("")},
                  &assignVariable});
    registry.add({"set-contour-variable",
                  "Assign Variable",
                  "Chooses the variable whose values are shown as colours.",
                  {parameter("variable", Kind::Variable, "The variable.")},
                  &setContourVariable});
    registry.add(
        {"set-plot-option",
         "Plot Option",
         "Switches something that the plot shows on or off.",
         {choice("option", optionWords(), "What is shown."), parameter("on", Kind::Flag, "Whether it is shown.")},
         &setPlotOption});
    registry.add(
        {"set-line-plot",
         "Line Map",
         "Has the first curve show a variable of a zone over another one.",
         {parameter("zone", Kind::Zone, "The zone."), parameter("x", Kind::Variable, "The horizontal variable."),
          parameter("y", Kind::Variable, "The vertical variable.")},
         &setLinePlot});
    registry.add({"set-solution-time",
                  "Solution Time",
                  "Shows another moment of a transient data set.",
                  {parameter("time", Kind::Real, "The moment.").in("the unit of the file")},
                  &setSolutionTime});
}

} // namespace

void addFrameOperations(Registry& registry)
{
    auto const renewsData = OperationEntry::Renews::DataSet;
    registry.add({"new-frame",
                  "New Frame",
                  "Adds a frame with the data set of the active one, and makes it the active one.",
                  {},
                  &newFrame,
                  "The frame could not be created.",
                  "",
                  OperationEntry::Renews::Nothing,
                  false});
    registry.add(
        {"activate-frame",
         "Activate Frame",
         "Makes another frame the active one.",
         {parameter("frame", Kind::Whole, "Its number on the page.").within(1, std::numeric_limits<int>::max())},
         &activateFrame,
         "",
         "",
         renewsData,
         false});
    registry.add({"rename-frame",
                  "Rename Frame",
                  "Gives the active frame another name.",
                  {parameter("name", Kind::Text, "The name, which may be empty.")},
                  [](Arguments const& arguments) {
                      return session().perform(kernel::RenameFrame(frame().id, arguments.text("name")));
                  },
                  "",
                  "",
                  OperationEntry::Renews::Nothing,
                  false});
    addPlots(registry);
}

} // namespace veldraw::operations
