#pragma once

#include "app/plot/FieldView.h"
#include "app/plot/SpaceAxes.h"

namespace veldraw::app {

/// A field plot in space: a lit scene inside a box of axes, rotated, moved and enlarged at will.
class SpaceView : public FieldView
{
public:
    /// @param ready as FieldView takes it
    explicit SpaceView(std::function<void()> ready = {});

    void setArea(ViewArea const& area) override;
    void fit() override;
    void lookFrom(ViewSide side) override;
    void rotate(QPointF const& from, QPointF const& to) override;
    void pan(QPointF const& from, QPointF const& to) override;
    void zoom(double factor, QPointF const& at) override;

protected:
    QMarginsF margins() const override;
    void updateAxes(std::array<QString, 3> const& names) override;
    void carryView(PlotSpace const& before) override;

private:
    void addLights();
    void fillStage();
    void followCamera();

    SpaceAxes m_axes;
};

} // namespace veldraw::app
