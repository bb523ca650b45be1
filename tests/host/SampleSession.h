#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/frames/Frame.h"
#include "kernel/session/Session.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// A test that has the kernel's session for itself: an empty page before and after.
class SampleSession : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    static kernel::Session& session() { return kernel::Session::instance(); }

    /// A data set of these variables and no zone.
    static std::shared_ptr<kernel::DataSet> makeDataSet(std::vector<std::string> const& variables);

    /// Appends an ordered zone. Variable v (from 1) holds v * 100, v * 100 + 1, ... in its points.
    static std::shared_ptr<kernel::Zone> addZone(kernel::DataSet& dataSet, std::string const& name, std::int64_t i,
                                                 std::int64_t j = 1, std::int64_t k = 1);

    /// Appends a finite-element zone of one cell, with the same values.
    static std::shared_ptr<kernel::Zone> addCellZone(kernel::DataSet& dataSet, std::string const& name, ZoneType_e type,
                                                     std::int64_t points);

    /// A frame that shows the data set, active, with this plot type.
    static std::shared_ptr<kernel::Frame> show(std::shared_ptr<kernel::DataSet> const& dataSet, PlotType_e plotType);
};

} // namespace veldraw::tests
