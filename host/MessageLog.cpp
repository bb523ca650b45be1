#include "host/MessageLog.h"

#include "platform/signals/WholeConnection.h"

namespace veldraw::host {

namespace {

constexpr std::size_t entryLimit = 10000;

} // namespace

MessageLog& MessageLog::instance()
{
    static MessageLog* const log = new MessageLog;
    return *log;
}

void MessageLog::add(MessageBoxType_e type, std::string const& text)
{
    if (text.empty())
        return;
    if (m_entries.size() == entryLimit)
        m_entries.pop_front();
    m_entries.push_back({std::chrono::system_clock::now(), type, text});
    m_entryAdded(Entry(m_entries.back())); // a copy: a listener may add or clear
}

void MessageLog::addUnlessJustSaid(MessageBoxType_e type, std::string const& text)
{
    bool const isNew = m_entries.empty() || m_entries.back().text != text ||
                       std::chrono::system_clock::now() - m_entries.back().time > std::chrono::seconds(1);
    if (isNew)
        add(type, text);
}

void MessageLog::clear()
{
    m_entries.clear();
}

boost::signals2::connection MessageLog::connectEntryAdded(EntryAddedSignal::slot_type const& slot)
{
    return sdk::connectWhole(slot, [this](auto const& whole) { return m_entryAdded.connect(whole); });
}

} // namespace veldraw::host
