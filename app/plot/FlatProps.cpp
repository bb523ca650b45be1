#include "app/plot/FlatProps.h"

#include "app/plot/PainterDevice.h"

#include <vtkContext2D.h>
#include <vtkContextActor.h>
#include <vtkContextScene.h>
#include <vtkNew.h>
#include <vtkPropCollection.h>
#include <vtkRenderer.h>
#include <vtkTextActor.h>

namespace veldraw::app {

FlatProps::FlatProps(vtkRenderer& renderer)
{
    vtkCollectionSimpleIterator at;
    vtkPropCollection* const props = renderer.GetViewProps();
    props->InitTraversal(at);
    while (vtkProp* const prop = props->GetNextProp(at))
        if (prop->GetVisibility() != 0 && (prop->IsA("vtkContextActor") != 0 || prop->IsA("vtkTextActor") != 0))
            m_props.emplace_back(prop);
}

FlatProps::~FlatProps()
{
    for (auto const& prop : m_props)
        prop->VisibilityOn();
}

void FlatProps::hide()
{
    for (auto const& prop : m_props)
        prop->VisibilityOff();
}

void FlatProps::paint(QPainter& painter, QRectF const& area, double pixelRatio) const
{
    vtkNew<PainterDevice> device;
    device->begin(painter, area, pixelRatio);
    for (auto const& prop : m_props) {
        if (auto* const text = vtkTextActor::SafeDownCast(prop)) {
            double const* const place = text->GetPosition();
            device->drawText({place[0], place[1]}, QString::fromUtf8(text->GetInput()), *text->GetTextProperty());
        } else if (auto* const actor = vtkContextActor::SafeDownCast(prop)) {
            vtkNew<vtkContext2D> context;
            context->Begin(device);
            actor->GetScene()->Paint(context);
            context->End();
        }
    }
    device->end();
}

} // namespace veldraw::app
