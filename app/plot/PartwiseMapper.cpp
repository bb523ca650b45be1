#include "app/plot/PartwiseMapper.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <vtkActor.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLIndexBufferObject.h>
#include <vtkProperty.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <cstdint>

namespace veldraw::app {

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

void PartwiseMapper::RenderPieceDraw(vtkRenderer* renderer, vtkActor* actor)
{
    constexpr float room = 1e-4F;
    QOpenGLContext* const context = m_depthOrder >= 0.0 ? QOpenGLContext::currentContext() : nullptr;
    if (!context) {
        draw(*renderer, *actor);
        return;
    }
    float const nearest = room * static_cast<float>(m_depthOrder);
    context->functions()->glDepthRangef(nearest, 1.0F - room + nearest);
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
