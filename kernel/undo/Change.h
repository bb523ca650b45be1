#pragma once

#include "kernel/undo/History.h"

#include <memory>

namespace veldraw::kernel {

/// A change that is ready to happen: everything that it needs has been allocated, so that neither doing it nor taking it
/// back can fail. Each way sends its events once the data is consistent.
class Change
{
public:
    Change() = default;
    virtual ~Change() = default;

    virtual void apply() noexcept = 0;
    virtual void revert() noexcept = 0;

    /// Memory in bytes that only the change keeps alive once it has been applied.
    virtual std::int64_t bytes() const noexcept { return 0; }

    Change(Change const&) = delete;
    Change& operator=(Change const&) = delete;
};

/// Puts @p change into @p history under @p name, then applies it.
/// @throws std::bad_alloc before anything has changed
inline void perform(History& history, std::string const& name, std::shared_ptr<Change> const& change)
{
    history.add({name, [change] { change->revert(); }, [change] { change->apply(); }, change->bytes()});
    change->apply();
}

} // namespace veldraw::kernel
