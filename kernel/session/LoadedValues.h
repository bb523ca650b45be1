#pragma once

#include "kernel/base/Identifier.h"

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

namespace veldraw::kernel {

class Session;

/// Values of one zone that something beside the frames shows, for instance a table.
struct ShownValues
{
    UniqueId zone;
    std::set<UniqueId> variables;
};

/// Which loaded values a session keeps of those that could be loaded again.
///
/// Values are unloaded only when they exceed the limit, or when a load or an operation does not get memory; those that have not
/// been used for the longest time are unloaded first. Values stay loaded if they have been altered, cannot be loaded again, are
/// wanted in some zone, are declared by declareShown(), or are those of a variable that a frame shows. Values that were unloaded
/// for a load that then fails are not loaded again.
class LoadedValues
{
public:
    /// @param session must outlive this object; @param limit in bytes
    LoadedValues(Session& session, std::int64_t limit);

    std::int64_t limit() const { return m_limit; }

    /// Unloads values above the limit at once, or, while an operation computes or when there is no memory for that, with the next load.
    void setLimit(std::int64_t bytes) noexcept;

    /// Declares values that something beside the frames shows. They stay loaded as long as the result lives.
    /// @throws std::bad_alloc
    std::shared_ptr<ShownValues const> declareShown(ShownValues values);

    /// All that is declared. @throws std::bad_alloc
    std::vector<std::shared_ptr<ShownValues const>> shown() const;

private:
    Session& m_session;
    std::int64_t m_limit;
    std::vector<std::weak_ptr<ShownValues const>> m_shown;
};

} // namespace veldraw::kernel
