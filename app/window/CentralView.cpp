#include "app/window/CentralView.h"

#include "app/plot/PageView.h"

namespace veldraw::app {

CentralView CentralView::ofPage(kernel::Session& session)
{
    auto* const page = new PageView(session, nullptr);
    CentralView view;
    view.widget = page;
    view.fitActiveFrame = [page] { page->fitActiveFrame(); };
    view.fitAllFrames = [page] { page->fitAllFrames(); };
    view.lookFrom = [page](ViewSide side) { page->lookFrom(side); };
    view.showOpening = [page](QString const& fileName) { page->showOpening(fileName); };
    view.isDrawing = [page] { return page->isDrawing(); };
    view.grabImage = [page] { return page->takePicture(); };
    return view;
}

} // namespace veldraw::app
