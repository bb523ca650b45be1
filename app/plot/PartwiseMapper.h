#pragma once

#include <vtkOpenGLPolyDataMapper.h>
#include <vtkShader.h>

#include <map>
#include <string>

namespace veldraw::app {

/// Draws a large surface in parts, each finished before the next begins.
///
/// A renderer without a graphics card sorts all triangles of a drawing call before it draws any, which takes several
/// hundred bytes each. In parts it needs that memory for one of them only; the picture is the same.
class PartwiseMapper : public vtkOpenGLPolyDataMapper
{
public:
    vtkTypeMacro(PartwiseMapper, vtkOpenGLPolyDataMapper) static PartwiseMapper* New();

    /// The most triangles in a part, 32768 unless set; a surface of no more is drawn at once. @p count must be above 0.
    void setTrianglesInPart(int count) { m_trianglesInPart = count; }

    /// Parts of the surface in the picture that was drawn last.
    int partCount() const { return m_partCount; }

    /// Has all drawn at a place within the depths of the scene: 0 stands before all others, 1 behind, as far as a ten-thousandth of
    /// the depths goes; below 0, as at first, leaves the depths alone.
    void setDepthOrder(double order) { m_depthOrder = order; }

    /// Takes such a place for each point from an array of its data with this name; empty, as at first: all are at one place.
    void setDepthOrderArray(std::string const& name);

    void RenderPieceDraw(vtkRenderer* renderer, vtkActor* actor) override;

    PartwiseMapper(PartwiseMapper const&) = delete;
    PartwiseMapper& operator=(PartwiseMapper const&) = delete;

protected:
    PartwiseMapper() = default;
    ~PartwiseMapper() override = default;

    void ReplaceShaderPositionVC(std::map<vtkShader::Type, vtkShader*> shaders, vtkRenderer* renderer,
                                 vtkActor* actor) override;

private:
    void draw(vtkRenderer& renderer, vtkActor& actor);
    bool drawsLargeSurfaceOnly(vtkRenderer& renderer, vtkActor& actor) const;
    void drawPart(vtkRenderer& renderer, vtkActor& actor, int first, int count);

    int m_trianglesInPart = 32768;
    int m_partCount = 0;
    double m_depthOrder = -1.0;
    std::string m_depthOrderArray;
};

} // namespace veldraw::app
