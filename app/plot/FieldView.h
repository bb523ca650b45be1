#pragma once

#include "app/plot/ColourLegend.h"
#include "app/plot/FrameView.h"
#include "app/plot/PickMarks.h"
#include "app/plot/ZoneScene.h"

#include <QCoreApplication>
#include <QMarginsF>
#include <vtkContextActor.h>

#include <functional>
#include <memory>
#include <vector>

namespace veldraw::app {

/// What field plots in a plane and in space have in common: zones, contour flood and its legend.
class FieldView : public FrameView
{
    Q_DECLARE_TR_FUNCTIONS(veldraw::app::FieldView)

public:
    /// @param ready called on another thread when there is more to be shown than when show() was called last; empty: show()
    ///        always shows everything
    FieldView(bool inSpace, std::function<void()> ready);
    ~FieldView() override;

    void addTo(vtkRenderWindow& window) override;
    void removeFrom(vtkRenderWindow& window) override;
    void setArea(ViewArea const& area) override;
    FrameMessage show(kernel::Frame const& frame) override;
    bool isWaiting() const override { return m_scene.isWaiting(); }
    void wait() override { m_scene.wait(); }
    bool dependsOn(kernel::Frame const& frame, int variable) const override;
    void markZones(std::set<int> const& zones) override;

    vtkRenderer& stage() const { return *m_stage; } ///< shows the zones
    ColourLegend& legend() const { return *m_legend; }
    PlotSpace const& space() const { return m_look.space; }
    ZoneScene::Drawings const& zones() const { return m_scene.drawings(); }
    std::vector<vtkActor*> const& actors() const { return m_scene.actors(); } ///< of the zones

    /// Zones that are shown and marked as picked.
    std::set<int> const& markedZones() const { return m_markedZones; }

    /// One-based number of the zone seen at a position of the area, 0 when there is none. Of zones at the same place it is the
    /// one that is drawn over the others.
    int zoneAt(QPointF const& inArea) const;

protected:
    /// Free space that is wanted between the area's edges and the stage, logical pixels.
    virtual QMarginsF margins() const = 0;

    /// What it was when the stage was placed last.
    QMarginsF const& shownMargins() const { return m_margins; }

    /// The axes' names and the space may have changed.
    virtual void updateAxes(std::array<QString, 3> const& names) = 0;

    /// Looks at the same place of the data as it did in another space.
    virtual void carryView(PlotSpace const& before) = 0;

    /// What the legend takes at the right of the frame; 0 when there is none. Logical pixels.
    double legendWidth() const;

    double stageWidth() const { return m_stageWidth; }   ///< device pixels
    double stageHeight() const { return m_stageHeight; } ///< device pixels

    /// A fitted view is fitted again when the area or the extent of the data changes; one that the user has moved or enlarged
    /// stays where it is. Turning leaves it fitted: the whole is still in view, and a fit keeps the direction.
    void setFitted(bool isFitted) { m_isFitted = isFitted; }

    /// A position of the area as a position of the stage.
    QPointF onStage(QPointF const& inArea) const;

private:
    QString obstacle(kernel::Frame const& frame) const;
    QString obstacleInZones(kernel::Frame const& frame, std::vector<int> const& zones) const;
    QString gap(kernel::Frame const& frame, std::vector<int> const& zones) const;
    QString remark() const;
    void placeView(bool isNew);
    void clear();
    void clearMarks();
    FieldLook lookOf(kernel::Frame const& frame, std::vector<int> const& zones) const;
    bool hasFlood() const { return m_look.contourVariable > 0; }
    void updateLegend(QString const& name);
    void placeLegend();

    bool m_inSpace;
    bool m_isShown = false; // there was a picture when the frame was shown last
    std::array<kernel::UniqueId, 3> m_shownAxes{};
    PlotSpace m_viewSpace; // that the camera stands in
    bool m_isFitted = false;
    bool m_isStretched = false;
    FieldLook m_look;
    PickMarks m_marks;
    std::set<int> m_markedZones;
    vtkNew<vtkRenderer> m_stage;
    ZoneScene m_scene;
    vtkNew<vtkContextActor> m_legendActor;
    vtkNew<ColourLegend> m_legend;
    double m_stageWidth = 1.0;
    double m_stageHeight = 1.0;
    QMarginsF m_margins;
};

} // namespace veldraw::app
