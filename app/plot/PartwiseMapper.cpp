#include "app/plot/PartwiseMapper.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <vtkActor.h>
#include <vtkDataObject.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLIndexBufferObject.h>
#include <vtkProperty.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkShaderProgram.h>

#include <algorithm>
#include <cstdint>

namespace veldraw::app {

namespace {

constexpr float depthRoom = 1e-4F;
constexpr char depthAttribute[] = "depthOrder";

// Where a mesh is drawn, VTK widens each triangle by the line but leaves the depths of its corners, which tilts it, small ones more than
// large ones. Its corners are put back into its plane, so that surfaces at the same place stay there.
void keepDepthOfWidenedTriangles(vtkShader& shader)
{
    std::string const widening = "gl_Position.xy = gl_Position.xy + offsets[i]*gl_Position.w;";
    std::string source = shader.GetSource();
    vtkShaderProgram::Substitute(
        source, widening,
        widening + "\nvec3 a = gl_in[0].gl_Position.xyz / gl_in[0].gl_Position.w;\n"
                   "vec3 b = gl_in[1].gl_Position.xyz / gl_in[1].gl_Position.w;\n"
                   "vec3 c = gl_in[2].gl_Position.xyz / gl_in[2].gl_Position.w;\n"
                   "vec3 across = cross(b - a, c - a);\n"
                   "vec2 slope = across.z == 0.0 ? vec2(0.0) : -across.xy / across.z;\n"
                   "float reach = max(a.z, max(b.z, c.z)) - min(a.z, min(b.z, c.z));\n"
                   "gl_Position.z += clamp(dot(slope, offsets[i]), -reach, reach) * gl_Position.w;\n");
    shader.SetSource(source);
}

} // namespace

vtkStandardNewMacro(PartwiseMapper)

    bool PartwiseMapper::drawsLargeSurfaceOnly(vtkRenderer& renderer, vtkActor& actor) const
{
    for (int kind = PrimitiveStart; kind < PrimitiveEnd; ++kind)
        if (kind != PrimitiveTris && Primitives[kind].IBO->IndexCount > 0)
            return false;
    return Primitives[PrimitiveTris].IBO->IndexCount > 3 * static_cast<std::size_t>(m_trianglesInPart) &&
           actor.GetProperty()->GetRepresentation() == VTK_SURFACE && !renderer.GetSelector() &&
           QOpenGLContext::currentContext();
}

void PartwiseMapper::setDepthOrderArray(std::string const& name)
{
    if (name == m_depthOrderArray)
        return;
    m_depthOrderArray = name;
    RemoveVertexAttributeMapping(depthAttribute);
    if (!name.empty())
        MapDataArrayToVertexAttribute(depthAttribute, name.c_str(), vtkDataObject::FIELD_ASSOCIATION_POINTS, -1);
    Modified(); // another shader
}

// Moves depths as RenderPieceDraw() does, by the point, so that no other drawing call is needed.
void PartwiseMapper::ReplaceShaderPositionVC(std::map<vtkShader::Type, vtkShader*> shaders, vtkRenderer* renderer,
                                             vtkActor* actor)
{
    if (!m_depthOrderArray.empty()) {
        std::string source = shaders[vtkShader::Vertex]->GetSource();
        vtkShaderProgram::Substitute(source, "//VTK::PositionVC::Dec", "in float depthOrder;\n//VTK::PositionVC::Dec");
        std::string const room = std::to_string(depthRoom);
        vtkShaderProgram::Substitute(source, "//VTK::PositionVC::Impl",
                                     "//VTK::PositionVC::Impl\n"
                                     "gl_Position.z += " +
                                         room + " * (gl_Position.w * (2.0 * depthOrder - 1.0) - gl_Position.z);\n");
        shaders[vtkShader::Vertex]->SetSource(source);
    }
    keepDepthOfWidenedTriangles(*shaders[vtkShader::Geometry]);
    Superclass::ReplaceShaderPositionVC(shaders, renderer, actor);
}

void PartwiseMapper::RenderPieceDraw(vtkRenderer* renderer, vtkActor* actor)
{
    QOpenGLContext* const context = m_depthOrder >= 0.0 ? QOpenGLContext::currentContext() : nullptr;
    if (!context) {
        draw(*renderer, *actor);
        return;
    }
    float const nearest = depthRoom * static_cast<float>(m_depthOrder);
    context->functions()->glDepthRangef(nearest, 1.0F - depthRoom + nearest);
    draw(*renderer, *actor);
    context->functions()->glDepthRangef(0.0F, 1.0F);
}

void PartwiseMapper::draw(vtkRenderer& renderer, vtkActor& actor)
{
    m_partCount = 1;
    if (!drawsLargeSurfaceOnly(renderer, actor)) {
        Superclass::RenderPieceDraw(&renderer, &actor);
        return;
    }
    m_partCount = 0;
    // Drawing at once leaves these set for its last step, the highlighting of a selection, which has no light.
    DrawingVertices = false;
    DrawingSelection = false;
    auto const triangles = static_cast<int>(Primitives[PrimitiveTris].IBO->IndexCount / 3);
    for (int first = 0; first < triangles; first += m_trianglesInPart) {
        drawPart(renderer, actor, first, std::min(m_trianglesInPart, triangles - first));
        renderer.GetRenderWindow()->WaitForCompletion();
        ++m_partCount;
    }
    PrimitiveIDOffset = 0;
}

void PartwiseMapper::drawPart(vtkRenderer& renderer, vtkActor& actor, int first, int count)
{
    vtkOpenGLHelper& surface = Primitives[PrimitiveTris];
    // The shader counts the triangles of a call from 0; the colours of cells are found by this offset.
    PrimitiveIDOffset = first;
    UpdateShaders(surface, &renderer, &actor);
    surface.IBO->Bind();
    auto const start = static_cast<std::uintptr_t>(first) * 3 * sizeof(unsigned int);
    QOpenGLContext::currentContext()->functions()->glDrawElements(GL_TRIANGLES, 3 * count, GL_UNSIGNED_INT,
                                                                  reinterpret_cast<void const*>(start));
    surface.IBO->Release();
}

} // namespace veldraw::app
