#include "dialogs/models/OncePerTurnReader.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

OncePerTurnReader::OncePerTurnReader(boost::function<void()> const& read)
    : m_read(read)
    , m_turnEnd([this] { endTurn(); })
{
}

OncePerTurnReader::~OncePerTurnReader() = default;

void OncePerTurnReader::sourceChanged()
{
    if (m_hasReadInTurn) {
        *m_isDue = true;
        return;
    }
    m_hasReadInTurn = true;
    m_turnEnd.enableNotification();
    readNow();
}

void OncePerTurnReader::catchUp()
{
    if (*m_isDue)
        readNow();
}

void OncePerTurnReader::readNow()
{
    // Who hears of what was read may change it again, or end this.
    std::shared_ptr<bool> const isDue = m_isDue;
    boost::function<void()> const read = m_read;
    *isDue = false;
    try {
        read();
    } catch (...) {
        *isDue = true;
        throw;
    }
}

void OncePerTurnReader::endTurn()
{
    m_hasReadInTurn = false;
    catchUp();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
