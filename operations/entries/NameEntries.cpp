#include "kernel/operations/DeleteAuxiliaryItem.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetAuxiliaryItem.h"
#include "operations/entries/Entries.h"

#include <stdexcept>

namespace veldraw::operations {

namespace {

using Kind = ParameterKind;
using Renews = OperationEntry::Renews;

bool renameZone(Arguments const& arguments)
{
    return session().perform(
        kernel::RenameZone(*session().activeDataSet(), arguments.number("zone"), arguments.text("name")));
}

bool renameVariable(Arguments const& arguments)
{
    return session().perform(
        kernel::RenameVariable(*session().activeDataSet(), arguments.number("variable"), arguments.text("name")));
}

bool setTitle(Arguments const& arguments)
{
    return session().perform(kernel::SetTitle(*session().activeDataSet(), arguments.text("title")));
}

/// An owner of auxiliary data: a zone, a variable, a line map, or what the word says.
struct Owner
{
    explicit Owner(Arguments const& arguments)
    {
        bool const isZone = arguments.has("zone");
        bool const isVariable = arguments.has("variable");
        bool const isLineMap = arguments.has("line-map");
        if (int(isZone) + int(isVariable) + int(isLineMap) > 1)
            throw std::runtime_error(
                "Auxiliary data have one owner: a zone, a variable, a line map, or what owner says.");
        static constexpr AuxDataLocation_e places[] = {AuxDataLocation_DataSet, AuxDataLocation_Frame,
                                                       AuxDataLocation_Page, AuxDataLocation_Layout};
        location = places[arguments.choice("owner")];
        take(isZone, AuxDataLocation_Zone, arguments, "zone");
        take(isVariable, AuxDataLocation_Var, arguments, "variable");
        take(isLineMap, AuxDataLocation_LineMap, arguments, "line-map");
    }

    void take(bool isGiven, AuxDataLocation_e place, Arguments const& arguments, char const* name)
    {
        if (!isGiven)
            return;
        location = place;
        object = arguments.number(name);
    }

    AuxDataLocation_e location;
    int object = 1;
};

bool setAuxiliary(Arguments const& arguments)
{
    Owner const owner(arguments);
    return session().perform(kernel::SetAuxiliaryItem(owner.location, owner.object, arguments.text("name"),
                                                      arguments.text("value"), arguments.flag("save")));
}

bool deleteAuxiliary(Arguments const& arguments)
{
    Owner const owner(arguments);
    return session().perform(kernel::DeleteAuxiliaryItem(owner.location, owner.object, arguments.text("name")));
}

std::vector<Parameter> withOwner(std::vector<Parameter> parameters)
{
    parameters.push_back(
        choice("owner", {"data-set", "frame", "page", "layout"}, "Whose data it is, where it is none of the following.")
            .startingWith("data-set"));
    parameters.push_back(parameter("zone", Kind::Zone, "The zone whose data it is.").startingWith(""));
    parameters.push_back(parameter("variable", Kind::Variable, "The variable whose data it is.").startingWith(""));
    parameters.push_back(parameter("line-map", Kind::Whole, "The line map of the frame whose data it is.")
                             .startingWith("")
                             .within(1, std::numeric_limits<int>::max()));
    return parameters;
}

} // namespace

void addNamesAndNotes(Registry& registry)
{
    registry.add({"rename-zone",
                  "Rename Zone",
                  "Gives a zone another name.",
                  {parameter("zone", Kind::Zone, "The zone."), parameter("name", Kind::Text, "The new name.")},
                  &renameZone,
                  "Error renaming the zone.",
                  "",
                  Renews::Names});
    registry.add(
        {"rename-variable",
         "Rename Variable",
         "Gives a variable another name.",
         {parameter("variable", Kind::Variable, "The variable."), parameter("name", Kind::Text, "The new name.")},
         &renameVariable,
         "Error renaming the variable.",
         "",
         Renews::Names});
    registry.add({"set-title",
                  "Data Set Title",
                  "Gives the data set another title.",
                  {parameter("title", Kind::Text, "The title, which may be empty.")},
                  &setTitle,
                  "Error changing the title of the data set."});
    registry.add(
        {"set-auxiliary-data", "Auxiliary Data", "Adds an item of auxiliary data, or gives it another value.",
         withOwner({parameter("name", Kind::Text, "Its name: a letter, then letters, digits, _ or a full stop."),
                    parameter("value", Kind::Text, "Its value."),
                    parameter("save", Kind::Flag, "Whether it is saved with its owner.").startingWith("yes")}),
         &setAuxiliary});
    registry.add({"delete-auxiliary-data", "Auxiliary Data", "Deletes an item of auxiliary data.",
                  withOwner({parameter("name", Kind::Text, "Its name, in any case.")}), &deleteAuxiliary});
}

} // namespace veldraw::operations
