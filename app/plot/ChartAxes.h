#pragma once

#include "kernel/frames/Frame.h"

#include <QCoreApplication>
#include <QPointF>
#include <QRectF>
#include <QStringList>
#include <vtkChartXY.h>

#include <array>
#include <set>

class vtkAxis;
class vtkTable;

namespace veldraw::app {

/// The axes of a line plot: one below, one at the left side, and one at the right side while a curve is assigned to it. They keep what the
/// user looks at when curves change. Along a logarithmic axis all places and limits are common logarithms.
///
///     axes.begin(frame);           // forgets the curves
///     axes.add(map, names, points); // for each curve
///     axes.place();                 // fits what has to be
class ChartAxes
{
    Q_DECLARE_TR_FUNCTIONS(veldraw::app::ChartAxes)

public:
    /// @param chart outlives this
    explicit ChartAxes(vtkChartXY& chart);

    void begin(kernel::Frame const& frame);

    /// Takes a curve in, with its LinePoints and the names of its variables.
    void add(kernel::LineMap const& map, std::array<QString, 2> const& names, vtkTable& points);

    /// Whether a curve has a point.
    bool hasValues() const { return at(Kind::X).isValid; }

    /// Whether x and y of a curve are along logarithmic axes.
    std::array<bool, 2> scalesOf(kernel::LineMap const& map) const;

    /// A view that the user has moved stays where it is, also when curves are added or removed. With other variables on an axis, or another
    /// scale, the view is fitted again; with another range in the frame that axis alone. @param isNew nothing was shown before
    void place(bool isNew);

    /// Shows the ranges that the frame has for the axes, or else all values.
    void fit();

    /// Steps and places are shares of the box between the axes.
    void pan(QPointF const& step);
    void zoom(double factor, QPointF const& fixed);

    /// Gives the axes numbers and titles. @param size of the box, device pixels
    void label(QSizeF const& size, double pixelRatio);

    /// Whether a curve goes by this axis.
    bool isUsed(kernel::LineAxisKind kind) const { return at(kind).isUsed; }

    /// The values at two places along an axis. @param from, to shares of the box
    kernel::LineAxis between(kernel::LineAxisKind kind, double from, double to) const;

    vtkAxis& axis(kernel::LineAxisKind kind) const;

private:
    using Kind = kernel::LineAxisKind;

    /// What an axis is placed by.
    struct Placed
    {
        bool isUsed = false;
        bool isValid = false; // there are limits
        double min = 0.0;
        double max = 0.0;
        bool isLogarithmic = false;
        bool isFixed = false;
        std::array<double, 2> fixed{};
        std::set<kernel::UniqueId> variables;

        void include(double place);
        bool hasOtherLimits(Placed const& other) const;
        bool showsOther(Placed const& other) const;
        bool hasOtherRange(Placed const& other) const;
    };

    Placed const& at(Kind kind) const { return m_now[static_cast<std::size_t>(kind)]; }
    Placed& at(Kind kind) { return m_now[static_cast<std::size_t>(kind)]; }
    Placed const& before(Kind kind) const { return m_before[static_cast<std::size_t>(kind)]; }
    void fit(Kind kind);
    bool hasOtherLimits() const;

    vtkChartXY& m_chart;
    std::array<Placed, kernel::lineAxisCount> m_now;
    std::array<Placed, kernel::lineAxisCount> m_before; // when the view was placed
    std::array<QStringList, kernel::lineAxisCount> m_names;
    std::array<QString, kernel::lineAxisCount> m_titles; // that were typed
    bool m_isFitted = true;
};

} // namespace veldraw::app
