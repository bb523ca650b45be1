#include "app/window/CentralView.h"

#include "app/plot/PageView.h"

#include <utility>

namespace veldraw::app {

CentralView CentralView::ofPage(kernel::Session& session)
{
    auto* const page = new PageView(session, nullptr);
    CentralView view;
    view.widget = page;
    view.fitActiveFrame = [page] { page->fitActiveFrame(); };
    view.fitAllFrames = [page] { page->fitAllFrames(); };
    view.maximizeFrame = [page](bool isOn) { page->maximizeFrame(isOn); };
    view.onMaximized = [page](std::function<void(bool)> const& function) {
        QObject::connect(page, &PageView::maximized, page, function);
    };
    view.onMenu = [page](std::function<void(QPoint const&, int)> const& function) {
        QObject::connect(page, &PageView::menuWanted, page, function);
    };
    view.lookFrom = [page](ViewSide side) { page->lookFrom(side); };
    view.goToView = [page](ViewStep step) { return page->goToView(step); };
    view.copyView = [page] { return page->copyView(); };
    view.pasteView = [page] { return page->pasteView(); };
    view.rememberView = [page] { return page->rememberView(); };
    view.recallView = [page](int number) { return page->recallView(number); };
    view.linkViews = [page](bool isOn) { page->linkViews(isOn); };
    view.showOpening = [page](QString const& fileName) { page->showOpening(fileName); };
    view.isDrawing = [page] { return page->isDrawing(); };
    view.probeByClick = [page](bool isOn) { page->probeByClick(isOn); };
    view.markProbes = [page](std::vector<ProbedPlace> places) { page->markProbes(std::move(places)); };
    view.onProbe = [page](std::function<void(ProbedPlace const&)> const& function) {
        QObject::connect(page, &PageView::probed, page, function);
    };
    view.picture = [page](PictureOptions const& options) { return pictureOf(*page, options); };
    return view;
}

} // namespace veldraw::app
