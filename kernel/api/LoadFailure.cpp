#include "kernel/api/LoadFailure.h"

#include "kernel/api/ApiSupport.h"

namespace veldraw::kernel::api {

namespace {

LoadFailureListener& listener()
{
    static LoadFailureListener installed;
    return installed;
}

} // namespace

void setLoadFailureListener(LoadFailureListener newListener)
{
    listener() = std::move(newListener);
}

bool tellLoadFailure() noexcept
{
    return answerOr(false, [] {
        if (listener() && !session().isBusy()) {
            listener()(session().lastError());
        }
        return false;
    });
}

} // namespace veldraw::kernel::api
