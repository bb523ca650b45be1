#include "dialogs/interpolation/InverseDistanceInterpolationPropertiesGenerated.h"

#include "dialogs/property/KernelPropertyDeferred.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

using styleproperties::KernelProperty;
using styleproperties::KernelPropertyAbstract;
using styleproperties::KernelPropertyDeferred;
using toolbox::StringList;

namespace {

template <typename T>
boost::shared_ptr<KernelPropertyAbstract<T>> settingOfData(bool deferred, StringList const& prefix, char const* name)
{
    StringList path(prefix);
    path.append(StringList("Interface", "Data", name, static_cast<char const*>(nullptr)));
    toolbox::StyleValue const value(path);
    if (deferred)
        return boost::make_shared<KernelPropertyDeferred<T>>(value);
    return boost::make_shared<KernelProperty<T>>(value);
}

// A value that is written at once has nothing that waits.
template <typename T>
void submitIfDeferred(KernelPropertyAbstract<T>& property)
{
    if (auto* const deferred = dynamic_cast<KernelPropertyDeferred<T>*>(&property))
        deferred->submit();
}

} // namespace

InverseDistanceInterpolationPropertiesGenerated::InverseDistanceInterpolationPropertiesGenerated(
    bool deferred, StringList const& prefix)
    : UIKernelStylePropertiesAbstract(deferred, nullptr)
    , m_invDistExponent(settingOfData<double>(deferred, prefix, "InvDistExponent"))
    , m_invDistMinRadius(settingOfData<double>(deferred, prefix, "InvDistMinRadius"))
    , m_interpNPoints(settingOfData<long long>(deferred, prefix, "InterpNPoints"))
    , m_interpPtSelection(settingOfData<PtSelection_e>(deferred, prefix, "InterpPTSelection"))
{
    addSubmission([this] { submitIfDeferred(*m_invDistExponent); });
    addSubmission([this] { submitIfDeferred(*m_invDistMinRadius); });
    addSubmission([this] { submitIfDeferred(*m_interpNPoints); });
    addSubmission([this] { submitIfDeferred(*m_interpPtSelection); });
}

InverseDistanceInterpolationPropertiesGenerated::~InverseDistanceInterpolationPropertiesGenerated() = default;

boost::shared_ptr<KernelPropertyAbstract<double>>
InverseDistanceInterpolationPropertiesGenerated::invDistExponent() const
{
    return m_invDistExponent;
}

void InverseDistanceInterpolationPropertiesGenerated::setInvDistExponent(KernelPropertyPtr<double> const& property)
{
    m_invDistExponent = property;
}

boost::shared_ptr<KernelPropertyAbstract<double>>
InverseDistanceInterpolationPropertiesGenerated::invDistMinRadius() const
{
    return m_invDistMinRadius;
}

void InverseDistanceInterpolationPropertiesGenerated::setInvDistMinRadius(KernelPropertyPtr<double> const& property)
{
    m_invDistMinRadius = property;
}

boost::shared_ptr<KernelPropertyAbstract<long long>>
InverseDistanceInterpolationPropertiesGenerated::interpNPoints() const
{
    return m_interpNPoints;
}

void InverseDistanceInterpolationPropertiesGenerated::setInterpNPoints(KernelPropertyPtr<long long> const& property)
{
    m_interpNPoints = property;
}

boost::shared_ptr<KernelPropertyAbstract<PtSelection_e>>
InverseDistanceInterpolationPropertiesGenerated::interpPtSelection() const
{
    return m_interpPtSelection;
}

void InverseDistanceInterpolationPropertiesGenerated::setInterpPtSelection(
    KernelPropertyPtr<PtSelection_e> const& property)
{
    m_interpPtSelection = property;
}

} // namespace veldraw::sdk::ui::propertymanager
