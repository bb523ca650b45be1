#pragma once

#include "app/plot/AxisTicks.h"
#include "app/plot/FieldLook.h"

#include <QRectF>
#include <QSizeF>
#include <QString>
#include <vtkContextItem.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkTextProperty.h>

namespace veldraw::app {

/// The legend of a contour flood: the variable's name over a bar of the colours, with round numbers beside it.
///
/// A field that is the same everywhere has one colour and one number. The name is never cut as long as some lines of the legend's
/// width hold it. A frame that has no room for a legend beside the plot shows none.
class ColourLegend : public vtkContextItem
{
public:
    vtkTypeMacro(ColourLegend, vtkContextItem) static ColourLegend* New();

    /// Shows the colours of a plot, with the borders of its bands or round numbers.
    void show(QString const& name, FieldLook const& look);
    void hide();
    bool isShown() const { return m_isShown; }

    QString const& name() const { return m_name; }
    double min() const { return m_min; }
    double max() const { return m_max; }

    /// Preferred width in a frame, logical pixels; 0 if the frame has no room for a legend.
    double widthIn(QSizeF const& frame, double pixelRatio) const;

    /// @param column where it stands, device pixels of the frame, origin at the bottom left
    void place(QRectF const& column, double pixelRatio);

    /// The text above the bar, with line ends where it is broken.
    QString const& shownName() const { return m_shownName; }
    AxisTicks const& ticks() const { return m_ticks; }

    bool Paint(vtkContext2D* painter) override;

    ColourLegend(ColourLegend const&) = delete;
    ColourLegend& operator=(ColourLegend const&) = delete;

protected:
    ColourLegend();
    ~ColourLegend() override = default;

private:
    bool isOneValue() const { return !(m_max > m_min); }
    double widestLabel(AxisTicks const& ticks, double pixelRatio) const;
    AxisTicks ticksFor(double barHeight) const;
    AxisTicks ticksOfBands(double barHeight) const;
    void colourBar();
    void paintName(vtkContext2D& painter);
    void paintTicks(vtkContext2D& painter);

    bool m_isShown = false;
    QString m_name;
    double m_min = 0.0;
    double m_max = 0.0;
    int m_bands = 0;
    bool m_isLog = false;
    kernel::ColourMapKind m_map = kernel::ColourMapKind::Viridis;
    double m_ratio = 1.0;
    QRectF m_bar; // empty: there is no room
    double m_top = 0.0;
    QString m_shownName;
    AxisTicks m_ticks;
    vtkNew<vtkImageData> m_colours;
    vtkNew<vtkTextProperty> m_nameText;
    vtkNew<vtkTextProperty> m_labelText;
};

} // namespace veldraw::app
