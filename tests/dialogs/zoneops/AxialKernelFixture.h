#pragma once

#include "tests/dialogs/support/ActionUnderSpy.h"
#include "tests/dialogs/support/RecordedGuards.h"
#include "tests/dialogs/zoneops/AxialFixture.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace veldraw::tests {

/// The button of an axial dialog as the kernel sees it.
template <typename Fixture>
class AxialKernelFixture : public ActionUnderSpy<Fixture>
{
protected:
    using ActionUnderSpy<Fixture>::spy;

    /// The one call of a function; fails in the kernel, which is not the matter here.
    std::string refusedCall(char const* function)
    {
        spy.reset();
        spy.failNext(function);
        this->clickAction();
        std::vector<std::string> const calls = spy.callsOf(function);
        EXPECT_EQ(calls.size(), 1u);
        return calls.empty() ? "" : calls.front();
    }

    std::string dataSet() const { return std::to_string(this->sample.dataSet().id()); }

    void expectNothingHeld()
    {
        EXPECT_EQ(sdk::AppLock::depth(), 0);
        EXPECT_TRUE(this->dialog().isVisible());
    }
};

/// What the kernel is asked before either action.
inline std::vector<std::string> const questions{
    "VelUtilFrameGetPlotType()",         "VelUtilAxisGetVarAssignments(out, out, out)",
    "VelUtilVarGetNumByAssignment('U')", "VelUtilVarGetNumByAssignment('V')",
    "VelUtilVarGetNumByAssignment('W')", "VelUtilDataSetGetUniqueID()"};

inline std::vector<std::string> after(std::vector<std::string> calls, std::vector<std::string> const& more)
{
    calls.insert(calls.end(), more.begin(), more.end());
    return calls;
}

/// How the application is held while a message is on the screen.
template <typename Fixture>
class AxialGuardsFixture : public Fixture
{
protected:
    AxialGuardsFixture() { this->launched(); }

    /// First without a selection, then on a locked data set.
    void refuseTwice()
    {
        this->clickAction();
        this->sample.session().setLock(this->sample.dataSet(), "another operation");
        this->clickRow(0);
        this->clickAction();
        EXPECT_EQ(told.guards(), (RecordedGuards::Guards{{0, 0}, {1, 0}})) << "what is read before needs no lock";
        EXPECT_EQ(sdk::AppLock::depth(), 0);
    }

    RecordedGuards told;
};

} // namespace veldraw::tests
