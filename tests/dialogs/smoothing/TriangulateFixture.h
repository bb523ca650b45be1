#pragma once

#include "dialogs/smoothing/TriangulateDialog.h"
#include "dialogs/smoothing/TriangulatePropertiesManager.h"
#include "dialogs/widgets/QScientificSpinBox.h"
#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/DialogFixture.h"
#include "tests/dialogs/support/SpinBoxDriver.h"

#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <string>
#include <vector>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;
using sdk::ui::propertymanager::TriangulatePropertiesManager;

inline DialogTraits triangulate()
{
    auto traits = DialogTraits::of<dialogs::data::TriangulateDialog>();
    traits.list = "sourceZonesListView";
    traits.action = "&Triangulate";
    traits.helpTopic = "triangulate.html";
    traits.plotType = PlotType_Cartesian2D;
    traits.actionNeedsSelection = true;
    traits.followsItsRule = false;
    traits.bindsActionBeforeList = false;
    traits.boundInOrder = {"sourceZonesListView", "boundaryZonesListView"};
    return traits;
}

/// The dialog in a 2D plot with X and Y on the axes, and its settings, which outlive every dialog, as they are at first. The zone
/// Wing has the corners of the unit square and two points within it; Body and Tail have no values. There are no boundary zones as
/// long as addBoundary() is not called.
class TriangulateFixture : public DialogFixture
{
protected:
    static constexpr char kernelFunction[] = "VelUtilTriangulate";
    static constexpr char boundaries[] = "boundaryZonesListView";
    static constexpr char boundariesLabel[] = "boundaryZonesLabel";
    static constexpr char useBoundary[] = "useBoundaryZonesCheckBox";
    static constexpr char includePoints[] = "includeBoundaryPointsCheckBox";
    static constexpr char keepFactor[] = "triangleKeepFactorSpinBox";

    TriangulateFixture()
        : DialogFixture(triangulate())
    {
        setPoints(1, {0.0, 1.0, 1.0, 0.0, 0.5, 0.5}, {0.0, 0.0, 1.0, 1.0, 0.25, 0.75});
        showAgain();
        resetSettings();
    }
    ~TriangulateFixture() override { resetSettings(); }

    static void resetSettings()
    {
        TriangulatePropertiesManager::useBoundaryZones()->setValue(false);
        TriangulatePropertiesManager::includeBoundaryPoints()->setValue(false);
        TriangulatePropertiesManager::triangleKeepFactor()->setValue(0.25);
    }

    /// Appends Rim, a closed line around the lower three quarters of the unit square, which is zone 4.
    void addBoundary()
    {
        sample.dataSet().addZone(std::make_shared<kernel::Zone>("Rim", ZoneType_Ordered, 5, 1, 1));
        setPoints(4, {0.0, 1.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 0.75, 0.75, 0.0});
        showAgain();
    }

    void enableZone(int number, bool isEnabled)
    {
        sample.session().perform(kernel::EnableZone(sample.dataSet(), number, isEnabled));
    }

    SpinBoxDriver keepFactorBox() { return SpinBoxDriver(child<QAbstractSpinBox>(keepFactor)); }

    void enterKeepFactor(char const* number)
    {
        keepFactorBox().type(number);
        keepFactorBox().press(Qt::Key_Tab);
        IdleDispatcher::flush();
    }

private:
    /// Gives a zone X and Y; its other variables are 0.
    void setPoints(int zone, std::vector<double> const& x, std::vector<double> const& y)
    {
        setValues(zone, 1, x);
        setValues(zone, 2, y);
        for (int const other : {3, 4})
            setValues(zone, other, std::vector<double>(x.size(), 0.0));
    }

    // Now that there is something to assign to the axes.
    void showAgain()
    {
        sample.session().setFrameDataSet(sample.frame()->id, sample.frame()->dataSet);
        showAs(PlotType_Cartesian2D);
    }
};

/// The same with a boundary zone to choose.
class BoundedTriangulateFixture : public TriangulateFixture
{
protected:
    BoundedTriangulateFixture() { addBoundary(); }
};

} // namespace veldraw::tests
