#pragma once

#include "app/plot/FrameMessage.h"
#include "app/plot/ViewPoint.h"
#include "app/plot/ViewSide.h"
#include "kernel/frames/Frame.h"

#include <QPointF>
#include <QRectF>
#include <QString>
#include <vtkNew.h>
#include <vtkRenderer.h>

#include <optional>
#include <set>
#include <vector>

class vtkRenderWindow;

namespace veldraw::app {

/// The place of a view in VTK's window.
struct ViewArea
{
    QRectF fraction;    ///< of the window, from its bottom left corner as in VTK
    double width = 1.0; ///< device pixels
    double height = 1.0;
    double pixelRatio = 1.0; ///< device pixels a logical pixel
};

/// The plot in one frame, below the frame's header. There is a derived class for each kind of plot; `PageView` drives them:
///
///     view.addTo(window);
///     view.setArea(area);
///     FrameMessage const message = view.show(frame); // and again after each change of the frame
///     view.zoom(1.25, {0.5, 0.5});                   // the user turns the wheel
///
/// Positions are fractions of the area's width and height, (0, 0) at the bottom left.
class FrameView
{
public:
    FrameView();
    virtual ~FrameView();

    virtual void addTo(vtkRenderWindow& window);
    virtual void removeFrom(vtkRenderWindow& window);
    virtual void setArea(ViewArea const& area);

    /// What is behind the plot: white paper, or nothing at all.
    virtual void setTransparent(bool isTransparent);

    /// Shows the present state of the frame. A view that is fitted stays fitted when the extent of the data changes; a view
    /// that the user has moved or zoomed keeps showing the same part of the data.
    /// @return what is missing in the picture, if anything
    virtual FrameMessage show(kernel::Frame const& frame) = 0;

    /// Whether a part of the picture, which show() has left out, is still being computed in the background.
    virtual bool isWaiting() const { return false; }

    /// Waits until the background computation is done; the next show() uses its result.
    virtual void wait() {}

    /// Whether the picture depends on a variable (one-based number) of the frame's data set.
    virtual bool dependsOn(kernel::Frame const& frame, int variable) const = 0;

    /// Marks these zones (one-based numbers) as picked, and no others. show() removes all marks.
    virtual void markZones(std::set<int> const& /*zones*/) {}

    /// What is to be told of the part of the plot under the mouse, as rich text; empty for nothing.
    virtual QString tipAt(QPointF const& /*position*/) const { return {}; }

    /// The renderers of the view, in the order in which they are drawn.
    virtual std::vector<vtkRenderer*> renderers() const { return {m_ground}; }

    /// Brings the whole plot into view.
    virtual void fit() = 0;
    /// Looks at the whole plot from a side; a plot without a third dimension stays as it is.
    virtual void lookFrom(ViewSide /*side*/) {}
    /// How the plot is looked at; none where that is not kept.
    virtual std::optional<ViewPoint> viewPoint() const { return std::nullopt; }
    /// Looks at the plot in the same way. Does nothing for a view of another kind of plot.
    virtual void setViewPoint(ViewPoint const& /*view*/) {}
    /// Chooses what rotate() turns around from now on: the place that is seen at a position, or the middle of the view where none is.
    virtual void rotateAround(std::optional<QPointF> const& /*position*/) {}
    /// Rotates the plot as the mouse goes; a plot without a third dimension is moved instead.
    virtual void rotate(QPointF const& from, QPointF const& to) { pan(from, to); }
    virtual void pan(QPointF const& from, QPointF const& to) = 0;
    /// @param factor above 1 enlarges
    /// @param at position that stays in place, as far as the projection allows
    virtual void zoom(double factor, QPointF const& at) = 0;

    FrameView(FrameView const&) = delete;
    FrameView& operator=(FrameView const&) = delete;

protected:
    /// Does to a renderer of the view what setTransparent() says.
    static void setBehind(vtkRenderer& renderer, bool isTransparent);

    vtkRenderer& ground() { return *m_ground; } ///< white, covers the area, has axes and legends
    ViewArea const& area() const { return m_area; }

private:
    vtkNew<vtkRenderer> m_ground;
    ViewArea m_area;
};

} // namespace veldraw::app
