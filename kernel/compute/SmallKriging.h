#pragma once

#include "kernel/compute/KrigingModel.h"

#include <cstddef>
#include <memory>

namespace veldraw::kernel {

/// Eight kriging systems of the same number of points, solved side by side in the processor's lanes.
///
/// Universal kriging (A. G. Journel, C. J. Huijbregts, 1978): with the covariances C of the points, c of the points with the
/// target, the drift's terms F at the points and f at the target, the weights are the w that make w'Cw - 2w'c the smallest
/// of those with F'w = f. With C = LL' and inv(L) F = QR they are inv(L') (y - Q (Q'y - inv(R') f)), where y = inv(L) c.
class SmallKriging
{
public:
    static constexpr std::size_t lanes = 8;
    static constexpr std::size_t mostPoints = 48;

    /// @param axes 2 or 3
    SmallKriging(KrigingModel const& model, std::size_t axes);
    ~SmallKriging();

    /// Sets the number of points of each system: at most mostPoints, and at least as many as the drift has terms.
    void setPointCount(std::size_t count);

    /// @param places of all points of a system, one point after the other
    void setPoints(std::size_t lane, double const* places);

    /// Factorizes all systems. @return a bit for each lane whose system is singular, or nearly so
    unsigned factorize();

    void setTarget(std::size_t lane, double const* place);

    /// Computes the weights for the targets.
    void solve();

    /// Writes the weight of each point of a system.
    void readWeights(std::size_t lane, double* weights) const;

    SmallKriging(SmallKriging const&) = delete;
    SmallKriging& operator=(SmallKriging const&) = delete;

    struct Systems;

private:
    std::unique_ptr<Systems> m_systems;
};

} // namespace veldraw::kernel
