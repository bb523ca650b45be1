#include "platform/vdsdkbase/VelUtilFourier.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/api/ArgumentList.h"
#include "kernel/operations/FourierTransform.h"

#include <limits>

using namespace veldraw::kernel;
using veldraw::kernel::api::session;

namespace {

bool canBeTransformed(DataSet const* dataSet, int number)
{
    std::shared_ptr<Zone> const zone = dataSet == nullptr ? nullptr : dataSet->zone(number);
    return zone && zone->enabled && zone->isOrdered() && zone->dimensionality() == 1 &&
           zone->pointCount() >= FourierTransform::fewestPoints;
}

/// The set behind the address of its handle; null when there is none.
Set_s* setAt(std::optional<long long> address)
{
    Set_s* const* const handle = reinterpret_cast<Set_s* const*>(address.value_or(0));
    return handle == nullptr ? nullptr : *handle;
}

/// A choice of the arguments that is switched on by 1 and off by 0; none for what is no such thing.
std::optional<bool> choiceOf(ArgumentList const& arguments, char const* name)
{
    auto const value = arguments.intValue(name);
    bool const isChoice = value && (*value == 0 || *value == 1);
    return isChoice ? std::optional<bool>(*value == 1) : std::nullopt;
}

bool transform(DataSet const& dataSet, ArgumentList const& arguments)
{
    auto const independent = arguments.intValue("IndependentVar");
    auto const window = arguments.intValue("WindowFunction");
    auto const dependents = arguments.numbers("DependentVars");
    auto const sources = arguments.numbers("SourceZones");
    auto const includeConjugates = choiceOf(arguments, "IncludeConjugates");
    auto const obeyBlanking = choiceOf(arguments, "ObeySourceZoneBlanking");
    auto const replaceZones = choiceOf(arguments, "ReplaceMatchingResultZones");
    auto const replaceVariables = choiceOf(arguments, "ReplaceMatchingResultVariables");
    Set_s* const zones = setAt(arguments.intValue("FourierTransformResultingZones"));
    Set_s* const variables = setAt(arguments.intValue("FourierTransformResultingVars"));
    bool const areSets = dependents && sources && zones != nullptr && variables != nullptr && zones != variables;
    if (!areSets || !independent || !window) {
        return session().refuse("An argument is missing.");
    }
    if (!includeConjugates || !obeyBlanking || !replaceZones || !replaceVariables) {
        return session().refuse("A choice is missing, or neither 0 nor 1.");
    }
    if (*window < WindowFunction_Rectangular || *window > WindowFunction_Hamming) {
        return session().refuse("There is no such window function.");
    }
    bool const isNumber = *independent >= 1 && *independent <= std::numeric_limits<int>::max();
    FourierTransform::Choice const choice{
        {static_cast<WindowFunction_e>(*window), *includeConjugates}, *obeyBlanking, *replaceZones, *replaceVariables};
    FourierTransform operation(dataSet, isNumber ? static_cast<int>(*independent) : 0, *dependents, *sources, choice);
    bool const isDone = session().perform(operation);
    if (isDone) {
        zones->members = std::move(operation.resultZones());
        variables->members = std::move(operation.resultVariables());
    }
    return isDone;
}

} // namespace

bool VelUtilFourierTransformX(ArgList_s* list)
{
    return api::answerOr(false, [&] {
        std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
        if (list == nullptr || !dataSet) {
            return session().refuse(dataSet ? "An argument is missing." : "There is no data set.");
        }
        return transform(*dataSet, list->arguments);
    });
}

bool VelUtilFourierTransformIsValidZone(int zone)
{
    return canBeTransformed(api::session().activeDataSet().get(), zone);
}

bool VelUtilFourierTransformIsValidZoneByDataSetID(long long dataSetID, int zone)
{
    return canBeTransformed(api::session().dataSet(dataSetID).get(), zone);
}
