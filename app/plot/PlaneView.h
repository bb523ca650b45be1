#pragma once

#include "app/plot/FieldView.h"
#include "app/plot/PlaneAxes.h"

namespace veldraw::app {

/// A field plot in the plane of X and Y: seen straight from above, moved and enlarged but never rotated.
class PlaneView : public FieldView
{
public:
    /// @param ready as FieldView takes it
    explicit PlaneView(std::function<void()> ready = {});

    void setArea(ViewArea const& area) override;
    void fit() override;
    void setViewPoint(ViewPoint const& view) override;
    void pan(QPointF const& from, QPointF const& to) override;
    void zoom(double factor, QPointF const& at) override;

protected:
    QMarginsF margins() const override;
    void updateAxes(std::array<QString, 3> const& names) override;
    void carryView(PlotSpace const& before) override;

private:
    double aspect() const { return stageWidth() / stageHeight(); }
    void look(double x, double y, double halfHeight);
    void placeAxes();
    void updateTicks();

    PlaneAxes m_axes;
    bool m_isPlacing = false;
};

} // namespace veldraw::app
