#pragma once

namespace veldraw::kernel {

/// Smallest and largest finite value of a field.
struct ValueRange
{
    enum class State
    {
        Unknown,   ///< nothing is known yet, or there is no finite value
        Estimated, ///< limits that the loader gave, not computed from the values
        Exact      ///< computed from the values
    };

    State state = State::Unknown;
    double min = 0.0;
    double max = 0.0;

    bool isValid() const { return state != State::Unknown; }
};

} // namespace veldraw::kernel
