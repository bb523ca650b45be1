#pragma once

#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/AdditionsToWidgets.h"
#include "tests/dialogs/support/DialogFixture.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;

/// An interpolation dialog in a 2D plot of the zones Wing, Body and Tail of 3 by 2 points with X and Y on the axes. Wing and Body
/// have the same places, Tail lies half a step further. In Wing P is 10 x + 100 y and T is 1 + x y; elsewhere both are -1.
class InterpolationFixture : public DialogFixture
{
protected:
    explicit InterpolationFixture(DialogTraits const& dialogTraits)
        : DialogFixture(dialogTraits)
    {
        for (int zone = 1; zone <= 3; ++zone) {
            double const shift = zone == 3 ? 0.5 : 0.0;
            fill(zone, 1, [shift](double i, double) { return i + shift; });
            fill(zone, 2, [shift](double, double j) { return j + shift; });
            fill(zone, 3, [zone](double i, double j) { return zone == 1 ? 10.0 * i + 100.0 * j : -1.0; });
            fill(zone, 4, [zone](double i, double j) { return zone == 1 ? 1.0 + i * j : -1.0; });
        }
        // Shown once more, now that there is something to assign to the axes.
        sample.session().setFrameDataSet(sample.frame()->id, sample.frame()->dataSet);
        showAs(PlotType_Cartesian2D);
    }

    /// Gives a zone's six points the values of a variable, as a function of the steps along I and J, from 0.
    template <typename Value>
    void fill(int zone, int variable, Value const& value)
    {
        auto buffer = kernel::Buffer::allocate(FieldDataType_Double, 6);
        for (int at = 0; at < 6; ++at)
            buffer->setValue(at, value(1.0 * (at % 3), at / 3));
        sample.dataSet().zone(zone)->fields[static_cast<std::size_t>(variable - 1)] =
            kernel::Field(std::make_shared<kernel::ShareGroup>(std::move(buffer)), ValueLocation_Nodal);
    }

    /// P from Wing to Body.
    void selectWingToBody()
    {
        clickRow(0);
        clickRowOf(traits.boundInOrder.at(1), 0);
        choose(traits.boundInOrder.at(2), 1);
    }

    /// What has the focus after Alt and a letter.
    std::string focusAfterAlt(Qt::Key letter)
    {
        QTest::keyClick(dialog().focusWidget(), letter, Qt::AltModifier);
        return dialog().focusWidget()->objectName().toStdString();
    }

    /// The widgets, in the order of their bindings, that had theirs before that of the action button; a click tells, which is refused
    /// while nothing is selected.
    std::vector<std::string> boundBeforeTheButton(std::string const& failure)
    {
        std::vector<std::string> before;
        AdditionsToWidgets const additions([&](QWidget& widget) {
            for (auto* const button : widget.window()->findChildren<QPushButton*>())
                if (button->text() == QString::fromStdString(traits.action))
                    button->click();
            if (messages.take() != std::vector<std::string>{failure})
                before.push_back(widget.objectName().toStdString());
        });
        dialog();
        return before;
    }

    /// Whether Body has the values of Wing, but for rounding.
    bool bodyIsLikeWing(int variable) const
    {
        std::vector<double> const wing = values(1, variable);
        std::vector<double> const body = values(2, variable);
        return std::equal(wing.begin(), wing.end(), body.begin(),
                          [](double expected, double found) { return std::abs(expected - found) < 1e-9; });
    }

    /// The values of P and T where nothing was interpolated.
    std::vector<double> const untouched = std::vector<double>(6, -1.0);
};

} // namespace veldraw::tests
