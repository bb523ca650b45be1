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
    void setViewPoint(ViewPoint const& view) override;
    void rotateAround(std::optional<QPointF> const& position) override;
    void rotate(QPointF const& from, QPointF const& to) override;
    void pan(QPointF const& from, QPointF const& to) override;
    void zoom(double factor, QPointF const& at) override;

protected:
    QMarginsF margins() const override;
    void updateAxes(std::array<QString, 3> const& names) override;
    void carryView(PlotSpace const& before) override;

private:
    void addLights();
    void rotateAboutPivot(double azimuth, double elevation);
    void fillStage();
    void dolly(double factor);
    void shift(double right, double up);
    QPointF focusOnStage() const;
    void followCamera();
    double halfHeightAtFocus() const;

    SpaceAxes m_axes;
    std::optional<std::array<double, 3>> m_pivot; // in the scene; none: the focus of the camera
};

} // namespace veldraw::app
