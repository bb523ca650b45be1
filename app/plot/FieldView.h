#pragma once

#include "app/plot/ColourLegend.h"
#include "app/plot/ContourLayer.h"
#include "app/plot/FrameView.h"
#include "app/plot/PickMarks.h"
#include "app/plot/SeenCell.h"
#include "app/plot/VectorLayer.h"
#include "app/plot/ZonePlace.h"
#include "app/plot/ZoneScene.h"

#include <QCoreApplication>
#include <QMarginsF>
#include <vtkContextActor.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace veldraw::app {

/// The base of field plots in a plane and in space: shows the zones, the contour flood and its legend.
class FieldView : public FrameView
{
    Q_DECLARE_TR_FUNCTIONS(veldraw::app::FieldView)

public:
    /// @param ready called on another thread when a background computation is done, so that show() should be called
    ///        again; empty: show() computes everything at once
    FieldView(bool inSpace, std::function<void()> ready);
    ~FieldView() override;

    void addTo(vtkRenderWindow& window) override;
    void removeFrom(vtkRenderWindow& window) override;
    void setArea(ViewArea const& area) override;
    void setTransparent(bool isTransparent) override;
    FrameMessage show(kernel::Frame const& frame) override;
    bool isWaiting() const override { return m_scene.isWaiting(); }
    void wait() override { m_scene.wait(); }
    bool dependsOn(kernel::Frame const& frame, int variable) const override;
    void markZones(std::set<int> const& zones) override;

    std::vector<vtkRenderer*> renderers() const override;
    std::optional<ViewPoint> viewPoint() const override;

    /// Shows the zones. It is drawn over the ground(), inside its margins().
    vtkRenderer& stage() const { return *m_stage; }
    ColourLegend& legend() const { return *m_legend; }
    ContourLayer const& contourLines() const { return m_contourLines; }
    VectorLayer const& vectors() const { return m_vectors; }
    PlotSpace const& space() const { return m_look.space; }
    ZoneScene::Drawings const& zones() const { return m_scene.drawings(); }
    std::vector<vtkActor*> const& actors() const { return m_scene.actors(); } ///< of the zones

    /// Zones that are shown and marked as picked.
    std::set<int> const& markedZones() const { return m_markedZones; }

    /// One-based number of the zone seen at a position of the area, 0 if there is none. Of several zones at the same place
    /// it is the one that is drawn on top.
    int zoneAt(QPointF const& inArea) const;

    /// What is to be searched for to find out what is seen at a position of the area; none outside of the stage.
    std::optional<SeenQuestion> questionAt(QPointF const& inArea) const;

    /// Where in a zone a search has found something. @return none where that is not drawn any more, or the data have changed since
    std::optional<ZonePlace> placeOf(kernel::DataSet const& dataSet, SeenQuestion const& question,
                                     SeenCell const& seen) const;

    /// Where in the scene a surface is seen at a position of the area; none where there is nothing.
    std::optional<std::array<double, 3>> sceneAt(QPointF const& inArea) const;

    /// Where a place of the data is seen, as a position of the area; none outside of the stage.
    std::optional<QPointF> seenAt(std::array<double, 3> const& place) const;

protected:
    /// Space between the edges of the area and the stage, logical pixels.
    virtual QMarginsF margins() const = 0;

    /// The margins() with which the stage was placed last.
    QMarginsF const& shownMargins() const { return m_margins; }

    /// Called when the names of the axes or the space may have changed.
    virtual void updateAxes(std::array<QString, 3> const& names) = 0;

    /// Moves the camera to the part of the data that it showed in the space @p before.
    virtual void carryView(PlotSpace const& before) = 0;

    /// Width of the legend at the right of the frame, logical pixels; 0 without a legend.
    double legendWidth() const;

    double stageWidth() const { return m_stageWidth; }   ///< device pixels
    double stageHeight() const { return m_stageHeight; } ///< device pixels

    /// Whether the view is fitted again when the area or the extent of the data changes, as it is until the user moves or
    /// zooms it. A rotated view counts as fitted: the whole plot is in view, and fitting keeps the direction.
    void setFitted(bool isFitted) { m_isFitted = isFitted; }
    bool isFitted() const { return m_isFitted; }

    bool isParallel() const { return m_look.isParallel; }

    /// Whether a view was taken where this one is: of the same kind, space and size.
    bool isOfThisPlace(ViewPoint const& view) const;

    /// Converts a position of the area to one of the stage.
    QPointF onStage(QPointF const& inArea) const;

private:
    QString obstacle(kernel::Frame const& frame) const;
    QString obstacleInZones(kernel::Frame const& frame, std::vector<int> const& zones) const;
    QString gap(kernel::Frame const& frame, std::vector<int> const& zones) const;
    QString gapInBlanking(kernel::Frame const& frame, std::vector<int> const& zones) const;
    QString gapInVectors(kernel::Frame const& frame, std::vector<int> const& zones) const;
    QString gapInCuts(kernel::Frame const& frame, std::vector<int> const& zones) const;
    QString remark() const;
    void placeView(bool isNew);
    void clear();
    void clearMarks();
    FieldLook lookOf(kernel::Frame const& frame, std::vector<int> const& zones) const;
    bool hasContour() const { return m_look.contourVariable > 0; }
    void updateLegend(QString const& name);
    void placeLegend();

    bool m_inSpace;
    bool m_isShown = false; // the last show() made a picture
    std::array<kernel::UniqueId, 3> m_shownAxes{};
    PlotSpace m_viewSpace; // in which the camera was placed
    bool m_isFitted = false;
    bool m_isStretched = false;
    FieldLook m_look;
    PickMarks m_marks;
    std::set<int> m_markedZones;
    vtkNew<vtkRenderer> m_stage;
    ZoneScene m_scene;
    ContourLayer m_contourLines;
    VectorLayer m_vectors;
    vtkNew<vtkContextActor> m_legendActor;
    vtkNew<ColourLegend> m_legend;
    double m_stageWidth = 1.0;
    double m_stageHeight = 1.0;
    QMarginsF m_margins;
};

} // namespace veldraw::app
