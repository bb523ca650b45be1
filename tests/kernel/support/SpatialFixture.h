#pragma once

#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"

namespace veldraw::tests {

/// A session with one frame in space that shows an ordered zone of 3 x 2 x 2 points; nothing to undo and no event heard yet.
class SpatialFixture : public SessionFixture
{
protected:
    SpatialFixture()
    {
        dataSet = sample::emptySpace();
        sample::addOrdered(*dataSet, 3, 2, 2);
        frame = sample::show(session, dataSet);
        recorder.take();
    }

    kernel::Field& field(int zone, int variable)
    {
        return dataSet->zone(zone)->fields[static_cast<std::size_t>(variable - 1)];
    }
};

} // namespace veldraw::tests
