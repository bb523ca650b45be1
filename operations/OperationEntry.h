#pragma once

#include "operations/Arguments.h"
#include "operations/Parameter.h"

#include <functional>
#include <string>
#include <vector>

namespace veldraw::operations {

/// An operation as every door offers it: its name, what it takes and what it does.
struct OperationEntry
{
    /// What of the data set is another one afterwards, so that later commands cannot be checked before this one has run.
    enum class Renews
    {
        Nothing, ///< numbers and names of zones and variables stay
        Names,   ///< zones or variables come, go or get other names
        DataSet  ///< another data set is the active one
    };

    std::string name;     ///< as commands call it: "mirror-zones"
    std::string title;    ///< as menus and the history call it: "Create Mirror Zone"
    std::string sentence; ///< what it does; ends with a full stop
    std::vector<Parameter> parameters;

    /// Does the work. @return false when it was refused: Session::lastError() gives the reason.
    /// @throws std::exception with a reason in words for the user; nothing has changed then
    std::function<bool(Arguments const&)> run;

    std::string failure = {}; ///< what a user is told of a refusal, before the reason
    std::string success = {}; ///< and of success; may be empty
    Renews renews = Renews::Nothing;
    bool needsData = true; ///< refused where the active frame has no data set
    bool isLocking = true; ///< the application's lock is held meanwhile; false for what takes it itself
};

} // namespace veldraw::operations
