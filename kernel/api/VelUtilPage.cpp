#include "platform/vdsdkbase/VelUtilPage.h"

#include "kernel/api/ApiSupport.h"

using namespace veldraw::kernel;
using veldraw::kernel::api::answerOr;
using veldraw::kernel::api::session;

void VelUtilDrawGraphics(bool doDraw)
{
    answerOr(false, [&] {
        session().setDrawing(doDraw);
        return true;
    });
}

int VelUtilPageGetCount(void)
{
    return static_cast<int>(session().pages().all().size());
}

void VelUtilPaperGetDimensions(double* width, double* height)
{
    std::shared_ptr<Page> const page = session().activePage();
    api::store(width, page ? page->paperWidth : 0.0);
    api::store(height, page ? page->paperHeight : 0.0);
}

bool VelUtilViewDataFit(void)
{
    return answerOr(false, [] { return session().fitData(); });
}

bool VelUtilWorkViewFitAllFrames(void)
{
    return answerOr(false, [] { return session().fitAllFrames(); });
}
