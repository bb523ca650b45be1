#pragma once

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/CheckButtonPropertyBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/SpinBoxDoublePropertyBinding.h"
#include "dialogs/property/AngleSpinBoxIncDecCalculator.h"
#include "dialogs/zoneops/RotationAxisTemplates.h"

#include <boost/make_shared.hpp>

#include <memory>

namespace veldraw::dialogs::data {

/// The bindings of what the forms of the axial dialogs have in common: zones, origin, axis and angle. Such a form is any
/// that names these widgets alike.
template <typename Form>
class AxialRotationBindings
{
public:
    using BindingInterface = sdk::ui::dialogs::propertybindings::BindingInterface;
    using BindingList = sdk::ui::dialogs::propertybindings::BindingList;

    /// All three must outlive the bindings.
    AxialRotationBindings(Form& form, AxialRotationPropertiesManager& manager, BindingList& bindings)
        : m_form(form)
        , m_manager(manager)
        , m_bindings(bindings)
    {
    }

    /// Appends the bindings in the order in which the controls take their values.
    void bind()
    {
        bindAngle();
        bindAxis();
        bindOrigin();
        bindZones();
    }

    /// Makes the rule by which the axis can be chosen in a 3D plot only.
    std::unique_ptr<sdk::ui::dialogs::propertybindings::RelevanceApplier> applyCartesian3DRelevance()
    {
        using sdk::ui::dialogs::propertybindings::RelevanceApplier;
        return std::make_unique<RelevanceApplier>(
            m_manager.cartesian3DRelevance(), m_form.xAxisButton, m_form.yAxisButton, m_form.zAxisButton,
            m_form.zOrgLabel, m_form.zOrgBox, RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle);
    }

private:
    void bindAngle()
    {
        using namespace sdk::ui::dialogs::propertybindings;
        m_bindings.add<ComboBoxPropertyBinding<ThetaMode_e>>(
            m_form.angleUnits_comboBox, m_manager.angleUnitsListModel(), m_manager.rotationAngleUnits(),
            BindingInterface::ModelUpdateDeferredOnBusy);
        m_bindings.add<SpinBoxDoublePropertyBinding>(
            m_form.angle_spinBox, m_manager.displayedAngle(),
            boost::make_shared<sdk::ui::propertymanager::AngleSpinBoxIncDecCalculator>(m_manager.rotationAngleUnits()));
    }

    void bindAxis()
    {
        using Button = sdk::ui::dialogs::propertybindings::RadioButtonPropertyBinding<
            AxialRotationPropertiesManager::RotationAxis>;
        m_bindings.add<Button>(m_form.xAxisButton, m_manager.rotationAxis(),
                               AxialRotationPropertiesManager::xRotationAxis);
        m_bindings.add<Button>(m_form.yAxisButton, m_manager.rotationAxis(),
                               AxialRotationPropertiesManager::yRotationAxis);
        m_bindings.add<Button>(m_form.zAxisButton, m_manager.rotationAxis(),
                               AxialRotationPropertiesManager::zRotationAxis);
    }

    void bindOrigin()
    {
        using Box = sdk::ui::dialogs::propertybindings::SpinBoxDoublePropertyBinding;
        auto const& origin = m_manager.rotationOrigin();
        m_bindings.add<Box>(m_form.xOrgBox, origin.at(0), nullptr);
        m_bindings.add<Box>(m_form.yOrgBox, origin.at(1), nullptr);
        m_bindings.add<Box>(m_form.zOrgBox, origin.at(2), nullptr);
    }

    void bindZones()
    {
        using namespace sdk::ui::dialogs::propertybindings;
        m_bindings.add<ListViewPropertyBinding>(m_form.zoneList, m_manager.zoneListModel(), m_manager.selectedZones(),
                                                BindingInterface::ModelUpdateDeferredOnBusy);
        m_bindings.add<CheckButtonPropertyBinding>(m_form.selectByStrand,
                                                   m_manager.zoneListModel()->groupByTimeStrand(), false);
    }

    Form& m_form;
    AxialRotationPropertiesManager& m_manager;
    BindingList& m_bindings;
};

} // namespace veldraw::dialogs::data
