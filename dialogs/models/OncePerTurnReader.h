#pragma once

#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include <boost/function.hpp>

#include <memory>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Has something read anew after changes: at once after the first change of a turn of the event loop, and once more after all that follow in
/// the same turn, at the next idle moment or when somebody asks for what is read, whichever comes first.
///
/// So what a command changed is there before it tells of it, and a thousand changes cost two readings. A reading that failed is due again
/// when somebody asks, at the latest with the next change.
class OncePerTurnReader
{
public:
    explicit OncePerTurnReader(boost::function<void()> const& read);
    ~OncePerTurnReader();
    OncePerTurnReader(OncePerTurnReader const&) = delete;
    OncePerTurnReader& operator=(OncePerTurnReader const&) = delete;

    void sourceChanged();
    /// Whether something has changed that was not read.
    bool isDue() const { return *m_isDue; }
    /// Reads what is due.
    void catchUp();
    /// Reads whether it is due or not.
    void readNow();

private:
    void endTurn();

    boost::function<void()> const m_read;
    std::shared_ptr<bool> const m_isDue = std::make_shared<bool>(false); // who hears of a reading may end this
    bool m_hasReadInTurn = false;
    common::OnIdleActionPerformerSingleShot m_turnEnd;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
