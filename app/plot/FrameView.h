#pragma once

#include "app/plot/FrameNotice.h"
#include "kernel/frames/Frame.h"

#include <QPointF>
#include <QRectF>
#include <vtkNew.h>
#include <vtkRenderer.h>

#include <set>

class vtkRenderWindow;

namespace veldraw::app {

/// Where a view stands in the window of VTK.
struct ViewArea
{
    QRectF fraction;    ///< of the window, origin at the bottom left as VTK counts
    double width = 1.0; ///< device pixels
    double height = 1.0;
    double pixelRatio = 1.0; ///< device pixels a logical pixel
};

/// The content of one frame, below its header. Positions are shares of the area, (0, 0) at the bottom left.
class FrameView
{
public:
    FrameView();
    virtual ~FrameView();

    virtual void addTo(vtkRenderWindow& window);
    virtual void removeFrom(vtkRenderWindow& window);
    virtual void setArea(ViewArea const& area);

    /// Shows the frame as it is now. A view that shows the whole goes on doing so when the extent of what is shown changes; one
    /// that the user has moved or enlarged stays at the same place of the data.
    /// @return what is missing, if anything
    virtual FrameNotice show(kernel::Frame const& frame) = 0;

    /// Whether something is being worked out for the picture that show() has left out.
    virtual bool isWaiting() const { return false; }

    /// Waits until that is there for show() to take.
    virtual void wait() {}

    /// Whether the picture depends on a variable (one-based number) of the frame's data set.
    virtual bool dependsOn(kernel::Frame const& frame, int variable) const = 0;

    /// Marks zones (one-based numbers) as picked, and no others. show() takes all marks away.
    virtual void markZones(std::set<int> const& /*zones*/) {}

    virtual void fit() = 0;
    virtual void rotate(QPointF const& from, QPointF const& to) { pan(from, to); }
    virtual void pan(QPointF const& from, QPointF const& to) = 0;
    /// @param factor above 1 shows less, larger; @param at stays where it is, if the projection allows
    virtual void zoom(double factor, QPointF const& at) = 0;

    FrameView(FrameView const&) = delete;
    FrameView& operator=(FrameView const&) = delete;

protected:
    vtkRenderer& ground() { return *m_ground; } ///< covers the area, white; axes and legends go here
    ViewArea const& area() const { return m_area; }

private:
    vtkNew<vtkRenderer> m_ground;
    ViewArea m_area;
};

} // namespace veldraw::app
