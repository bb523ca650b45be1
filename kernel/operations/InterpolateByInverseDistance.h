#pragma once

#include "kernel/operations/PointInterpolation.h"

namespace veldraw::kernel {

/// "Inverse-Distance Interpolation": each value becomes a mean of source values, each with the weight
/// max(distance, minimum distance)^-exponent (InverseDistance). With the minimum distance 0 a place at a source point gets the
/// value there; where several source points of those that are chosen coincide with it, their mean.
///
/// Refused: as PointInterpolation; an exponent that is not above 0, or above 100; a negative or infinite minimum
/// distance.
class InterpolateByInverseDistance : public PointInterpolation
{
public:
    struct Formula
    {
        double exponent;
        double minimumDistance; ///< in units of the coordinates
    };

    InterpolateByInverseDistance(UniqueId frame, NumberSet sources, int destination, NumberSet variables,
                                 NeighborChoice choice, Formula formula)
        : PointInterpolation(frame, std::move(sources), destination, std::move(variables), choice)
        , m_formula(formula)
    {
    }

    std::string name() const override { return "Inverse-Distance Interpolation"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;

protected:
    void estimate(Task& task, Progress& progress) override;

private:
    void averageAll(Task const& task, Progress& progress) const;
    void averageNeighbors(Task& task, Progress& progress) const;

    Formula m_formula;
};

} // namespace veldraw::kernel
