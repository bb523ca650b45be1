#pragma once

#include "kernel/session/Session.h"
#include "tests/app/window/StormDice.h"

namespace veldraw::tests {

/// Changes the kernel at random, as other parts of an application would while dialogs are open.
class StormKernel
{
public:
    StormKernel(kernel::Session& session, StormDice& dice)
        : m_session(session)
        , m_dice(dice)
    {
    }

    /// Opens a page of frames: of planes, cells and a line, of a series in time, and one without data.
    void openPage();

    /// Changes something.
    void act();

    /// Takes back what has made the data large. To be called after each event.
    void keepSmall();

private:
    kernel::DataSet& dataSet() { return *m_session.activeDataSet(); }
    void changeDataSet();
    void changeThings();
    void changeValues();
    void changeFrames();
    void takeBack();

    kernel::Session& m_session;
    StormDice& m_dice;
};

} // namespace veldraw::tests
