#pragma once

#include "app/plot/CurveLegend.h"
#include "app/plot/FrameView.h"

#include <QCoreApplication>
#include <vtkChartXY.h>
#include <vtkContextActor.h>
#include <vtkSmartPointer.h>

#include <array>
#include <set>
#include <vector>

class vtkPlotLine;
class vtkTable;

namespace veldraw::app {

/// A line plot: for each active line map one variable over another. Along a logarithmic axis all places and limits here are common
/// logarithms.
class LineView : public FrameView
{
    Q_DECLARE_TR_FUNCTIONS(veldraw::app::LineView)

public:
    LineView();
    ~LineView() override;

    void setArea(ViewArea const& area) override;
    FrameMessage show(kernel::Frame const& frame) override;
    bool dependsOn(kernel::Frame const& frame, int variable) const override;
    void fit() override;
    void pan(QPointF const& from, QPointF const& to) override;
    void zoom(double factor, QPointF const& at) override;

    /// The curve's name and the values of its nearest point, if that is near.
    QString tipAt(QPointF const& position) const override;

    vtkChartXY& chart() const { return *m_chart; }
    CurveLegend const& legend() const { return *m_legend; }

private:
    struct Limits
    {
        bool isValid = false;
        std::array<double, 2> min{};
        std::array<double, 2> max{};
        bool operator!=(Limits const& other) const { return min != other.min || max != other.max; }
    };

    using Variables = std::set<kernel::UniqueId>;
    using Scales = std::array<bool, 2>; // which axes are logarithmic

    struct Curve
    {
        QString name;
        std::array<QString, 2> variables;
        vtkSmartPointer<vtkTable> points;
        double width; // of the line, logical pixels

        QString tip(vtkIdType row) const;
    };

    void styleChart();
    QString addCurve(kernel::Frame const& frame, kernel::LineMap const& map, int index);
    void include(vtkTable& points);
    void placeView(bool isNew);
    void setTitles(kernel::Frame const& frame);
    void labelAxes();
    void tellApart();
    QString remark() const;
    void placeLegend();

    /// A position of the area as a share of the box between the axes.
    QPointF inBox(QPointF const& inArea) const;

    vtkNew<vtkContextActor> m_actor;
    vtkNew<vtkChartXY> m_chart;
    vtkNew<CurveLegend> m_legend;
    Limits m_limits;                          // of what is shown
    Limits m_viewLimits;                      // of what was shown when the view was placed
    std::array<Variables, 2> m_variables;     // that the curves have along each axis
    std::array<Variables, 2> m_viewVariables; // that they had when the view was placed
    Scales m_scales{};
    Scales m_viewScales{}; // when the view was placed
    bool m_isFitted = false;
    std::array<QString, 2> m_titles; // of the axes
    std::vector<CurveLegend::Curve> m_curves;
    std::vector<Curve> m_shown; // the same, with their points
    std::int64_t m_leftOut = 0; // points without a place along a logarithmic axis
};

} // namespace veldraw::app
