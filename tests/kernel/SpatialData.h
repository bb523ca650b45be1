#pragma once

#include "kernel/compute/Rotation.h"
#include "kernel/operations/SpatialVariables.h"
#include "kernel/session/Session.h"

#include <random>

/// Data sets in space: variables X, Y, Z, U, V, W and P, the vector U, V, W on the points.
namespace sample {

/// The variables of these data sets.
extern veldraw::kernel::SpatialVariables const inSpace;  ///< X, Y, Z with U, V, W
extern veldraw::kernel::SpatialVariables const inPlane;  ///< X, Y with U, V
extern veldraw::kernel::SpatialVariables const noVector; ///< X, Y, Z alone

inline veldraw::kernel::RotationAxis const aboutX{{}, {1, 0, 0}};
inline veldraw::kernel::RotationAxis const aboutZ{{}, {0, 0, 1}};
inline veldraw::kernel::RotationAxis const slanting{{1, 2, 3}, {1, -2, 0.5}};

/// A data set of these variables without a zone.
std::shared_ptr<veldraw::kernel::DataSet> emptySpace();

/// An ordered zone of these dimensions with random values in [-1, 1] of @p type, added to @p dataSet.
std::shared_ptr<veldraw::kernel::Zone> addOrdered(veldraw::kernel::DataSet& dataSet, std::int64_t i, std::int64_t j,
                                                  std::int64_t k, FieldDataType_e type = FieldDataType_Double);

/// One zone of each kind of cells, and ordered ones of one, two and three dimensions, on random points.
std::shared_ptr<veldraw::kernel::DataSet> everyKindOfCells(unsigned seed);

/// All values of a variable in a zone; a passive one reads as 0.
std::vector<double> values(veldraw::kernel::DataSet const& dataSet, int zone, int variable);

/// A frame in space that shows the data set, with its axes and its vector assigned, on a fresh page of the session.
std::shared_ptr<veldraw::kernel::Frame> show(veldraw::kernel::Session& session,
                                             std::shared_ptr<veldraw::kernel::DataSet> const& dataSet);

} // namespace sample
