#include "platform/vdsdkbase/VelUtilStyle.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/style/StyleTree.h"

bool VelUtilStyleGetLastErrorString(char** message)
{
    using namespace veldraw::kernel;
    api::store(message, static_cast<char*>(nullptr));
    return api::answerOr(false, [message] {
        std::string const& text = api::session().style().lastError();
        if (message == nullptr || text.empty()) {
            return false;
        }
        *message = api::copyText(text);
        return true;
    });
}
