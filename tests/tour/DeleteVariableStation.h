#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Deletes variables by mouse and by keyboard, takes it back, and tries what is refused.
class DeleteVariableStation
{
public:
    explicit DeleteVariableStation(TourContext& context);
    void run();

private:
    void deleteByMouse();
    void undoAndRedo();
    void tryWhatIsRefused();
    void deleteByKeyboard();
    void askForHelp();

    TourContext& m_tour;
    QString m_namesAtStart;
};

} // namespace veldraw::tests
