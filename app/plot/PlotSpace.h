#pragma once

#include <array>

namespace veldraw::app {

/// The box that a field plot shows and how it maps to the scene.
///
/// The scene's coordinates lie around the origin and are about one unit wide, whatever the data's unit and offset, so
/// that single precision on the graphics card always suffices. Proportions are kept, or each axis has a scale of its own so that
/// all are about as long.
class PlotSpace
{
public:
    PlotSpace() = default;

    /// @param min, max limits of the data on X, Y, Z; an axis that is not used has equal limits
    /// @param stretched each axis has a scale of its own
    PlotSpace(std::array<double, 3> const& min, std::array<double, 3> const& max, bool stretched);

    double min(int axis) const { return m_min[index(axis)]; }
    double max(int axis) const { return m_max[index(axis)]; }

    /// From one limit to the other, in data units.
    double length(int axis) const { return max(axis) - min(axis); }

    /// Position in the scene of a value on an axis.
    double toScene(int axis, double value) const;
    double toValue(int axis, double position) const;

    /// Largest position of the box on an axis; the smallest is its negative.
    double sceneHalf(int axis) const;

    /// Length in data units of one unit of the scene.
    double unit(int axis) const { return m_unit[index(axis)]; }

    /// Whether lengths along one axis do not look like the same lengths along another.
    bool isStretched() const;

    bool operator==(PlotSpace const& other) const
    {
        return m_min == other.m_min && m_max == other.m_max && m_unit == other.m_unit;
    }
    bool operator!=(PlotSpace const& other) const { return !(*this == other); }

private:
    static std::size_t index(int axis) { return static_cast<std::size_t>(axis); }

    std::array<double, 3> m_min{};
    std::array<double, 3> m_max{};
    std::array<double, 3> m_centre{};
    std::array<double, 3> m_unit{1.0, 1.0, 1.0}; ///< length in data units of one unit of the scene
};

} // namespace veldraw::app
