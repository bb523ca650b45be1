#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/KrigingModel.h"

#include <memory>
#include <vector>

namespace veldraw::kernel {

/// One kriging system of any number of points, however the points lie: one that cannot be solved with the model's drift is
/// solved with a lower one. Of points that are so near each other that the system is singular, the first one counts.
class CarefulKriging
{
public:
    /// @param places coordinates of the points, at least one, one point after the other; @param axes 2 or 3
    /// @throws Interrupted, std::bad_alloc
    CarefulKriging(KrigingModel const& model, std::vector<double> places, std::size_t axes, Progress const& progress);
    ~CarefulKriging();

    /// The drift of the system: the model's or a lower one.
    Drift_e drift() const;

    /// Computes the weights of the points for a target. @throws Interrupted
    void weigh(double const* target, std::vector<double>& weights, Progress const& progress) const;

    CarefulKriging(CarefulKriging const&) = delete;
    CarefulKriging& operator=(CarefulKriging const&) = delete;

private:
    struct System;
    std::unique_ptr<System> m_system;
};

} // namespace veldraw::kernel
