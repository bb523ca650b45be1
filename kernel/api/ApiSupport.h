#pragma once

#include "kernel/session/Session.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <new>
#include <string>
#include <vector>

/// The list of texts (UTF-8) behind the C interface.
struct StringList_s
{
    std::vector<std::string> texts;
};

namespace veldraw::kernel::api {

/// The session behind the C functions.
inline Session& session()
{
    return Session::instance();
}

/// What @p function answers, or @p failure when it throws: nothing may cross the C boundary. Lack of memory is noted as the
/// reason.
template <typename Answer, typename Function>
Answer answerOr(Answer failure, Function const& function) noexcept
{
    try {
        return function();
    } catch (std::bad_alloc const&) {
        session().refuse("Out of memory.");
        return failure;
    } catch (...) {
        return failure;
    }
}

/// A copy that VelUtilStringDealloc() gives back. @throws std::bad_alloc
char* copyText(std::string const& text);

/// Stores @p value where @p target points, if it points anywhere.
template <typename Value>
void store(Value* target, Value value) noexcept
{
    if (target != nullptr) {
        *target = value;
    }
}

/// Zone, variable and field of the active data set by one-based numbers; null for what does not exist.
std::shared_ptr<Zone> activeZone(int zone);
std::shared_ptr<Variable> activeVariable(int variable);
Field const* activeField(int zone, int variable);

} // namespace veldraw::kernel::api
