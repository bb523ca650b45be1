#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/KrigingModel.h"
#include "kernel/compute/PointColumns.h"

#include <memory>
#include <vector>

namespace veldraw::kernel {

/// Kriging from all points at once: one large system, whose factorization serves all targets and variables.
///
/// Values are estimated in the dual form: with the weights b of the points and d of the drift's terms, which follow from the values,
/// an estimate is the sum of b times the covariances with the target and of d times the terms there (O. Dubrule, 1983).
class DenseKriging
{
public:
    /// The most points whose system fits into 0.7 of the memory that is available now.
    static std::int64_t mostPoints();

    /// Factorizes the system, on all cores; the work is one unit of @p progress for each tile of the matrix.
    /// @param points at least one, no two of them equal. @throws Interrupted, std::bad_alloc, std::runtime_error
    DenseKriging(KrigingModel const& model, PointColumns points, Progress& progress);
    ~DenseKriging();

    /// Units that the constructor counts as done.
    static std::int64_t workFor(std::int64_t points);

    /// The drift that was used: the model's, or a lower one where the points do not tell of it.
    Drift_e drift() const;

    /// Adds a variable. @param values one a point. @throws Interrupted
    void addVariable(std::vector<double> const& values, Progress const& progress);

    /// Estimates all variables for a few targets. Thread-safe.
    /// @param targets coordinates, one target after the other
    /// @param estimates receives a number for each target and variable, those of a target side by side
    void estimate(std::vector<double> const& targets, std::vector<double>& estimates, Progress const& progress) const;

    DenseKriging(DenseKriging const&) = delete;
    DenseKriging& operator=(DenseKriging const&) = delete;

private:
    struct System;
    std::unique_ptr<System> m_system;
};

} // namespace veldraw::kernel
