#include "platform/vdsdkbase/VelUtilDataValue.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/api/ArgumentList.h"
#include "kernel/api/LoadFailure.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetValue.h"

#include <algorithm>
#include <limits>

using namespace veldraw::kernel;
using veldraw::kernel::api::activeField;
using veldraw::kernel::api::session;

namespace {

/// @p number as the number of a zone or variable; 0, which is the number of none, if it is negative or too large.
int asNumber(long long number)
{
    return number > 0 && number <= std::numeric_limits<int>::max() ? static_cast<int>(number) : 0;
}

} // namespace

bool VelUtilDataValueSetByZoneVarX(ArgList_s* list)
{
    return list != nullptr && api::answerOr(false, [&] {
               ArgumentList const& arguments = list->arguments;
               auto const zone = arguments.intValue("Zone");
               auto const variable = arguments.intValue("Var");
               auto const index = arguments.intValue("Index");
               auto const value = arguments.doubleValue("FieldValue");
               auto const autoBranch = arguments.intValue("AutoBranch");
               std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
               if (!zone || !variable || !index || !value || !autoBranch || !dataSet) {
                   return session().refuse(dataSet ? "An argument is missing." : "There is no data set.");
               }
               return session().perform(SetValue(*dataSet, asNumber(*zone), asNumber(*variable),
                                                 std::max(*index, 0LL) - 1, *value, *autoBranch != 0));
           });
}

double VelUtilDataValueGetByZoneVar(int zone, int var, long long index)
{
    return api::answerOr(0.0, [&] {
        Field const* field = activeField(zone, var);
        if (field != nullptr && !field->isLoaded()) {
            bool const isLoaded =
                session().perform(LoadVariables(*session().activeDataSet(), {zone}, {var})) || api::tellLoadFailure();
            field = isLoaded ? activeField(zone, var) : nullptr; // listeners of the load may have changed the data set
        }
        if (field == nullptr || field->isPassive() || !field->isLoaded()) {
            return 0.0;
        }
        field->group()->noteUse();
        std::shared_ptr<Buffer const> const buffer = field->group()->buffer();
        return index >= 1 && index <= buffer->size() ? buffer->value(index - 1) : 0.0;
    });
}

int VelUtilDataValueGetLocation(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field == nullptr ? -1 : static_cast<int>(field->location());
}

int VelUtilDataValueGetShareCount(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field == nullptr ? 0 : field->shareCount();
}

int VelUtilDataValueGetType(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field == nullptr ? 0 : static_cast<int>(field->type());
}

bool VelUtilDataValueIsLoaded(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field != nullptr && field->isLoaded();
}

bool VelUtilDataValueIsMinMaxValidByZoneVar(int zone, int var)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<Zone> const found = api::activeZone(zone);
        return found && found->range(var).isValid();
    });
}

bool VelUtilDataValueIsPassive(int zone, int var)
{
    Field const* const field = activeField(zone, var);
    return field != nullptr && field->isPassive();
}
