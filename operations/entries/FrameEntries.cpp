#include "kernel/frames/Page.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/SetContourColours.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetSolutionTime.h"
#include "kernel/operations/SetValueBlanking.h"
#include "operations/BlankingText.h"
#include "operations/entries/Entries.h"
#include "platform/vdsdkbase/VelUtilFrame.h"

#include <optional>
#include <stdexcept>

namespace veldraw::operations {

namespace {

using Kind = ParameterKind;

constexpr double mostNumber = std::numeric_limits<int>::max();

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

bool setContourColours(Arguments const& arguments)
{
    if (arguments.has("min") != arguments.has("max"))
        throw std::runtime_error("A contour has both limits or none.");
    kernel::ContourColours colours;
    if (arguments.has("min")) {
        colours.min = arguments.real("min");
        colours.max = arguments.real("max");
    }
    colours.isFixed = arguments.has("range") ? arguments.choice("range") == 1 : arguments.has("min");
    colours.levels = arguments.number("levels");
    colours.map = static_cast<kernel::ColourMapKind>(arguments.choice("map"));
    return session().perform(kernel::SetContourColours(frame().id, colours));
}

bool setValueBlanking(Arguments const& arguments)
{
    kernel::ValueBlanking blanking = frame().valueBlanking;
    blanking.isOn = arguments.flag("on");
    if (arguments.has("constraints") && frame().dataSet)
        blanking.constraints = constraintsOf(arguments.text("constraints"), *frame().dataSet);
    return session().perform(kernel::SetValueBlanking(frame().id, std::move(blanking)));
}

bool setSolutionTime(Arguments const& arguments)
{
    return session().perform(kernel::SetSolutionTime(frame().id, arguments.real("time")));
}

/// The data set of a frame by its one-based number; null for 0.
std::shared_ptr<kernel::DataSet> dataOf(int number)
{
    if (number == 0)
        return nullptr;
    auto const page = session().activePage();
    if (!page || number > static_cast<int>(page->frames.size()))
        throw std::runtime_error("There is no such frame.");
    return page->frames[static_cast<std::size_t>(number) - 1]->dataSet;
}

bool newFrame(Arguments const& arguments)
{
    auto const active = session().activeFrame();
    auto const dataSet = arguments.has("like") ? dataOf(arguments.number("like")) : active ? active->dataSet : nullptr;
    auto const page = session().activePage();
    if (!page)
        throw std::runtime_error("There is no page.");
    auto const added = kernel::AddFrame::frameFor(*page, dataSet);
    return session().perform(kernel::AddFrame(added, kernel::AddFrame::Place::AsItStands));
}

bool setFrameData(Arguments const& arguments)
{
    return session().setFrameDataSet(frame().id, dataOf(arguments.number("like")));
}

bool moveFrame(Arguments const& arguments)
{
    return session().perform(kernel::MoveFrame(
        frame().id, {arguments.real("x"), arguments.real("y"), arguments.real("width"), arguments.real("height")}));
}

bool renameFrame(Arguments const& arguments)
{
    return session().perform(kernel::RenameFrame(frame().id, arguments.text("name")));
}

bool deleteFrame(Arguments const&)
{
    return session().perform(kernel::DeleteFrame(frame().id));
}

bool activateFrame(Arguments const& arguments)
{
    if (VelUtilFrameActivateByNumber(arguments.number("frame")))
        return true;
    throw std::runtime_error("There is no such frame.");
}

Parameter inches(char const* name, char const* sentence)
{
    return parameter(name, Kind::Real, sentence).in("inches");
}

void addContours(Registry& registry)
{
    registry.add({"set-contour-variable",
                  "Assign Variable",
                  "Chooses the variable whose values are shown as colours.",
                  {parameter("variable", Kind::Variable, "The variable.")},
                  &setContourVariable});
    registry.add({"set-contour-colours",
                  "Contour Colours",
                  "Chooses the colours of the contour, and the values that they go over.",
                  {choice("range", {"shown", "fixed"},
                          "Whether the colours go over the values that are shown, or over min to max; otherwise over "
                          "min to max if they are given.")
                       .startingWith(""),
                   parameter("min", Kind::Real, "The lowest value; otherwise that of what is shown.").startingWith(""),
                   parameter("max", Kind::Real, "The highest value; otherwise that of what is shown.").startingWith(""),
                   parameter("levels", Kind::Whole, "The number of bands of a contour in bands; 0 for about ten.")
                       .within(0, kernel::ContourColours::mostLevels)
                       .startingWith("0"),
                   choice("map", kernel::ContourColours::mapWords(), "The colours.").startingWith("viridis")},
                  &setContourColours});
}

void addBlanking(Registry& registry)
{
    registry.add({"set-value-blanking",
                  "Value Blanking",
                  "Leaves cells out of the active frame where a constraint holds at all of their points.",
                  {parameter("on", Kind::Flag, "Whether cells are left out.").startingWith("yes"),
                   parameter("constraints", Kind::Text,
                             "What is left out, such as \"T < 300; 4 > 1e5 off\": variables by name or number, and "
                             "off for a constraint that does not count; otherwise as before.")
                       .startingWith("")},
                  &setValueBlanking});
}

void addPlots(Registry& registry)
{
    addContours(registry);
    addBlanking(registry);
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
    registry.add(
        {"set-plot-option",
         "Plot Option",
         "Switches something that the plot shows on or off.",
         {choice("option", optionWords(), "What is shown."), parameter("on", Kind::Flag, "Whether it is shown.")},
         &setPlotOption});
    addLinePlots(registry);
    registry.add({"set-solution-time",
                  "Solution Time",
                  "Shows another moment of a transient data set.",
                  {parameter("time", Kind::Real, "The moment.").in("the unit of the file")},
                  &setSolutionTime});
}

/// Adds an operation that needs no data.
void addOnFrame(Registry& registry, OperationEntry entry, OperationEntry::Renews renews)
{
    entry.renews = renews;
    entry.needsData = false;
    registry.add(std::move(entry));
}

/// Operations after which another data set may be the active one.
void addFrameChanges(Registry& registry)
{
    auto const renews = OperationEntry::Renews::DataSet;
    Parameter const like =
        parameter("like", Kind::Whole, "The number of a frame whose data set it is").within(0, mostNumber);
    Parameter likeOrActive = like;
    likeOrActive.sentence += ", 0 for none; otherwise that of the active one.";
    Parameter likeOther = like;
    likeOther.sentence += '.';
    addOnFrame(registry,
               {"new-frame",
                "New Frame",
                "Adds a frame in the middle of the page, and makes it the active one.",
                {likeOrActive.startingWith("")},
                &newFrame,
                "The frame could not be created."},
               renews);
    addOnFrame(registry,
               {"set-frame-data",
                "Frame Data",
                "Gives the active frame the data set of another one, and lays it out anew.",
                {likeOther.within(1, mostNumber)},
                &setFrameData},
               renews);
    addOnFrame(registry, {"delete-frame", "Delete Frame", "Takes the active frame off the page.", {}, &deleteFrame},
               renews);
    addOnFrame(registry,
               {"activate-frame",
                "Activate Frame",
                "Makes another frame the active one.",
                {parameter("frame", Kind::Whole, "Its number on the page.").within(1, mostNumber)},
                &activateFrame},
               renews);
}

} // namespace

void addFrameOperations(Registry& registry)
{
    auto const renews = OperationEntry::Renews::Nothing;
    addFrameChanges(registry);
    addOnFrame(registry,
               {"move-frame",
                "Move Frame",
                "Puts the active frame elsewhere on the page.",
                {inches("x", "The distance of its left edge from that of the paper."),
                 inches("y", "The distance of its top edge from that of the paper."), inches("width", "Its width."),
                 inches("height", "Its height.")},
                &moveFrame},
               renews);
    addOnFrame(registry,
               {"rename-frame",
                "Rename Frame",
                "Gives the active frame another name.",
                {parameter("name", Kind::Text, "The name, which may be empty.")},
                &renameFrame},
               renews);
    addPlots(registry);
}

} // namespace veldraw::operations
