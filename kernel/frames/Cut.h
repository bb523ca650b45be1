#pragma once

#include "kernel/base/Identifier.h"

#include <array>
#include <cstddef>

namespace veldraw::kernel {

/// What a cut goes along. The numbers are those of the style tree.
enum class CutKind
{
    X, ///< where a coordinate has one value
    Y,
    Z,
    I, ///< points of one index in ordered zones
    J,
    K,
    Plane,     ///< any plane in space
    IsoSurface ///< where a variable has one value
};

constexpr int cutKindCount = 8;

/// A surface through the zones of a field plot, in the colours of the contour variable. It is kept by identifiers, so that it comes back
/// with its variable when the deletion of that is undone.
struct Cut
{
    UniqueId id = nextUniqueId();
    CutKind kind = CutKind::X;
    /// By the kind: the coordinate; the one-based index, rounded; how far the plane is moved along its normal, in units of the
    /// coordinates; the value.
    double position = 0.0;
    std::array<double, 3> normal{1.0, 0.0, 0.0}; ///< of a plane, of any length but 0
    std::array<double, 3> origin{};              ///< a point of the plane when the position is 0
    UniqueId variable = 0;                       ///< of an iso-surface
    bool isShown = true;

    /// Number, from 0, of the coordinate or index that is the same all over the cut; -1 for a plane and an iso-surface.
    int axis() const
    {
        return kind < CutKind::I ? static_cast<int>(kind) : isOfIndex() ? static_cast<int>(kind) - 3 : -1;
    }

    /// Whether it is along an index.
    bool isOfIndex() const { return kind >= CutKind::I && kind <= CutKind::K; }

    /// Whether it goes along the same surface, shown or not. What is no number is nowhere, and not the same as itself.
    bool hasSamePlace(Cut const& other) const
    {
        auto const same = [](double left, double right) { return left <= right && left >= right; };
        bool isSame = kind == other.kind && same(position, other.position) && variable == other.variable;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            isSame = isSame && same(normal[axis], other.normal[axis]) && same(origin[axis], other.origin[axis]);
        }
        return isSame;
    }
};

inline bool operator==(Cut const& left, Cut const& right)
{
    return left.id == right.id && left.isShown == right.isShown && left.hasSamePlace(right);
}

} // namespace veldraw::kernel
