#pragma once

#include "app/plot/ChartAxes.h"
#include "app/plot/CurveLegend.h"
#include "app/plot/FrameView.h"

#include <QCoreApplication>
#include <vtkChartXY.h>
#include <vtkContextActor.h>
#include <vtkSmartPointer.h>

#include <array>
#include <map>
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

    /// The ranges that a box between two positions has on the axes with curves; none of an axis along which the box is thinner than
    /// a few pixels.
    std::map<kernel::LineAxisKind, kernel::LineAxis> rangesIn(QPointF const& from, QPointF const& to) const;

    vtkChartXY& chart() const { return *m_chart; }
    CurveLegend const& legend() const { return *m_legend; }

private:
    struct Curve
    {
        QString name;
        std::array<QString, 2> variables;
        vtkSmartPointer<vtkTable> points;
        double width; // of the line, logical pixels
        bool isOnSecondAxis;

        QString tip(vtkIdType row) const;
    };

    void styleChart();
    static QString reasonAgainst(kernel::DataSet const& dataSet, kernel::LineMap const& map);
    QString addCurve(kernel::Frame const& frame, kernel::LineMap const& map, int index);
    void labelAxes();
    void tellApart();
    QString remark() const;
    void placeLegend();

    /// A position of the area as a share of the box between the axes.
    QPointF inBox(QPointF const& inArea) const;

    vtkNew<vtkContextActor> m_actor;
    vtkNew<vtkChartXY> m_chart;
    vtkNew<CurveLegend> m_legend;
    ChartAxes m_axes;
    QString m_title; // of the plot
    std::vector<CurveLegend::Curve> m_curves;
    std::vector<Curve> m_shown; // the same, with their points
    std::int64_t m_leftOut = 0; // points without a place along a logarithmic axis
};

} // namespace veldraw::app
