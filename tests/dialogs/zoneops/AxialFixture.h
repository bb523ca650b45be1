#pragma once

#include "dialogs/zoneops/AxialDuplicationDialog.h"
#include "dialogs/zoneops/AxialDuplicationPropertiesManager.h"
#include "dialogs/zoneops/AxialRotationDialog.h"
#include "dialogs/zoneops/RotationAxisTemplates.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/DialogFixture.h"
#include "tests/dialogs/support/SpinBoxDriver.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QListView>
#include <QTest>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::tests {

using dialogs::data::AxialDuplicationPropertiesManager;
using dialogs::data::AxialRotationPropertiesManager;
using sdk::ui::common::IdleDispatcher;

inline DialogTraits axialRotation()
{
    auto traits = DialogTraits::of<dialogs::data::AxialRotationDialog>();
    traits.list = "zoneList";
    traits.action = "&Rotate";
    traits.refusal = "error: Axial Rotation requires selection of one or more zones.";
    traits.helpTopic = "axial_rotation.html";
    traits.plotType = PlotType_Cartesian3D;
    traits.bindsActionBeforeList = false;
    traits.repeatedMnemonics = {"Alt+Z"};
    return traits;
}

inline DialogTraits axialDuplication()
{
    auto traits = DialogTraits::of<dialogs::data::AxialDuplicationDialog>();
    traits.list = "zoneList";
    traits.action = "&Duplicate";
    traits.refusal = "error: Axial Duplication requires selection of one or more zones.";
    traits.helpTopic = "axial_duplication.html";
    traits.plotType = PlotType_Cartesian3D;
    traits.bindsActionBeforeList = false;
    traits.repeatedMnemonics = {"Alt+S", "Alt+Z"};
    return traits;
}

/// Has the settings of the axial dialogs, which outlive every dialog, as they are at first; for its scope.
class FreshAxialSettings
{
public:
    FreshAxialSettings() { reset(); }
    ~FreshAxialSettings() { reset(); }
    FreshAxialSettings(FreshAxialSettings const&) = delete;
    FreshAxialSettings& operator=(FreshAxialSettings const&) = delete;

private:
    static void reset()
    {
        AxialRotationPropertiesManager::rotationAngleUnits()->setValue(ThetaMode_Degrees);
        AxialRotationPropertiesManager::rotationAngle()->setValue(360.0);
        AxialRotationPropertiesManager::rotationAxis()->setValue(AxialRotationPropertiesManager::zRotationAxis);
        for (auto const& coordinate : AxialRotationPropertiesManager::rotationOrigin())
            coordinate.second->setValue(0.0);
        AxialDuplicationPropertiesManager::offsetAngle()->setValue(0.0);
        AxialDuplicationPropertiesManager::offsetAngleUnits()->setValue(ThetaMode_Degrees);
        AxialDuplicationPropertiesManager::fullRotation()->setValue(false);
        AxialDuplicationPropertiesManager::numInstances()->setValue(2);
        AxialDuplicationPropertiesManager::addZonesToExistingStrands()->setValue(true);
    }
};

/// An axial dialog in a 3D plot with the position in the variables 1 to 3, named X, Y, P, and the vector in 4 to 6,
/// named T, V, W.
class AxialFixture : public DialogFixture
{
protected:
    explicit AxialFixture(DialogTraits const& dialogTraits)
        : DialogFixture(dialogTraits)
    {
        for (char const* const name : {"V", "W"})
            sample.dataSet().addVariable(std::make_shared<kernel::Variable>(name));
        assign("XYZUVW", {1, 2, 3, 4, 5, 6});
    }

    void assign(std::string const& letters, std::vector<int> const& variables)
    {
        for (std::size_t at = 0; at < letters.size(); ++at)
            sample.session().perform(kernel::AssignVariable(sample.frame()->id, letters[at], variables[at]));
    }

    /// Wing and Tail, zones 1 and 3, become one time strand; they are then field map 1, Body is field map 2.
    void makeStrand()
    {
        sample.dataSet().zone(1)->strand = 1;
        sample.dataSet().zone(3)->strand = 1;
        sample.dataSet().zone(3)->solutionTime = 1.0;
    }

    void pick(std::vector<kernel::Pick> const& picks) { sample.session().setPicks(picks); }
    kernel::Pick zonePick(int zone) { return {kernel::Pick::zoneType, sample.dataSet().zone(zone)->id}; }

    SpinBoxDriver box(char const* name) { return SpinBoxDriver(child<QAbstractSpinBox>(name)); }

    std::string shown(char const* name)
    {
        IdleDispatcher::flush();
        return box(name).text();
    }

    /// Types a number and finishes it by Tab.
    void enter(char const* name, char const* number)
    {
        box(name).type(number);
        box(name).press(Qt::Key_Tab);
        IdleDispatcher::flush();
    }

    void chooseDegrees(char const* units) { press(units, Qt::Key_Home); }
    void chooseRadians(char const* units) { press(units, Qt::Key_End); }

    void press(char const* name, Qt::Key key)
    {
        child<QWidget>(name).setFocus();
        QTest::keyClick(&child<QWidget>(name), key);
        IdleDispatcher::flush();
    }

    FreshAxialSettings settings;
};

class AxialRotationFixture : public AxialFixture
{
protected:
    AxialRotationFixture()
        : AxialFixture(axialRotation())
    {
    }
};

class AxialDuplicationFixture : public AxialFixture
{
protected:
    AxialDuplicationFixture()
        : AxialFixture(axialDuplication())
    {
    }
};

} // namespace veldraw::tests
