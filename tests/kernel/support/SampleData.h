#pragma once

#include "kernel/data/DataSet.h"

namespace veldraw::tests {

/// Data sets and fields for tests.
namespace sample {

/// The given values, stored as @p type.
std::shared_ptr<kernel::Buffer> buffer(std::vector<double> const& values, FieldDataType_e type = FieldDataType_Double);

/// A nodal field of the given values, stored as @p type.
kernel::Field field(std::vector<double> const& values, FieldDataType_e type = FieldDataType_Float,
                    ValueLocation_e location = ValueLocation_Nodal);

/// Variables X, Y, Z, P and T; two zones of 3 x 2 points. Z is passive; P is shared by the zones; T is cell-centred.
std::shared_ptr<kernel::DataSet> twoPlanes();

/// Variables of the given names over one ordered zone, each value its own index.
std::shared_ptr<kernel::DataSet> ordered(std::vector<std::string> const& names, std::int64_t i, std::int64_t j = 1,
                                         std::int64_t k = 1);

} // namespace sample

} // namespace veldraw::tests
