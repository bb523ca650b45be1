#pragma once

#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/DialogFixture.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;

/// Notes the widgets to which objects are added, by name and each once; for its scope. A binding adds one to its field, list or
/// combo box, and what a widget has from the start comes before it has a name.
class AdditionsToWidgets : public QObject
{
public:
    AdditionsToWidgets() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        std::string const name = watched->objectName().toStdString();
        bool const isNew = std::find(names.begin(), names.end(), name) == names.end();
        bool const isBound =
            qobject_cast<QLineEdit*>(watched) || qobject_cast<QComboBox*>(watched) || qobject_cast<QListView*>(watched);
        if (event->type() == QEvent::ChildAdded && isBound && isNew && !name.empty())
            names.push_back(name);
        return false;
    }

    std::vector<std::string> names;
};

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

    void showAs(PlotType_e plotType)
    {
        sample.session().perform(kernel::SetPlotType(sample.frame()->id, plotType));
        IdleDispatcher::flush();
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

    std::vector<double> values(int zone, int variable) const
    {
        std::vector<double> values;
        auto const buffer = sample.dataSet().field(zone, variable)->group()->buffer();
        for (int at = 0; at < 6; ++at)
            values.push_back(buffer->value(at));
        return values;
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

    template <typename Widget>
    Widget& child(std::string const& name)
    {
        auto* const widget = dialog().findChild<Widget*>(QString::fromStdString(name));
        if (!widget)
            throw std::logic_error("there is no widget " + name);
        return *widget;
    }

    bool isEnabled(std::string const& name)
    {
        IdleDispatcher::flush();
        return child<QWidget>(name).isEnabled();
    }

    bool canAct()
    {
        IdleDispatcher::flush();
        return actionButton().isEnabled();
    }

    std::vector<std::string> rowsOf(std::string const& name) { return DialogFixture::rowsOf(child<QListView>(name)); }

    void clickRowOf(std::string const& name, int row) { DialogFixture::clickRowOf(child<QListView>(name), row); }

    /// All texts that a combo box offers.
    std::vector<std::string> choicesOf(std::string const& name)
    {
        auto const& box = child<QComboBox>(name);
        std::vector<std::string> texts;
        for (int row = 0; row < box.count(); ++row)
            texts.push_back(box.itemText(row).toStdString());
        return texts;
    }

    std::string chosen(std::string const& name)
    {
        IdleDispatcher::flush();
        return child<QComboBox>(name).currentText().toStdString();
    }

    /// Goes to a row of a combo box by Home and the arrow.
    void choose(std::string const& name, int row)
    {
        auto& box = child<QComboBox>(name);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Home);
        for (int step = 0; step < row; ++step)
            QTest::keyClick(&box, Qt::Key_Down);
        IdleDispatcher::flush();
    }

    std::string shown(std::string const& field)
    {
        IdleDispatcher::flush();
        return child<QLineEdit>(field).text().toStdString();
    }

    /// Types over what a field shows and leaves it by Tab.
    void enter(std::string const& field, std::string const& text)
    {
        auto& edit = child<QLineEdit>(field);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromStdString(text));
        QTest::keyClick(&edit, Qt::Key_Tab);
        IdleDispatcher::flush();
    }
};

} // namespace veldraw::tests
