#pragma once

#include "dialogs/property/KernelPropertyAbstract.h"
#include "dialogs/property/UIKernelStylePropertiesAbstract.h"
#include "platform/vdtoolbox/StringList.h"

#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// The settings of the inverse-distance interpolation that belong to the kernel's style tree. Their limits and their values at
/// first are the kernel's: a value beyond them is refused in its words.
class InverseDistanceInterpolationPropertiesGenerated : public UIKernelStylePropertiesAbstract
{
public:
    template <typename T>
    using KernelPropertyPtr = boost::shared_ptr<styleproperties::KernelPropertyAbstract<T>>;

    /// @param deferred whether the values wait for `submit()`; otherwise each is written at once
    /// @param prefix names of the style tree that stand in front of the settings' own
    /// @throws InvalidArgumentException for a prefix that the kernel does not know
    InverseDistanceInterpolationPropertiesGenerated(bool deferred, toolbox::StringList const& prefix);
    ~InverseDistanceInterpolationPropertiesGenerated() override;

    // Whoever follows a property that is replaced keeps following the former one.

    /// Power of the distance by which a source point loses weight.
    virtual KernelPropertyPtr<double> invDistExponent() const;
    virtual void setInvDistExponent(KernelPropertyPtr<double> const& property);

    /// The distance that any smaller one counts as, in units of the coordinates.
    virtual KernelPropertyPtr<double> invDistMinRadius() const;
    virtual void setInvDistMinRadius(KernelPropertyPtr<double> const& property);

    /// How many source points a destination point takes in, unless it takes all.
    virtual KernelPropertyPtr<long long> interpNPoints() const;
    virtual void setInterpNPoints(KernelPropertyPtr<long long> const& property);

    /// Which source points a destination point takes in.
    virtual KernelPropertyPtr<PtSelection_e> interpPtSelection() const;
    virtual void setInterpPtSelection(KernelPropertyPtr<PtSelection_e> const& property);

private:
    KernelPropertyPtr<double> m_invDistExponent;
    KernelPropertyPtr<double> m_invDistMinRadius;
    KernelPropertyPtr<long long> m_interpNPoints;
    KernelPropertyPtr<PtSelection_e> m_interpPtSelection;
};

} // namespace veldraw::sdk::ui::propertymanager
