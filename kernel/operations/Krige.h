#pragma once

#include "kernel/operations/PointInterpolation.h"

namespace veldraw::kernel {

/// "Kriging": the linear unbiased estimate with the smallest variance, from the points that the choice takes (KrigingModel,
/// SmallKriging). Source points at the same place count as one, with the mean of their values. Where the points do not tell of
/// the whole drift, the next lower one is taken, place by place.
///
/// Refused: as PointInterpolation; a range or a zero value beyond its limits; all points where their system does not
/// fit into the memory.
class Krige : public PointInterpolation
{
public:
    struct Model
    {
        double range;     ///< 0 to 1: fraction of the diagonal of the source points' bounding box
        double zeroValue; ///< 0 to 1: the nugget of a variogram whose sill is 1
        Drift_e drift;
    };

    Krige(UniqueId frame, NumberSet sources, int destination, NumberSet variables, NeighborChoice choice, Model model)
        : PointInterpolation(frame, std::move(sources), destination, std::move(variables), choice)
        , m_model(model)
    {
    }

    std::string name() const override { return "Kriging"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    void compute(Progress& progress) override;

protected:
    std::string reasonAgainstPoints(std::int64_t count) const override;
    void estimate(Task& task, Progress& progress) override;
    std::string details() const override;

private:
    void estimateFromAll(Task const& task, Progress& progress);
    void estimateFromNeighbors(Task& task, Progress& progress);

    Model m_model;
    std::int64_t m_merged = 0;
    std::int64_t m_lowered = 0;
};

} // namespace veldraw::kernel
