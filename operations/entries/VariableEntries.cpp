#include "operations/entries/Entries.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdtoolbox/ArgList.h"

namespace veldraw::operations {

namespace {

using Kind = ParameterKind;
using Renews = OperationEntry::Renews;

Parameter variables(std::string sentence)
{
    return parameter("variables", Kind::Variables, std::move(sentence));
}

bool deleteVariables(Arguments const& arguments)
{
    return VelUtilDataSetDeleteVar(toolboxSet(arguments.numbers("variables")).getRef());
}

bool loadVariables(Arguments const& arguments)
{
    toolbox::Set const zones = toolboxSet(arguments.numbers("zones"));
    toolbox::Set const wanted = toolboxSet(arguments.numbers("variables"));
    return VelUtilDataSetMakeVarsAvailableByUniqueID(VelUtilDataSetGetUniqueID(), zones.getRef(), wanted.getRef());
}

bool setValue(Arguments const& arguments)
{
    toolbox::ArgList list;
    list.appendInt("Zone", arguments.whole("zone"));
    list.appendInt("Var", arguments.whole("variable"));
    list.appendInt("Index", arguments.whole("index"));
    list.appendDouble("FieldValue", arguments.real("value"));
    list.appendInt("AutoBranch", arguments.flag("shared") ? 0 : 1);
    return VelUtilDataValueSetByZoneVarX(list.getRef());
}

} // namespace

void addVariableOperations(Registry& registry)
{
    registry.add({"delete-variables",
                  "Delete Variable",
                  "Deletes variables in all zones.",
                  {variables("The variables to delete; at least one has to stay.")},
                  &deleteVariables,
                  "Error attempting to delete variable(s)",
                  "Variable deletion successful",
                  Renews::Names});
    registry.add({"load-variables",
                  "Load Variable",
                  "Loads the values of variables, and keeps them loaded.",
                  {variables("The variables that are wanted from now on."),
                   parameter("zones", Kind::Zones, "The zones in which they are wanted.").startingWith("*")},
                  &loadVariables});
    registry.add(
        {"set-value",
         "Edit Value",
         "Stores one value.",
         {parameter("zone", Kind::Zone, "The zone."), parameter("variable", Kind::Variable, "The variable."),
          parameter("index", Kind::Whole, "The point or cell, from 1 on; cells of ordered zones count as points do.")
              .within(1, std::numeric_limits<double>::infinity()),
          parameter("value", Kind::Real, "The value, which is rounded where the variable has whole numbers."),
          parameter("shared", Kind::Flag, "Whether zones that share the values get the new one too.")
              .startingWith("no")},
         &setValue,
         "Error while setting variable value"});
}

} // namespace veldraw::operations
