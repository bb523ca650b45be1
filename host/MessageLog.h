#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <boost/signals2/signal.hpp>

#include <chrono>
#include <deque>
#include <string>

namespace veldraw::host {

/// What the user was told and why the kernel refused something, with the time, oldest first. The oldest entries go when
/// there are very many. It is never destroyed.
class VELDRAW_PLATFORM_API MessageLog
{
public:
    struct Entry
    {
        std::chrono::system_clock::time_point time;
        MessageBoxType_e type;
        std::string text; ///< UTF-8
    };
    typedef boost::signals2::signal<void(Entry const&)> EntryAddedSignal;

    static MessageLog& instance();

    /// Takes a text down; an empty one is left out.
    void add(MessageBoxType_e type, std::string const& text);

    /// The same, but for what the last entry says that is younger than a second: who asks for many values of one variable is
    /// told once why none of them can be had.
    void addUnlessJustSaid(MessageBoxType_e type, std::string const& text);

    std::deque<Entry> const& entries() const { return m_entries; }
    void clear();

    boost::signals2::connection connectEntryAdded(EntryAddedSignal::slot_type const& slot);

    MessageLog(MessageLog const&) = delete;
    MessageLog& operator=(MessageLog const&) = delete;

private:
    MessageLog() = default;
    ~MessageLog() = default;

    std::deque<Entry> m_entries;
    EntryAddedSignal m_entryAdded;
};

} // namespace veldraw::host
