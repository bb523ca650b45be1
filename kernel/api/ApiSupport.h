#pragma once

#include "kernel/session/Session.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <new>
#include <string>
#include <vector>

/// The handle StringList of the C interface: a list of UTF-8 texts.
struct StringList_s
{
    std::vector<std::string> texts;
};

namespace veldraw::kernel::api {

/// The session that the C functions work on.
inline Session& session()
{
    return Session::instance();
}

/// The result of @p function, or @p failure if it throws, since no exception may leave a C function. std::bad_alloc is also
/// stored as the session's last error.
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

/// Stores @p value at @p target unless that is null.
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
