#include "dialogs/fourier/FourierTransformButtonRelevance.h"

#include "platform/vdsdkbase/VelUtilFourier.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <algorithm>
#include <utility>

namespace veldraw::sdk::ui::propertymanager {

FourierTransformButtonRelevance::FourierTransformButtonRelevance(NumberProperty independentVariable,
                                                                 NumbersProperty dependentVariables,
                                                                 NumbersProperty sourceZones)
    : m_independentVariable(std::move(independentVariable))
    , m_dependentVariables(std::move(dependentVariables))
    , m_sourceZones(std::move(sourceZones))
{
    auto const tell = [this] { signalRelevanceChanged(); };
    m_connections.add(m_independentVariable->connectPropertyChanged(tell));
    m_connections.add(m_dependentVariables->connectPropertyChanged(tell));
    m_connections.add(m_sourceZones->connectPropertyChanged(tell));
}

FourierTransformButtonRelevance::~FourierTransformButtonRelevance() = default;

bool FourierTransformButtonRelevance::isRelevant() const
{
    if (!hasDependentVariable())
        return false;
    std::set<int> const zones = m_sourceZones->value();
    if (zones.empty())
        return false;
    AppLock const lock(AppLock::RecordAsUsual);
    return std::all_of(zones.begin(), zones.end(), &VelUtilFourierTransformIsValidZone);
}

// Of two variables at least one is not the independent one.
bool FourierTransformButtonRelevance::hasDependentVariable() const
{
    std::set<int> const variables = m_dependentVariables->value();
    if (variables.empty())
        return false;
    return variables.size() > 1 || *variables.begin() != m_independentVariable->value();
}

} // namespace veldraw::sdk::ui::propertymanager
