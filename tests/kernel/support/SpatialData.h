#pragma once

#include "kernel/compute/Rotation.h"
#include "kernel/operations/SpatialVariables.h"
#include "kernel/session/Session.h"

#include <random>

namespace veldraw::tests {

/// Data sets in space: variables X, Y, Z, U, V, W and P, the vector U, V, W on the points.
namespace sample {

/// The variables of these data sets.
extern kernel::SpatialVariables const inSpace;  ///< X, Y, Z with U, V, W
extern kernel::SpatialVariables const inPlane;  ///< X, Y with U, V
extern kernel::SpatialVariables const noVector; ///< X, Y, Z alone

inline kernel::RotationAxis const aboutX{{}, {1, 0, 0}};
inline kernel::RotationAxis const aboutZ{{}, {0, 0, 1}};
inline kernel::RotationAxis const slanting{{1, 2, 3}, {1, -2, 0.5}};

/// A data set of these variables without a zone.
std::shared_ptr<kernel::DataSet> emptySpace();

/// An ordered zone of these dimensions with random values in [-1, 1] of @p type, added to @p dataSet.
std::shared_ptr<kernel::Zone> addOrdered(kernel::DataSet& dataSet, std::int64_t i, std::int64_t j, std::int64_t k,
                                         FieldDataType_e type = FieldDataType_Double);

/// One zone of each kind of cells, and ordered ones of one, two and three dimensions, on random points.
std::shared_ptr<kernel::DataSet> everyKindOfCells(unsigned seed);

/// All values of a variable in a zone; a passive one reads as 0.
std::vector<double> values(kernel::DataSet const& dataSet, int zone, int variable);

/// A frame in space that shows the data set, with its axes and its vector assigned, on a fresh page of the session.
std::shared_ptr<kernel::Frame> show(kernel::Session& session, std::shared_ptr<kernel::DataSet> const& dataSet);

} // namespace sample

} // namespace veldraw::tests
