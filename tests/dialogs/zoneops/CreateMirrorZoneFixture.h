#pragma once

#include "dialogs/zoneops/CreateMirrorZoneDialog.h"
#include "dialogs/zoneops/CreateMirrorZonePropertiesManager.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/DialogFixture.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <string>
#include <vector>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;
using sdk::ui::propertymanager::CreateMirrorZonePropertiesManager;

inline DialogTraits createMirrorZone()
{
    auto traits = DialogTraits::of<dialogs::data::CreateMirrorZoneDialog>();
    traits.list = "createMirrorZone_Source_MList";
    traits.action = "C&reate";
    traits.refusal = "error: No source zones were specified";
    traits.helpTopic = "create_zone_mirror.html";
    traits.plotType = PlotType_Cartesian3D;
    return traits;
}

/// The dialog over zones with coordinates, a vector and scalars, in a 3D plot. The value of variable v at point p of zone z, all
/// from 1, is 100 z + 10 v + p.
class CreateMirrorZoneFixture : public DialogFixture
{
protected:
    CreateMirrorZoneFixture()
        : DialogFixture(createMirrorZone())
    {
        for (char const* name : {"Z", "U", "V", "W"})
            sample.dataSet().addVariable(std::make_shared<kernel::Variable>(name));
        for (auto const& zone : sample.dataSet().zones())
            fill(*zone);
        // Shown once more, now that there is something to assign to axes and vector.
        sample.session().setFrameDataSet(sample.frame()->id, sample.frame()->dataSet);
        showAs(PlotType_Cartesian3D);
        CreateMirrorZonePropertiesManager::mirrorVar2D()->setValue('Y');
        CreateMirrorZonePropertiesManager::mirrorVar3D()->setValue('Z');
    }

    /// "2DX", "3DYZ" and so on.
    QRadioButton& choice(std::string const& name)
    {
        return child<QRadioButton>("createMirrorZone_Axis" + name + "_RadioButton");
    }
    /// "2D" or "3D".
    QWidget& page(std::string const& name) { return child<QWidget>("createMirrorZone_Axis" + name + "Obj_Outline"); }

    /// On the mark of the button, where a person clicks.
    void clickChoice(std::string const& name) { clickMark("createMirrorZone_Axis" + name + "_RadioButton"); }

    /// Names of the choices that are on the screen, the one that is on with a star.
    std::vector<std::string> visibleChoices()
    {
        IdleDispatcher::flush();
        std::vector<std::string> names;
        for (std::string const name : {"2DX", "2DY", "3DXY", "3DXZ", "3DYZ"})
            if (choice(name).isVisible())
                names.push_back((choice(name).isChecked() ? "*" : "") + name);
        return names;
    }

    /// Names of the variables whose values in zone @p copy are those in zone @p source with the other sign.
    std::vector<std::string> negated(int source, int copy) const
    {
        std::vector<std::string> names;
        for (int variable = 1; variable <= sample.dataSet().variableCount(); ++variable)
            if (firstValue(copy, variable) == -firstValue(source, variable))
                names.push_back(sample.dataSet().variable(variable)->name);
        return names;
    }

    double firstValue(int zone, int variable) const
    {
        return sample.dataSet().field(zone, variable)->group()->buffer()->value(0);
    }

private:
    void fill(kernel::Zone& zone) const
    {
        int const number = sample.dataSet().zoneNumber(zone.id);
        for (std::size_t field = 0; field < zone.fields.size(); ++field) {
            auto buffer = kernel::Buffer::allocate(FieldDataType_Float, zone.pointCount());
            for (std::int64_t point = 0; point < buffer->size(); ++point)
                buffer->setValue(point, 100.0 * number + 10.0 * static_cast<double>(field + 1) +
                                            static_cast<double>(point + 1));
            zone.fields[field] =
                kernel::Field(std::make_shared<kernel::ShareGroup>(std::move(buffer)), ValueLocation_Nodal);
        }
    }
};

} // namespace veldraw::tests
